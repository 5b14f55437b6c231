/// Whole detail records that overwrite those of a model. To change single options of many models and leave
/// the others, use `TranscodeOptionChanges`.
///
///     TranscodeDetailModifier review{{video, timecode, watermark}};
///     for (auto& settings : queue) review.apply(*settings);    // removes what `video` has not
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/details.hpp>

#include <variant>
#include <vector>

namespace quillonic {

/// Any detail record.
using TranscodeDetail =
    std::variant<TranscodeVideoDetail, TranscodeAudioDetail, TranscodeTimecodeDetail,
                 TranscodeWatermarkDetail, TranscodeWatermarkImageFileDetail, TranscodeWatermarkTextDetail,
                 TranscodeInputFileGroup, TranscodeGeneralDetail, TranscodeArriLookDetail>;

/// Overwrites whole details of any number of models: an option without a value in a record is removed.
struct QUILLONIC_EXPORT TranscodeDetailModifier {
  /// The records in order of application. A later one overrides an earlier one.
  std::vector<TranscodeDetail> details;

  /// Makes the model's options of each record's subject equal to the record, with `update`. When memory runs
  /// out, earlier changes stay.
  void apply(TranscodeCliArguments& arguments) const;

  friend bool operator==(const TranscodeDetailModifier&, const TranscodeDetailModifier&) = default;
};

}  // namespace quillonic
