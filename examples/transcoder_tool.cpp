// A child tool: reads the command line that a parent application built, prints what it understood, and does
// the work: it joins the input files into the output file, which shows progress without a codec.

#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <array>
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

// Removes the flags that a parent adds for every child, which the transcoder's model does not know.
std::vector<std::string_view> withoutCustodialFlags(ArgumentWords words) {
  constexpr auto form = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;
  const CLIArgumentSanitizer sanitizer(sanitizeAllCLIFlags<CLICustodialFlag>(form), form);
  auto [custodial, rest] = sanitizer.splitByValidity(words);
  if (!custodial.empty()) std::cout << "parent\n";
  sanitizer.enumerateSanitizedCLIEntries(
      custodial, [=](std::string_view) { return form; },
      [](std::string_view flag, std::optional<std::string_view> value) {
        printRow(flag, value.value_or(""));
      },
      [](std::string_view, std::optional<std::string_view>) {});
  return std::move(rest);
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
    if (const auto start = TimecodeComponents::fromTimecode(settings.timecode().value_or(""))) {
      printRow("start", start->timecodeString());
    }
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
      : prefix_(settings.argumentFlagValue(VAVProgressOutputPrefixFlag).value_or("")), total_(total) {
    if (const auto path = settings.argumentFlagValue(VAVProgressFileFlag)) {
      file_.open(std::filesystem::path(*path), std::ios::trunc);
    }
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
  const auto inputs = settings.inputFiles();
  const auto output = settings.argumentFlagValue(VAVOutputFileFlag);
  if (!inputs || !output) throw CLIExitCodeError(badUsage, "an input file and an output file are needed");
  const std::filesystem::path target(*output);
  std::error_code error;
  if (std::filesystem::exists(target, error) && !settings.hasArgumentFlag(VAVOverwriteExistingFlag)) {
    throw CLIExitCodeError(cannotCreate, "the output file exists: " + printable(*output));
  }

  std::uintmax_t total = 0;
  for (const auto& input : *inputs) {
    total += std::filesystem::file_size(input, error);
    if (error) throw CLIExitCodeError(noInput, "cannot read " + printable(input) + ": " + error.message());
  }

  std::ofstream out(target, std::ios::binary | std::ios::trunc);
  Progress progress(settings, total);
  progress.advance(0);
  std::vector<char> block(65536);
  for (const auto& input : *inputs) {
    std::ifstream in(std::filesystem::path(input), std::ios::binary);
    while (in.read(block.data(), static_cast<std::streamsize>(block.size())) || in.gcount() > 0) {
      out.write(block.data(), in.gcount());
      progress.advance(static_cast<std::uintmax_t>(in.gcount()));
    }
  }
  if (!out.flush()) throw CLIExitCodeError(cannotCreate, "cannot write " + printable(*output));
}

void run(ArgumentWords words) {
  const auto rest = withoutCustodialFlags(words);
  const TranscodeCliArguments settings(rest, true);

  if (const auto unknown = settings.unknownFlags()) {
    std::string message = "unknown flags:";
    for (const auto& flag : *unknown) message.append(" ").append(printable(flag));
    throw CLIExitCodeError(badUsage, message);
  }
  for (const auto& [flag, print] : commands) {
    if (settings.hasArgumentFlag(flag)) return print();
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
