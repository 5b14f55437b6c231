// What each flag of the vocabulary becomes: one row a flag.
#pragma once

#include <span>
#include <string_view>

#include "job.hpp"

namespace transcoder {

enum class Stage {
  command,      // printed by the tool, without a transcode
  tool,         // the tool does it itself, or with other flags
  beforeStart,  // words for ffmpeg
  bySource,     // filters and metadata, which may depend on what ffprobe finds
  notHere,      // named on standard error
};

// Of these flags one must be set for another to have an effect; an empty one is none.
using Needs = std::array<std::string_view, 2>;

struct Row {
  std::string_view flag;
  Stage stage;
  std::string_view becomes;     // for readers; for notHere the reason
  void (*map)(Job&) = nullptr;  // called if the flag is set
  Needs needs{};
};

std::span<const Row> mapping() noexcept;

}  // namespace transcoder
