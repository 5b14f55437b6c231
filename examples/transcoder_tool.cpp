// A transcoder: reads the command line that a parent application built, and does the work with one run of
// ffmpeg. What each flag becomes is a table, transcoder/mapping.cpp.
//
//     transcoder_tool -in /media/a.mov -vcodec h264 -dims 960x540 -tc_burn -out /media/review.mov
//
// All files of all groups make one programme, in order; with several groups each is a chapter. The output
// appears when it is complete. Exit statuses: 64 for settings that cannot be, 66 for an unreadable input, 69
// where ffmpeg is missing, 70 when ffmpeg fails, 73 for an output that cannot be written.

#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <array>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "child.hpp"
#include "run.hpp"

using namespace quillonic;

namespace {

constexpr int badUsage = 64;
constexpr int noFfmpeg = 69;

// A text as one line: a file name may hold line breaks and other control characters.
std::string printable(std::string_view text) {
  std::ostringstream line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\') {
      line << "\\\\";
    } else if (c == '\n') {
      line << "\\n";
    } else if (byte < 0x20 || byte == 0x7F) {
      line << "\\x" << std::hex << std::setw(2) << std::setfill('0') << static_cast<int>(byte) << std::dec;
    } else {
      line << c;
    }
  }
  return line.str();
}

template <class Value> void printValues() {
  for (const auto& value : allCases<Value>()) std::cout << value.rawValue() << '\n';
}

constexpr int helpColumn = 29;

template <class Flag> void printFlags(std::string_view family) {
  std::cout << family << '\n';
  for (const auto& flag : allCases<Flag>()) {
    std::cout << "  " << std::left << std::setw(helpColumn)
              << std::string(flag.cliFlag()).append(" ").append(rawValue(flag.valueKind())) << flag.meaning()
              << '\n';
  }
}

void printHelp() {
  printFlags<VAVTranscodeCliCommand>("commands");
  printFlags<VAVTranscodeArgumentFlag>("files");
  printFlags<VAVTranscodeVideoArgumentFlag>("video");
  printFlags<VAVTranscodeAudioArgumentFlag>("audio");
  printFlags<VAVTranscodeTimecodeArgumentFlag>("timecode");
  printFlags<VAVTranscodeWatermarkFileArgumentFlag>("image watermark");
  printFlags<VAVTranscodeWatermarkTextArgumentFlag>("text watermark");
  printFlags<VAVTranscodeArriLookArgumentFlag>("look");
}

void printPresets() {
  for (const auto preset : allCases<TranscodeCliPreset>()) {
    std::cout << presetCliValue(preset).rawValue() << " (" << description(preset) << ")\n";
  }
}

struct Command {
  const VAVTranscodeCliCommand& flag;
  void (*print)();
};

constexpr auto commands = std::to_array<Command>({
    {VAVCliHelpFlag, printHelp},
    {VAVCliCodecsFlag, printValues<VAVTranscodeArgumentVideoCodecValue>},
    {VAVCliFormatsFlag, printValues<VAVTranscodeArgumentFileFormatValue>},
    {VAVCliVersionFlag, [] { std::cout << "transcoder_tool " TOOL_VERSION "\n"; }},
    {VAVCliAcknowledgementFlag, [] { std::cout << "Built on Quillonic and the C++ standard library.\n"; }},
    {VAVCliPresetsFlag, printPresets},
    {VAVCliAspectRatioScalingsFlag, printValues<VAVTranscodeArgumentAspectRatioValue>},
    {VAVCliCropAnchorsFlag, printValues<VAVTranscodeArgumentOverlayAnchorValue>},
    {VAVCliColorSpacesFlag, printValues<VAVTranscodeArgumentColorSpaceValue>},
    {VAVCliAudioChannelLayoutsFlag, printValues<VAVTranscodeArgumentAudioChannelLayoutValue>},
    {VAVCliTimecodeBurnAnchorsFlag, printValues<VAVTranscodeArgumentOverlayAnchorValue>},
    {VAVCliGpuPlatformsFlag,
     [] {
       for (const auto platform : VAVGpuPlatforms) std::cout << platform << '\n';
     }},
});
static_assert(commands.size() == VAVTranscodeCliCommand::allCases().size(), "every command is handled");

