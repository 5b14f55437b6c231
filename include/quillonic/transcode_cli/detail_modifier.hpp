/// Several detail records that are applied to a model together.
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

/// A change of several details, which can be kept and applied to any number of models.
struct QUILLONIC_EXPORT TranscodeDetailModifier {
  /// The records in the order in which they are applied. Where two speak of one option the later one wins.
  std::vector<TranscodeDetail> details;

  /// Calls `update` of the model with each record. Where memory runs out, what was applied so far stays.
  void apply(TranscodeCliArguments& arguments) const;

  friend bool operator==(const TranscodeDetailModifier&, const TranscodeDetailModifier&) = default;
};

}  // namespace quillonic
