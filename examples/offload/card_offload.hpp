// Copies a card to several targets, verifies the copies and writes a hash list beside each.
#pragma once

#include <filesystem>
#include <vector>

struct CardOffload {
  // Whether every item is in every target.
  bool isGood = false;
  // What was copied by this run, in the first target.
  std::vector<std::filesystem::path> newFiles;
};

// Copies to a folder with the card's name in each target. Prints what became of the items, as JSON if asked,
// and shows a bar per target on a terminal.
// Without verification there are no lists either.
CardOffload offloadCard(const std::filesystem::path& card, const std::vector<std::filesystem::path>& targets,
                        bool asJson, bool verifies = true);
