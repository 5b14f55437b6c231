/// The detail records made of other records or of more than flags; the plain ones are in details_table.hpp.
#pragma once

#include <quillonic/support/coding.hpp>
#include <quillonic/transcode_cli/details_table.hpp>

#include <cstdint>
#include <string>
#include <tuple>
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

/// The fields of `TranscodeWatermarkDetail`, each encoded under its own name.
template <> struct FieldTable<TranscodeWatermarkDetail> {
  static constexpr std::tuple fields{
      Field{"imageFile", &TranscodeWatermarkDetail::imageFile},
      Field{"text", &TranscodeWatermarkDetail::text},
  };
};

/// The input files of one group.
struct TranscodeInputFileGroup {
  /// The number of the group.
  std::int64_t group = 0;
  /// The files in order of their positions.
  std::vector<std::string> files;

  friend bool operator==(const TranscodeInputFileGroup&, const TranscodeInputFileGroup&) = default;
};

/// The fields of `TranscodeInputFileGroup`, each encoded under its own name.
template <> struct FieldTable<TranscodeInputFileGroup> {
  static constexpr std::tuple fields{
      Field{"group", &TranscodeInputFileGroup::group},
      Field{"files", &TranscodeInputFileGroup::files},
  };
};

}  // namespace quillonic
