/// The detail records that are made of others or of more than flags; the plain ones stand in
/// details_table.hpp.
#pragma once

#include <quillonic/transcode_cli/details_table.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace quillonic {

/// The settings of both watermarks.
struct TranscodeWatermarkDetail {
  /// The image.
  TranscodeWatermarkImageFileDetail imageFile;
  /// The text.
  TranscodeWatermarkTextDetail text;

  friend bool operator==(const TranscodeWatermarkDetail&, const TranscodeWatermarkDetail&) = default;
};

/// The input files of one group.
struct TranscodeInputFileGroup {
  /// The number of the group.
  std::int64_t group = 0;
  /// The files in the order of their positions.
  std::vector<std::string> files;

  friend bool operator==(const TranscodeInputFileGroup&, const TranscodeInputFileGroup&) = default;
};

}  // namespace quillonic
