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

struct Row {
  std::string_view flag;
  Stage stage;
  std::string_view becomes;                 // for readers; for notHere the reason
  void (*map)(Job&) = nullptr;              // called if the flag is set
  std::array<std::string_view, 2> needs{};  // without any of these flags it has no effect
};

std::span<const Row> mapping() noexcept;

}  // namespace transcoder
