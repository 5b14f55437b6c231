#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <quillonic/filesystem.hpp>
#include <quillonic/platform/script_runner.hpp>

#include "filesystem/private_process.hpp"
#include "filesystem/temporary_folder.hpp"
#include "recorded_log.hpp"

namespace quillonic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Does what a scripting service does with a script's text: hands the command between the double quotes to a
// shell.
class ShellRunner final : public ScriptRunner {
 public:
  ScriptForm form() const noexcept override { return ScriptForm::text; }

  std::optional<TextDictionary> runText(std::string_view source) override {
    sources.emplace_back(source);
    if (answer) return *answer;
    constexpr std::string_view before = "do shell script \"";
    constexpr std::string_view after = "\" with administrator privileges";
    if (!source.starts_with(before) || !source.ends_with(after)) return std::nullopt;
    source.remove_prefix(before.size());
    source.remove_suffix(after.size());
    if (source.find_first_of("\"\\") != std::string_view::npos) return std::nullopt;
    const int status = std::system((std::string(source) + " 2>/dev/null").c_str());
    return status == 0 ? TextDictionary() : TextDictionary{{"status", std::to_string(status)}};
  }

  std::vector<std::string> sources;
  std::optional<std::optional<TextDictionary>> answer;
};

class RunnerInUse {
 public:
  explicit RunnerInUse(std::shared_ptr<ScriptRunner> runner) {
    ScriptRunner::setDefaultRunner(std::move(runner));
  }
  RunnerInUse(const RunnerInUse&) = delete;
  RunnerInUse& operator=(const RunnerInUse&) = delete;
  ~RunnerInUse() { ScriptRunner::setDefaultRunner(nullptr); }
};

struct HostileName {
  std::string name;
  bool canBeQuoted;
};
const HostileName hostileNames[] = {
    {"plain.mov", true},
    {"-rf", true},
    {"--help", true},
    {" ", true},
    {"two  blanks; touch owned", true},
    {"$(touch owned) `touch owned` $HOME *", true},
    {"& touch owned &", true},
    {"\xFF\xC3\xA4", true},
    {"%s%n", true},
    {"it's.mov", false},
    {"x'; touch owned; '", false},
    {"x\" & (do shell script \"touch owned", false},
    {"back\\slash", false},
    {"line\nbreak", false},
    {"\rtouch owned", false},
};

// Every name is removed as a name, or refused; nothing else in the folder changes.
void removeHostileNames(const TemporaryFolder& folder, bool quotes) {
  std::filesystem::current_path(folder.path());
  folder.file("stays");
  for (const auto& [name, canBeQuoted] : hostileNames) {
    for (const auto& path : {name, (folder / name).native()}) {
      const RecordedLog log;
      folder.file(name);
      const bool isRemovable = canBeQuoted || !quotes;
      EXPECT_EQ(FileManager().removePathWithElevatedPermissions(path), isRemovable) << name;
      EXPECT_EQ(std::filesystem::exists(folder / name), !isRemovable) << name;
      if (isRemovable) {
        EXPECT_THAT(log.lines(), IsEmpty());
      } else {
        EXPECT_THAT(log.lines(),
                    ElementsAre("error: QLC_FME_RIWEP-Failed to elevate permissions to remove " + path));
      }
      std::filesystem::remove(folder / name);
      EXPECT_EQ(std::distance(begin(std::filesystem::directory_iterator(folder.path())), {}), 1) << name;
    }
  }
  std::filesystem::current_path("/");
}

TEST(ElevatedRemoval, RunsNothingButTheRemovalThroughAShell) {
  const TemporaryFolder folder;
  const auto runner = std::make_shared<ShellRunner>();
  const RunnerInUse inUse(runner);
  removeHostileNames(folder, true);
  EXPECT_EQ(runner->sources.front(), "do shell script \"/bin/rm '" + (folder / "plain.mov").native() +
                                         "';\" with administrator privileges");
  for (const auto& source : runner->sources) EXPECT_EQ(source.find('\0'), std::string::npos);
}

TEST(ElevatedRemoval, RunsNothingButTheRemovalWithoutAShell) {
  const TemporaryFolder folder;
  const auto result = runPrivately([&] {
    removeHostileNames(folder, false);

    const FileManager files;
    const auto kept = folder.file("kept");
    std::filesystem::create_symlink(kept, folder / "link");
    std::filesystem::create_symlink("/nowhere", folder / "dangling");
    std::filesystem::create_symlink(folder.folder("inner"), folder / "to folder");
    EXPECT_TRUE(files.removeItemWithElevatedPermissions(folder / "link"));
    EXPECT_TRUE(files.removeItemWithElevatedPermissions(folder / "dangling"));
    EXPECT_TRUE(files.removeItemWithElevatedPermissions(folder / "to folder/"));
    EXPECT_TRUE(std::filesystem::exists(kept) && std::filesystem::exists(folder / "inner"));
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "dangling"));

    const RecordedLog log;
    EXPECT_FALSE(files.removeItemWithElevatedPermissions(folder / "inner/"));
    EXPECT_TRUE(std::filesystem::exists(folder / "inner"));
    const auto shown = (folder / "inner").native();
    EXPECT_THAT(log.lines(),
                ElementsAre(testing::MatchesRegex("error: QLC_FME_RIWEP-Failed to remove " + shown +
                                                  "/ with due to errors: key: exit status value: 1 "
                                                  "key: output value: .*" +
                                                  shown + ".*[^\n]")));
  });
  if (result == PrivateRun::notAllowed) GTEST_SKIP() << "needs a namespace of its own";
  EXPECT_EQ(result, PrivateRun::passed);
}

TEST(ElevatedRemoval, ReportsWhatTheRunnerSays) {
  const TemporaryFolder folder;
  const auto runner = std::make_shared<ShellRunner>();
  const RunnerInUse inUse(runner);
  const RecordedLog log;
  const FileManager files;
  EXPECT_TRUE(files.removeItemWithElevatedPermissions(folder / "missing"));
  EXPECT_TRUE(files.removePathWithElevatedPermissions(""));
  EXPECT_THAT(runner->sources, IsEmpty());

  const auto file = folder.file("file").native();
  runner->answer.emplace();
  EXPECT_FALSE(files.removePathWithElevatedPermissions(file));
  runner->answer = TextDictionary{{"b", "2"}, {"a", "one two"}};
  EXPECT_FALSE(files.removePathWithElevatedPermissions(file));
  EXPECT_THAT(log.lines(), ElementsAre("error: QLC_FME_RIWEP-Failed to elevate permissions to remove " + file,
                                       "error: QLC_FME_RIWEP-Failed to remove " + file +
                                           " with due to errors: key: a value: one two key: b value: 2"));
  // No errors, and yet the file is there.
  runner->answer = TextDictionary{};
  EXPECT_FALSE(files.removePathWithElevatedPermissions(file));
  EXPECT_EQ(log.lines().size(), 2U);
}

}  // namespace
}  // namespace quillonic
