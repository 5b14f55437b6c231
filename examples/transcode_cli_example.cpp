// A parent builds the command line of a review copy; the tool reads the same words back.
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <iostream>
#include <string>
#include <vector>

using namespace quillonic;

namespace {

std::vector<std::string> wordsOfReviewCopy() {
  // The preset's order is kept, so that the tool's log reads like the preset.
  TranscodeCliArguments settings(orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud), true);
  settings.setInputFiles({"/card/A001_C001.mov", "/card/A001_C002.mov"});
  settings.setOutputFile("/media/Review.mov");
  settings.setVideoDimensions(FrameSize{1280, 720});
  settings.setTimecodeSource(TimecodeSource::custom);
  settings.setTimecodeIsDropFrame(true);
  settings.setTimecode("01:00:00:00");  // its separator follows the switch
  settings.setTimecodeBurnFontColor(Color::rgb(0.5, 0.5, 0.5));
  return settings.launchArguments();
}

}  // namespace

int main() {
  auto words = wordsOfReviewCopy();
  words.insert(words.end(), {"-speed", "9"});  // a flag of a newer parent
  std::cout << shellQuoted(words) << '\n';

  // The tool's side: in main() the words come from ArgumentWords::fromMain(argc, argv).
  const TranscodeCliArguments settings(words);
  for (const auto& [flag, value] : settings.unknownFlagLookup()) std::cout << "unknown: " << flag << '\n';
  if (settings.videoFormat() == VAVAvcH264Codec) std::cout << "codec: H.264\n";
  if (const auto size = settings.videoDimensions()) std::cout << "lines: " << size->height << '\n';
  std::cout << "timecode: " << settings.timecode().value_or("none") << '\n';
  std::cout << "without video: " << (settings.noVideo() ? "yes" : "no") << '\n';
  settings.enumerateInputFileGroups([](std::span<const std::string_view> files, std::int64_t group) {
    for (const auto file : files) std::cout << "input of group " << group << ": " << file << '\n';
  });
}
