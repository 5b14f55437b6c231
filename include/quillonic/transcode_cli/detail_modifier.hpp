/// Several detail records, applied to a model together.
///
///     TranscodeDetailModifier review{{video, timecode, watermark}};
///     for (auto& settings : queue) review.apply(*settings);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/details.hpp>

#include <variant>
#include <vector>

namespace quillonic {

/// Any detail record.
using TranscodeDetail = std::variant<TranscodeVideoDetail, TranscodeAudioDetail, TranscodeTimecodeDetail,
                                     TranscodeWatermarkDetail, TranscodeWatermarkImageFileDetail,
                                     TranscodeWatermarkTextDetail, TranscodeInputFileGroup>;

/// A change of several details, which can be stored and applied to any number of models.
struct QUILLONIC_EXPORT TranscodeDetailModifier {
  /// The records in order of application. A later one overrides an earlier one.
  std::vector<TranscodeDetail> details;

  /// Calls the model's `update` with each record. When memory runs out, earlier changes stay.
  void apply(TranscodeCliArguments& arguments) const;

  friend bool operator==(const TranscodeDetailModifier&, const TranscodeDetailModifier&) = default;
};

}  // namespace quillonic
