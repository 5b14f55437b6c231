#include <quillonic/filesystem.hpp>
#include <quillonic/platform/script_runner.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;
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
    source.remove_prefix(before.size());
    source.remove_suffix(after.size());
    const int status = std::system(std::string(source).c_str());
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

const std::vector<std::string> quotable{"plain.mov",
                                        "-rf",
                                        "--help",
                                        " ",
                                        "two  blanks; touch owned",
                                        "$(touch owned) `touch owned` $HOME *",
                                        "& touch owned &",
                                        "\xFF\xC3\xA4"};
const std::vector<std::string> unquotable{
    "it's.mov",    "x'; touch owned; '", "x\" & (do shell script \"touch owned",
    "back\\slash", "line\nbreak",        "\rtouch owned"};

// Every name is removed as a name, or refused; nothing else in the folder changes.
void tryHostileNames(const TemporaryFolder& folder, const std::vector<std::string>& names,
                     bool areRemovable) {
  std::filesystem::current_path(folder.path());
  folder.file("stays");
  for (const auto& name : names) {
    for (const auto& given : {name, (folder / name).native()}) {
      const RecordedLog log;
      folder.file(name);
      EXPECT_EQ(FileManager().removePathWithElevatedPermissions(given), areRemovable) << name;
      EXPECT_EQ(std::filesystem::remove(folder / name), !areRemovable) << name;
      const std::vector<std::string> refusal{"error: QLC_FME_RIWEP-Failed to elevate permissions to remove " +
                                             given};
      EXPECT_EQ(log.lines(), areRemovable ? std::vector<std::string>() : refusal);
      EXPECT_EQ(std::distance(begin(std::filesystem::directory_iterator(folder.path())), {}), 1) << name;
    }
  }
  std::filesystem::current_path("/");
}

TEST(ElevatedRemoval, RunsNothingButTheRemovalThroughAShell) {
  const TemporaryFolder folder;
  const auto runner = std::make_shared<ShellRunner>();
  const RunnerInUse inUse(runner);
  tryHostileNames(folder, quotable, true);
  const auto count = runner->sources.size();
  tryHostileNames(folder, unquotable, false);
  EXPECT_EQ(runner->sources.size(), count);
  EXPECT_EQ(runner->sources.front(), "do shell script \"/bin/rm '" + (folder / "plain.mov").native() +
                                         "';\" with administrator privileges");
}

TEST(ElevatedRemoval, RunsNothingButTheRemovalWithoutAShell) {
  const TemporaryFolder folder;
  const auto result = runPrivately([&] {
    tryHostileNames(folder, quotable, true);
    tryHostileNames(folder, unquotable, true);

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

// Puts programs of the test's own in the place of those that raise rights, and becomes a user without any.
void replaceLaunchers(const TemporaryFolder& folder, const std::string& pkexec, const std::string& sudo) {
  const auto layer = folder.folder("layer");
  ASSERT_EQ(mount("layer", layer.c_str(), "tmpfs", 0, "mode=755"), 0);
  folder.folder("layer/files");
  folder.folder("layer/work");
  const auto options =
      "lowerdir=/usr/bin,upperdir=" + (layer / "files").native() + ",workdir=" + (layer / "work").native();
  if (mount("overlay", "/usr/bin", "overlay", 0, options.c_str()) != 0) _exit(privateRunNotAllowed);
  const std::pair<path, std::string> programs[] = {{"/usr/bin/pkexec", pkexec}, {"/usr/bin/sudo", sudo}};
  for (const auto& [program, script] : programs) {
    std::filesystem::remove(program);
    if (script.empty()) continue;
    std::ofstream(program) << "#!/bin/sh\n" << script << '\n';
    std::filesystem::permissions(program, std::filesystem::perms(0755));
  }
  ASSERT_EQ(chown(folder.path().c_str(), 65534, 65534), 0);
  ASSERT_TRUE(setgid(65534) == 0 && setuid(65534) == 0);
}

TEST(ElevatedRemoval, RaisesTheRightsOfAnOrdinaryUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  constexpr auto removes = "shift $(($# - 3)); exec \"$@\"";
  constexpr auto says = "echo \"${0##*/} $*\"; exit ";
  struct Row {
    std::string pkexec;
    std::string sudo;
    // What the log holds for the file at FILE; nothing where the file is removed.
    std::string log;
  };
  const Row rows[] = {
      {removes, says + std::string("9"), ""},
      {"", removes, ""},
      {says + std::string("127"), removes, ""},
      {says + std::string("126"), removes,
       "error: QLC_FME_RIWEP-Failed to remove FILE with due to errors: key: exit status value: 126 "
       "key: output value: pkexec --disable-internal-agent /bin/rm -- FILE"},
      {says + std::string("127"), says + std::string("1"),
       "error: QLC_FME_RIWEP-Failed to remove FILE with due to errors: key: exit status value: 1 "
       "key: output value: sudo -n -- /bin/rm -- FILE"},
      {"", "kill -9 $$",
       "error: QLC_FME_RIWEP-Failed to remove FILE with due to errors: key: signal value: 9"},
      {"", "", "error: QLC_FME_RIWEP-Failed to elevate permissions to remove FILE"}};
  for (const auto& [pkexec, sudo, expected] : rows) {
    const TemporaryFolder folder;
    const auto file = folder.file("it's.mov").native();
    const auto result = runPrivately([&] {
      replaceLaunchers(folder, pkexec, sudo);
      const RecordedLog log;
      EXPECT_EQ(FileManager().removePathWithElevatedPermissions(file), expected.empty());
      auto line = log.lines().empty() ? std::string() : log.lines().front();
      for (auto at = line.find(file); at != std::string::npos; at = line.find(file)) {
        line.replace(at, file.size(), "FILE");
      }
      EXPECT_EQ(line, expected);
    });
    if (result == PrivateRun::notAllowed) GTEST_SKIP() << "needs an overlay in a namespace of its own";
    EXPECT_EQ(result, PrivateRun::passed);
    EXPECT_EQ(std::filesystem::exists(file), !expected.empty());
  }
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
