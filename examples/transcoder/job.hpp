// One transcode on its way from settings to a run of ffmpeg.
#pragma once

#include <quillonic/media.hpp>
#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "probe.hpp"

namespace transcoder {

// What can be written, and by which of ffmpeg's encoders.
struct Encoder {
  struct Depth {
    int bits;
    std::string_view pixels;
  };
  struct Profile {
    std::string_view name;
    std::vector<Depth> depths;  // as below; with other pixels the encoder would choose another profile
  };
  std::string_view codec;  // the value of "-vcodec"
  std::vector<std::string> words;
  std::vector<std::string> withoutBitRate;  // how well it encodes unless "-vbr" says so
  std::vector<Depth> depths;                // the first one unless "-vbd" asks for another
  std::vector<Profile> profiles;
  bool hasKeyFrames;  // or every frame is one
  bool takesBitRate;
};

struct Container {
  std::string_view format;     // the value of "-file_format"; empty if only the output's extension selects it
  std::string_view extension;  // of a file's name
  std::string_view muxer;
  bool hasVideo;
  bool hasAudio;
};

// The filters of the picture, in the order in which they are applied.
enum class Step { lut, color, size, rate, image, timecode, text, pixels };
constexpr std::size_t stepCount = 8;

// One input file.
struct Input {
  std::filesystem::path path;
  std::string name;   // its harmless name in the work folder
  std::size_t group;  // files of one group belong together
  std::optional<child::Probe> probe;
};

struct Job {
  Job(const quillonic::TranscodeCliArguments& settings, const child::PrivateFolder& folder);

  // The source's properties. The first call runs ffprobe, for all inputs side by side.
  const child::Media& source() { return media(0); }
  const child::Media& media(std::size_t input);
  double duration();   // of the whole output, in seconds
  child::Rate rate();  // of the output
  quillonic::TimecodeRate timecodeRate();
  bool hasFlag(std::string_view flag) const { return settings.hasArgumentFlag(flag); }
  // One ffmpeg run does everything; several inputs, and channels of their own, need its larger kind of graph.
  bool isJoined() const { return inputs.size() > 1 || settings.discreteAudio(); }

  // Adds words before the output.
  void add(const std::vector<std::string>& words) {
    outputWords.insert(outputWords.end(), words.begin(), words.end());
  }
  std::string& filter(Step step) { return picture[static_cast<std::size_t>(step)]; }

  // Names a setting that is not honoured, and why.
  void cannot(std::string_view flag, std::string_view why);

  const quillonic::TranscodeCliArguments& settings;
  const child::PrivateFolder& folder;
  std::vector<Input> inputs;
  const Container& container;
  const Encoder* encoder;  // null for a copy, and where there is no video
  bool hasVideo;
  bool hasAudio;
  bool copiesAudio;

  std::vector<std::string> inputWords;   // before each input
  std::vector<std::string> outputWords;  // before the output
  std::string sound;                     // filters of each audio track
  std::array<std::string, stepCount> picture;
  std::string metadata;                                // lines for ffmpeg's own form of it
  std::optional<quillonic::TimecodeComponents> start;  // of the timecode, when there is one
  std::vector<std::string> notHonoured;                // one sentence each
};

// A number for people.
std::string text(double number);

// Ends the tool.
[[noreturn]] void fail(quillonic::TranscodeExitStatus status, const std::string& sentence);
// Ends it because the settings ask for what cannot be.
[[noreturn]] void refuse(const std::string& sentence);

// What becomes of the settings before ffmpeg starts, and what may depend on the source.
void mapBeforeStart(Job& job);
void mapBySource(Job& job);

}  // namespace transcoder