// Splits off the flags that a parent adds for every child, which the transcoder's model does not know.
std::vector<std::string_view> withoutCustodialFlags(ArgumentWords words, pid_t& parent) {
  constexpr auto form = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;
  const CLIArgumentSanitizer sanitizer(sanitizeAllCLIFlags<CLICustodialFlag>(form), form);
  auto [custodial, rest] = sanitizer.splitByValidity(words);
  sanitizer.enumerateSanitizedCLIEntries(
      custodial, [=](std::string_view) { return form; },
      [&](std::string_view flag, std::optional<std::string_view> value) {
        if (flag == form.sanitize(cliFlag(CLICustodialFlag::parentPid)))
          parent = std::atoi(std::string(value.value_or("")).c_str());
      },
      [](std::string_view, std::optional<std::string_view>) {});
  return std::move(rest);
}

// The settings, on top of those of a preset.
TranscodeCliArguments withPreset(TranscodeCliArguments settings) {
  for (const auto preset : allCases<TranscodeCliPreset>()) {
    if (settings.preset() != presetCliValue(preset)) continue;
    auto all = presetArguments(preset);
    for (const auto& [flag, value] : settings.flagValueLookup()) all.insert_or_assign(flag, value);
    return TranscodeCliArguments::fromArgumentLookup(all);
  }
  return settings;
}

// Writes progress lines to standard output, after the prefix, and to the progress file.
class ProgressLines {
 public:
  explicit ProgressLines(const TranscodeCliArguments& settings)
      : prefix_(settings.progressOutputPrefix().value_or("")) {
    if (const auto path = settings.progressFile()) file_.open(*path, std::ios::trunc);
  }

  void write(const transcoder::Progress& progress) {
    const auto line = std::to_string(static_cast<int>(progress.fraction * 100)) + "%";
    std::cout << prefix_ << line << std::endl;
    if (file_.is_open()) file_ << line << std::endl;
  }

 private:
  std::string prefix_;
  std::ofstream file_;
};

void run(ArgumentWords words) {
  pid_t parent = 0;
  const auto rest = withoutCustodialFlags(words, parent);
  child::watch(parent);
  const auto settings = withPreset(TranscodeCliArguments(rest, true));

  if (const auto unknown = settings.unknownFlags()) {
    std::string message = "unknown flags:";
    for (const auto& flag : *unknown) message.append(" ").append(flag);
    throw CLIExitCodeError(badUsage, message);
  }
  for (const auto& [flag, print] : commands) {
    if (settings.hasArgumentFlag(flag)) return print();
  }
  if (!settings.outputFile()) transcoder::refuse("an input file and an output file are needed");

  const child::PrivateFolder folder(
      settings.workDirectory().value_or(std::filesystem::temp_directory_path()));
  transcoder::Job job(settings, folder);
  ProgressLines lines(settings);
  transcoder::run(job, [&](const transcoder::Progress& progress) { lines.write(progress); });
}

}  // namespace

int main(int argc, char** argv) {
  const auto say = [](std::string_view sentence) {
    std::cout.flush();
    std::cerr << "transcoder_tool: " << printable(sentence) << '\n';
  };
  try {
    run(ArgumentWords::fromMain(argc, argv));
    return 0;
  } catch (const CLIExitCodeError& error) {
    say(error.what());
    return error.exitStatus();
  } catch (const child::MissingProgram& program) {
    say(std::string(program.what()) + " is missing: install the package ffmpeg");
    return noFfmpeg;
  } catch (const child::Interrupted& interrupted) {
    child::endBy(interrupted.signal);
  } catch (const std::exception& error) {
    say(error.what());
    return 1;
  }
}
