// Pictures of one folder that are the frames of a film.
#pragma once

#include <quillonic/catalogue/clip.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic::catalogue {

struct Frame {
  std::uint64_t number;
  // The place of its name among those given.
  std::size_t name;
};

struct ImageSequence {
  // Before the digits, without the separator.
  std::string stem;
  // By number.
  std::vector<Frame> frames;
  std::vector<FrameSpan> missing;
};

// The sequences among the names of one folder: two or more pictures of one stem, extension and number of
// digits. Of formats that stills have too, ten or more, or a sound file of the stem, so that a holiday is no
// film; in a folder of stills, none.
std::vector<ImageSequence> imageSequences(const std::vector<std::string_view>& names, bool hasStills);

}  // namespace quillonic::catalogue
