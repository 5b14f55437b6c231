// A child tool: reads the command line that a parent application built, prints what it understood, and does
// the work: it joins the input files into the output file, which shows progress without a codec.

#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

using namespace quillonic;

namespace {

constexpr int badUsage = 64;
constexpr int noInput = 66;
constexpr int cannotCreate = 73;

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

void printRow(std::string_view name, std::string_view value) {
  std::cout << "  " << std::left << std::setw(18) << name << printable(value) << '\n';
}

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
      std::cout << "Built on Quillonic and the C++ standard library.\n";
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

void printSettings(const TranscodeCliArguments& settings) {
  std::cout << "settings\n";
  for (const auto& [flag, value] : settings.flagValueLookup()) printRow(flag, value);
  settings.enumerateInputFileGroups([](std::span<const std::string_view> files, std::int64_t group) {
    std::cout << "input group " << group << '\n';
    for (const auto file : files) std::cout << "  " << printable(file) << '\n';
  });
}

void printColor(std::string_view name, const std::optional<Color>& color) {
  if (color) printRow(name, color->description());
}

// The settings by option.
void printBurnIns(const TranscodeCliArguments& settings) {
  if (settings.timecodeAddBurn()) {
    std::cout << "timecode burn-in\n";
    if (const auto source = settings.timecodeSource()) printRow("source", rawValue(*source));
    if (const auto start = settings.timecodeComponents()) printRow("start", start->timecodeString());
    printRow("counting", settings.timecodeIsDropFrame() ? "drop frame" : "non-drop");
    printColor("font", settings.timecodeBurnFontColor());
    printColor("box", settings.timecodeBurnBoxColor());
  }
  if (settings.watermarkTextAddBurn()) {
    std::cout << "text watermark\n";
    printRow("text", settings.watermarkTextBurnText().value_or(""));
    if (const auto anchor = settings.watermarkTextBurnAnchor()) printRow("anchor", *anchor);
    printColor("font", settings.watermarkTextBurnFontColor());
  }
}

// Writes the progress to the progress file and, after the prefix, to standard output.
class Progress {
 public:
  Progress(const TranscodeCliArguments& settings, std::uintmax_t total)
      : prefix_(settings.progressOutputPrefix().value_or("")), total_(total) {
    if (const auto path = settings.progressFile()) file_.open(*path, std::ios::trunc);
  }

  void advance(std::uintmax_t bytes) {
    done_ += bytes;
    const auto percent = total_ > 0 ? static_cast<int>(done_ * 100 / total_) : 100;
    if (percent / 10 == reported_ / 10 && percent != 100) return;
    reported_ = percent;
    std::cout << prefix_ << percent << '%' << std::endl;
    if (file_) file_ << percent << '%' << std::endl;
  }

 private:
  std::string prefix_;
  std::uintmax_t total_;
  std::uintmax_t done_ = 0;
  int reported_ = -10;
  std::ofstream file_;
};

void joinFiles(const TranscodeCliArguments& settings) {
  const auto inputs = settings.inputFilePaths();
  const auto output = settings.outputFile();
  if (inputs.empty() || !output)
    throw CLIExitCodeError(badUsage, "an input file and an output file are needed");
  std::error_code error;
  if (std::filesystem::exists(*output, error) && !settings.overwriteExisting()) {
    throw CLIExitCodeError(cannotCreate, "the output file exists: " + printable(output->native()));
  }

  std::uintmax_t total = 0;
  for (const auto& input : inputs) {
    total += std::filesystem::file_size(input, error);
    if (error) {
      throw CLIExitCodeError(noInput, "cannot read " + printable(input.native()) + ": " + error.message());
    }
  }

  std::ofstream out(*output, std::ios::binary | std::ios::trunc);
  Progress progress(settings, total);
  progress.advance(0);
  std::vector<char> block(65536);
  for (const auto& input : inputs) {
    std::ifstream in(input, std::ios::binary);
    while (in.read(block.data(), static_cast<std::streamsize>(block.size())) || in.gcount() > 0) {
      out.write(block.data(), in.gcount());
      progress.advance(static_cast<std::uintmax_t>(in.gcount()));
    }
  }
  if (!out.flush()) throw CLIExitCodeError(cannotCreate, "cannot write " + printable(output->native()));
}

void run(ArgumentWords words) {
  const auto [parent, rest] = CLICustodialOptions::read(words);
  if (parent) std::cout << "parent " << shellQuoted(parent->launchArguments()) << '\n';
  const TranscodeCliArguments settings(rest, true);

  std::string refused;
  for (const auto& problem : settings.problems()) refused.append("\n  ").append(problem.description());
  if (!refused.empty()) throw CLIExitCodeError(badUsage, "cannot use these settings" + refused);
  for (const auto& command : VAVTranscodeCliCommand::allCases()) {
    if (settings.hasArgumentFlag(command)) return print(*command.listedCase());
  }
  printSettings(settings);
  printBurnIns(settings);
  joinFiles(settings);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    run(ArgumentWords::fromMain(argc, argv));
    return 0;
  } catch (const CLIExitCodeError& error) {
    std::cout.flush();
    std::cerr << "transcoder_tool: " << error.what() << '\n';
    return error.exitStatus();
  }
}
