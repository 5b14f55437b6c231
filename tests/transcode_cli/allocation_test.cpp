// The main path without memory. Counts every `operator new` of this program, including the library's.

#include <quillonic/filesystem.hpp>
#include <quillonic/platform.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <span>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "recorded_log.hpp"
#include "temporary_folder.hpp"
#include "texts.hpp"

namespace {
constexpr auto unlimited = std::numeric_limits<std::int64_t>::max();
std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> releases = 0;
// How many more allocations succeed.
std::atomic<std::int64_t> allocationsLeft = unlimited;
}  // namespace

// Not inlined, or the compiler reports the pair of malloc and free as a mistake.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  if (--allocationsLeft < 0) return nullptr;
  ++allocations;
  return std::malloc(size > 0 ? size : 1);
}
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  if (memory) ++releases;
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  operator delete(memory);
}
[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  operator delete(memory);
}

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;

const auto words = split(
    "-vr|24|-vcodec|h264|-out|/a/path/that/fits/no/small/buffer|-unknown_and_long_enough|x|-in_0_0|"
    "/Volumes/CARD A/A001C002_220101.mov|-ac_omit_0|2|-tc_custom|1234567890:00:00:00|-tc_match|-wmt_text|"
    "a text that fits no small buffer",
    '|');

// Long enough for tables to grow and for sorting to need space.
const std::vector<std::string> manyWords = [] {
  std::vector<std::string> made;
  for (int i = 0; i < 150; ++i) {
    made.push_back((i % 5 == 0 ? "-unknown_" : "-in_0_") + std::to_string(i));
    made.push_back("/Volumes/CARD A/A001C002_" + std::to_string(i) + ".mov");
  }
  return made;
}();

const std::vector<std::int64_t> tracks{1, 2, 3};

// Results that nobody needs.
void drop(const auto&... /*results*/) {}

struct Operation {
  const char* name;
  // Whether it changes several options, so that a failure may leave some of them changed.
  bool isStepwise;
  void (*run)(Model& model);
};

const Operation operations[] = {
    {"parse", false, [](Model&) { Model(words, true); }},
    {"parse a long line", false, [](Model&) { Model(manyWords, true); }},
    {"parse and replace", false, [](Model& model) { model = Model(words); }},
    {"read a dictionary", false, [](Model& model) { Model::from(model.argumentLookup()); }},
    {"code", false, [](Model& model) { decode<Model>(encode(model)); }},
    {"apply a preset", false,
     [](Model& model) { model.apply(TranscodeCliPreset::vantiroCloud, ApplyLayer::aboveWhatIsSet); }},
    {"check", false, [](Model& model) { drop(model.problems()); }},
    {"write", false, [](Model& model) { drop(model.commandLineArguments(), model.cliString()); }},
    {"ask", false, [](Model& model) { drop(model.unknownFlags(), model.inputFileGroups()); }},
    {"ask for parts", false, [](Model& model) { drop(model.inputFiles(), model.watermarkDetail()); }},
    {"set any flag", false,
     [](Model& model) { model.setArgumentFlagValue(" -IN_1_0_and_so_on ", std::string(40, 'x')); }},
    {"change a path", false, [](Model& model) { model.setOutputFile(std::string(80, 'x')); }},
    {"add a number", false, [](Model& model) { model.setVideoFrameRate(1e22); }},
    {"warn of a number", false, [](Model& model) { model.setVideoFrameRate(-1.0); }},
    {"add a colour", false, [](Model& model) { model.setTimecodeBurnFontColor(Color::rgb(1e9, 1e9, 1e9)); }},
    {"drop frames", false, [](Model& model) { model.setTimecodeIsDropFrame(true); }},
    {"count from a date", false, [](Model& model) { model.setTimecodeSource(TimecodeSource::creationDate); }},
    {"leave tracks out", true, [](Model& model) { model.setIgnoredAudioTracks(tracks); }},
    {"number files", true,
     [](Model& model) {
       model.setInputFileGroups(InputFileGroups{{7, {std::string(40, 'a'), "b"}}});
     }},
    {"update", true,
     [](Model& model) {
       TranscodeDetailModifier change{{model.videoDetail(), model.watermarkDetail(), model.timecodeDetail()}};
       std::get<TranscodeVideoDetail>(change.details[0]).videoFrameRate = 1e22;
       std::get<TranscodeWatermarkDetail>(change.details[1]).text.watermarkTextBurnText =
           std::string(80, 'x');
       std::get<TranscodeTimecodeDetail>(change.details[2]).timecode = "0000000000000000001:00:00:00";
       change.apply(model);
     }},
    {"sanitize", false,
     [](Model&) {
       const auto form = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;
       const CLIArgumentSanitizer sanitizer({"-out", "-a_flag_that_fits_no_small_buffer"}, form);
       const auto pass = [](std::string_view, std::optional<std::string_view>) {};
       sanitizer.enumerateSanitizedCLIEntries(
           words, [&](std::string_view) { return form; }, pass, pass);
       drop(sanitizer.splitByValidity(words));
     }},
    {"analyse", false,
     [](Model&) {
       const auto read = MediaAnalysisCLIArguments::read(
           {"-pathToAnalyze", "/a/path/that/fits/no/small/buffer", "-workDirectory", "/w", "-resultsFilePath",
            "/r", "-snapshotLocation", "1e30", "2", "-maxImageWidth", "1920", "-parentPid", "1",
            "-no_flag_of_the_tool"});
       drop(read.basic->commandLineArguments(), read.image->orderedCLITexts());
     }},
};

