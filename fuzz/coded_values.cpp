// Any tree of coded values, decoded as every type that can be.
#include <quillonic/filesystem.hpp>
#include <quillonic/media.hpp>
#include <quillonic/platform/color_coding.hpp>
#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

#include "coded_tree.hpp"
#include "target.hpp"

namespace quillonic::fuzz {
namespace {

template <class T> void checkType(const CodedValue& coded) {
  try {
    const auto value = decode<T>(coded);
    const auto again = encode(value);
    require(encode(decode<T>(again)) == again, "what was decoded is coded and decoded to the same");
    if constexpr (std::equality_comparable<T>) require(decode<T>(again) == value, "coding loses nothing");
  } catch (const DecodingError& error) {
    // A message ends at a NUL.
    const std::string_view key = error.key().c_str();
    require(std::string_view(error.what()).find(key) != std::string_view::npos, "an error names its key");
  }
}

template <class... T> void checkTypes(const CodedValue& coded) {
  (checkType<T>(coded), ...);
}

// A decoded model is taken unchanged, so its flags and values are any texts.
void checkModel(const CodedValue& coded) {
  try {
    auto model = decode<TranscodeCliArguments>(coded);
    const auto words = model.commandLineArguments();
    TextDictionary written;
    for (std::size_t i = 0; i + 1 < words.size(); i += 2) written.emplace(words[i], words[i + 1]);
    require(2 * written.size() == words.size() && written == model.flagValueLookup(),
            "each flag is written once with its value");
    require(decode<TranscodeCliArguments>(encode(model)).commandLineArguments() == words,
            "coding keeps the words");

    model.update(model.videoDetail());
    model.update(model.audioDetail());
    model.update(model.timecodeDetail());
    model.update(model.watermarkDetail());
    require(model.commandLineArguments() == words, "updating with what is there changes nothing");
    auto detail = model.timecodeDetail();
    detail.timecodeAddTrack = !detail.timecodeAddTrack;
    model.update(detail);
    if (written.erase("-tc_track") == 0) written.emplace("-tc_track", "");
    require(model.flagValueLookup() == written, "a field that changes changes no flag of another");
    const auto groups = model.inputFileGroups();
    model.setInputFileGroups(groups);
    require(model.inputFileGroups() == groups, "input files read back");
  } catch (const DecodingError&) {
    // The tree is not a model.
  }
}

}  // namespace

void run(std::string_view bytes) {
  const auto coded = CodedTree(bytes).value();
  const CodedValue copy = coded;
  require(copy == coded, "a copy is equal");
  checkTypes<TranscodeCliArguments, TimecodeComponents, VideoCropAnchor, TimecodeBurnAnchor, TimecodeSource,
             VAVTranscodeVideoArgumentFlag, VAVTranscodeArgumentVideoCodecValue, TranscodeCliPreset,
             MediaAnalysisCLIFlag, MediaAnalysisImageCLIFlags, CLICustodialFlag, MatchLevel, FileExtension,
             VideoExtension, Color, FrameSize, TranscodeVideoDetail, TranscodeAudioDetail,
             TranscodeTimecodeDetail, TranscodeWatermarkDetail, TranscodeInputFileGroup, std::vector<double>>(
      coded);
  checkModel(coded);
}

}  // namespace quillonic::fuzz
