// A transcoder: reads the command line that a parent application built, and does the work with one run of
// ffmpeg. What each flag becomes is a table, transcoder/mapping.cpp.
//
//     transcoder_tool -in /media/a.mov -vcodec h264 -dims 960x540 -tc_burn -out /media/review.mov
//
// All files of all groups make one programme, in order; with several groups each is a chapter. The output
// appears when it is complete. The tool ends with a TranscodeExitStatus: 69 where ffmpeg is missing.

#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "child.hpp"
#include "run.hpp"

using namespace quillonic;

namespace {

template <class Value> void printValues() {
  for (const auto& value : allCases<Value>()) std::cout << value << '\n';
}

constexpr int helpColumn = 29;

template <class Flag> void printFlags(std::string_view family) {
  std::cout << family << '\n';
  for (const auto& flag : allCases<Flag>()) {
    std::cout << "  " << std::left << std::setw(helpColumn)
              << std::string(flag).append(" ").append(rawValue(flag.valueKind())) << flag.meaning() << '\n';
    if (flag.fixedValues().empty()) continue;
    std::cout << std::setw(helpColumn + 1) << "";
    for (const auto value : flag.fixedValues()) std::cout << ' ' << value;
    std::cout << '\n';
  }
}

void printHelp() {
  std::cout << "usage: transcoder_tool -in FILE [-in_0_1 FILE]... -out FILE [FLAG [VALUE]]...\n";
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
    std::cout << presetCliValue(preset) << " (" << description(preset) << ")\n";
  }
}

using Command = CaseOf<VAVTranscodeCliCommand>;

// The compiler warns when the vocabulary has another command.
void print(Command command) {
  switch (command) {
    case Command::cliHelpFlag:
      return printHelp();
    case Command::cliCodecsFlag:
      return printValues<VAVTranscodeArgumentVideoCodecValue>();
    case Command::cliFormatsFlag:
      return printValues<VAVTranscodeArgumentFileFormatValue>();
    case Command::cliVersionFlag:
      std::cout << "transcoder_tool " TOOL_VERSION "\n";
      return;
    case Command::cliAcknowledgementFlag:
      std::cout << "Built on Quillonic, the C++ standard library and JSON for Modern C++. Runs ffmpeg.\n";
      return;
    case Command::cliPresetsFlag:
      return printPresets();
    case Command::cliAspectRatioScalingsFlag:
      return printValues<VAVTranscodeArgumentAspectRatioValue>();
    case Command::cliColorSpacesFlag:
      return printValues<VAVTranscodeArgumentColorSpaceValue>();
    case Command::cliAudioChannelLayoutsFlag:
      return printValues<VAVTranscodeArgumentAudioChannelLayoutValue>();
    case Command::cliCropAnchorsFlag:
    case Command::cliTimecodeBurnAnchorsFlag:
      return printValues<VAVTranscodeArgumentOverlayAnchorValue>();
    case Command::cliGpuPlatformsFlag:
      for (const auto platform : VAVGpuPlatforms) std::cout << platform << '\n';
      return;
  }
}

// Ends the tool with a sentence for each setting that it cannot use. "copy" is no codec, but it can be used.
void check(const TranscodeCliArguments& settings) {
  std::string refused;
  for (const auto& problem : settings.problems()) {
    const bool isCopy = problem.value == VAVCopySourceValue &&
                        (problem.flag == VAVVideoFormatFlag || problem.flag == VAVAudioFormatFlag);
    if (!isCopy) refused.append("\n  ").append(problem.description());
  }
  if (!refused.empty()) transcoder::refuse("cannot use these settings" + refused);
}

// Writes progress lines to standard output, after the prefix, and to the progress file.
class ProgressLines {
 public:
  explicit ProgressLines(const TranscodeCliArguments& settings)
      : prefix_(settings.progressOutputPrefix().value_or("")) {
    const auto path = settings.progressFile();
    if (path) file_.open(*path, std::ios::trunc);
    if (path && !file_)
      transcoder::fail(TranscodeExitStatus::cannotCreate, "-progress_file: cannot write " + path->native());
  }

  void write(const ProgressLine& progress) {
    std::cout << progress.text(prefix_) << std::endl;
    if (file_.is_open()) file_ << progress.text() << std::endl;
  }

 private:
  std::string prefix_;
  std::ofstream file_;
};

void run(ArgumentWords words) {
  const auto [parent, rest] = CLICustodialOptions::read(words);
  child::watch(parent ? parent->parentProcessId : 0);
  TranscodeCliArguments settings(rest, true);
  check(settings);
  for (const auto& command : VAVTranscodeCliCommand::allCases()) {
    if (settings.hasArgumentFlag(command)) return print(*command.listedCase());
  }
  if (const auto name = settings.preset())
    settings.apply(*presetWithCliValue(*name), ApplyLayer::belowWhatIsSet);
  if (settings.inputFilePaths().empty() || !settings.outputFile())
    transcoder::refuse("an input file and an output file are needed: -in FILE -out FILE; -h lists all flags");

  const auto work = settings.workDirectory().value_or(std::filesystem::temp_directory_path());
  if (!std::filesystem::is_directory(work))
    transcoder::fail(TranscodeExitStatus::cannotCreate, "-work_dir: " + work.native() + " is no folder");
  const child::PrivateFolder folder(work);
  transcoder::Job job(settings, folder);
  ProgressLines lines(settings);
  transcoder::run(job, [&](const ProgressLine& progress) { lines.write(progress); });
}

}  // namespace

int main(int argc, char** argv) {
  const auto end = [](const std::string& sentence, int status) {
    std::cout.flush();
    std::cerr << "transcoder_tool: " << sentence << '\n';
    return status;
  };
  try {
    run(ArgumentWords::fromMain(argc, argv));
    return 0;
  } catch (const CLIExitCodeError& error) {
    return end(error.what(), error.exitStatus());
  } catch (const child::MissingProgram& program) {
    return end(std::string(program.what()) + " is missing: install the package ffmpeg",
               rawValue(TranscodeExitStatus::unavailable));
  } catch (const child::Interrupted& interrupted) {
    child::endBy(interrupted.signal);
  } catch (const std::exception& error) {
    return end(error.what(), rawValue(TranscodeExitStatus::failure));
  }
}