// Each operation with memory for one more allocation, until it has enough.
TEST(Allocations, LeaveAUsableModelWhereTheyFail) {
  // What the library keeps after its first message is not a leak.
  { const RecordedLog first; }
  std::size_t failures = 0;
  for (const auto& operation : operations) {
    SCOPED_TRACE(operation.name);
    bool isDone = false;
    for (std::int64_t memory = 0; !isDone; ++memory) {
      const auto held = allocations - releases;
      {
        const RecordedLog log;
        Model model(words, true);
        const auto before = encode(model);
        allocationsLeft = memory;
        try {
          operation.run(model);
          isDone = true;
        } catch (const std::bad_alloc&) {
          ++failures;
        }
        allocationsLeft = unlimited;
        EXPECT_TRUE(isDone || operation.isStepwise || encode(model) == before) << memory;
        const auto written = model.commandLineArguments();
        EXPECT_EQ(Model(written, true).commandLineArguments(), written) << memory;
      }
      EXPECT_EQ(allocations - releases, held) << memory;
    }
  }
  EXPECT_GT(failures, 3 * std::size(operations));
}

using std::filesystem::path;

const std::pair<const char*, void (*)(const path& folder)> looks[] = {
    {"drives", [](const path& folder) { drop(FileManager().getUniqueDrives(std::span(&folder, 1))); }},
    {"attributes",
     [](const path& folder) {
       for (const auto* name : {"file", "link", "alias"}) drop(expandedAttributesOfItem(folder / name));
     }},
    {"walk",
     [](const path& folder) {
       enumerateLinkFileDereferencePairs(folder, [](const auto&, const auto&, bool&) {});
     }},
    {"link support", [](const path& folder) { fileSystemSupportsSymbolicLinks(folder / "new"); }},
    {"disk",
     [](const path& folder) {
       Mount mount;
       mount.deviceMajor = 7;
       drop(diskDescriptionOfVolume(folder), diskDescriptionOfMount(mount, folder / "sys"));
     }},
    {"removal",
     [](const path& folder) {
       // Other users would be asked for a password.
       if (geteuid() == 0) FileManager().removeItemWithElevatedPermissions(folder);
     }},
};

TEST(Allocations, LeaveNoDescriptorAndNoChildWhereTheyFail) {
  const TemporaryFolder folder;
  folder.link("link", folder.file("file"));
  folder.file("sys/dev/block/7:0/device/model");
  folder.file("sys/dev/block/7:0/slaves/part/ro");
  createAliasForFilePath(folder / "file", folder / "alias");
  std::filesystem::rename(folder / "file", folder.folder("inner") / "FILE");
  const auto openFiles = [] {
    return std::distance(begin(std::filesystem::directory_iterator("/proc/self/fd")), {});
  };
  const RecordedLog log;
  const auto before = openFiles();
  for (const auto& [name, look] : looks) {
    bool isDone = false;
    for (std::int64_t memory = 0; !isDone; ++memory) {
      allocationsLeft = memory;
      try {
        look(folder.path());
        isDone = true;
      } catch (const std::exception&) {
      }
      allocationsLeft = unlimited;
      EXPECT_EQ(openFiles(), before) << name << memory;
      EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << name << memory;
    }
  }
}

}  // namespace
}  // namespace quillonic
