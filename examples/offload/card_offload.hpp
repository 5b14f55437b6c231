// Copies a card to several targets, verifies the copies and writes a hash list beside each.
#pragma once

#include <filesystem>
#include <vector>

enum class Verification {
  // Nothing is verified, and no list written.
  none,
  // What this run copies, and what no earlier list has.
  ofNewFiles,
  // Also what earlier lists have.
  ofAll,
};

struct CardOffload {
  // Whether every item is in every target.
  bool isGood = false;
  // The videos that this run copied, in the first target.
  std::vector<std::filesystem::path> newVideos;
};

// Copies to a folder with the card's name in each target. Prints what became of the items, as JSON if asked,
// and shows a bar per target on a terminal. The first interrupt signal stops it, and the next one ends the
// process.
CardOffload offloadCard(const std::filesystem::path& card, const std::vector<std::filesystem::path>& targets,
                        bool asJson, Verification verification);
