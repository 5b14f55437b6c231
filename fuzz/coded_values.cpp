// Any tree of coded values, one per line, decoded as every possible type. "{" begins a record, in which a
// line with a key precedes each value; "[" begins a list; "}" or "]" ends either. "t" and "f" are Booleans,
// "i5" an integer, "d0.5" a number, "sabc" a text; any other line is nothing.
#include <quillonic/filesystem.hpp>
#include <quillonic/media.hpp>
#include <quillonic/platform/color_coding.hpp>
#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

template <class Number> Number number(std::string_view text) {
  Number value{};
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// A value with NaN equals nothing.
double equalToItself(double value) {
  return std::isnan(value) ? 0 : value;
}

class Tree {
 public:
  explicit Tree(std::string_view bytes) : lines_(lines(bytes)) {}

  CodedValue value() {
    const auto line = next();
    if (line.empty()) return {};
    const auto rest = line.substr(1);
    switch (line.front()) {
      case 't':
        return true;
      case 'f':
        return false;
      case 'i':
        return number<std::int64_t>(rest);
      case 'd':
        return equalToItself(number<double>(rest));
      case 's':
        return std::string(rest);
      case '[': {
        CodedList list;
        while (!ends()) list.push_back(value());
        return list;
      }
      case '{': {
        CodedRecord record;
        while (!ends()) {
          const auto key = next();
          record.add(key, value());
        }
        return record;
      }
      default:
        return {};
    }
  }

 private:
  bool ends() {
    if (at_ < lines_.size() && lines_[at_] != "]" && lines_[at_] != "}") return false;
    ++at_;
    return true;
  }
  std::string_view next() { return at_ < lines_.size() ? lines_[at_++] : std::string_view{}; }

  std::vector<std::string_view> lines_;
  std::size_t at_ = 0;
};

template <class T> void checkType(const CodedValue& coded) {
  try {
    const auto again = encode(decode<T>(coded));
    require(encode(decode<T>(again)) == again, "what was decoded is coded and decoded to the same");
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
    const auto groups = model.inputFileGroups();
    model.setInputFileGroups(groups);
    require(model.inputFileGroups() == groups, "input files read back");
  } catch (const DecodingError&) {
    // The tree is not a model.
  }
}

}  // namespace

void run(std::string_view bytes) {
  const auto coded = Tree(bytes).value();
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
