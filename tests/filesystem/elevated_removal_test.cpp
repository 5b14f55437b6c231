#include <quillonic/filesystem.hpp>
#include <quillonic/platform/script_runner.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>

#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

// Runs a script's text as a scripting service does: passes the command between the double quotes to a shell.
class ShellRunner final : public ScriptRunner {
 public:
  ScriptForm form() const noexcept override { return ScriptForm::text; }

  std::optional<TextDictionary> runText(std::string_view source) override {
    sources.emplace_back(source);
    if (fault) throw std::runtime_error(fault);
    if (isCancelled) pthread_testcancel();
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
  const char* fault = nullptr;
  bool isCancelled = false;
};

const auto quotable = split(
    "plain.mov|-rf|--help| |two  blanks; touch owned|$(touch owned) `touch owned` $HOME *|& touch owned "
    "&|\xFF\xC3\xA4",
    '|');
const auto unquotable = split(
    "it's.mov|x'; touch owned; '|x\" & (do shell script \"touch owned|back\\slash|line\nbreak|\rtouch owned",
    '|');
constexpr auto refused = "error: QLC_FME_RIWEP-Failed to elevate permissions to remove FILE\n";
constexpr auto failed = "error: QLC_FME_RIWEP-Failed to remove FILE with due to errors: ";

// Tries to remove a file; returns what was logged, with FILE in place of its path.
std::string logOfRemoving(const path& file, bool isRemoved) {
  const RecordedLog log;
  EXPECT_EQ(FileManager().removePathWithElevatedPermissions(file.native()), isRemoved) << file;
  auto text = log.text();
  for (auto at = text.find(file); at != text.npos; at = text.find(file))
    text.replace(at, file.native().size(), "FILE");
  return text;
}

// Every name is removed as a name, or rejected; nothing else in the folder changes.
void tryHostileNames(const TemporaryFolder& folder, const std::vector<std::string>& names,
                     bool areRemovable) {
  std::filesystem::current_path(folder.path());
  folder.file("stays");
  for (const auto& name : names) {
    for (const auto& given : {path(name), folder / name}) {
      folder.file(name);
      EXPECT_EQ(logOfRemoving(given, areRemovable), areRemovable ? "" : refused);
      EXPECT_EQ(std::filesystem::remove(folder / name), !areRemovable) << name;
      EXPECT_EQ(std::distance(begin(std::filesystem::directory_iterator(folder.path())), {}), 1) << name;
    }
  }
  std::filesystem::current_path("/");
}

class ElevatedRemovalByText : public testing::Test {
 protected:
  ElevatedRemovalByText() { ScriptRunner::setDefaultRunner(runner_); }
  ~ElevatedRemovalByText() override { ScriptRunner::setDefaultRunner(nullptr); }

  const TemporaryFolder folder_;
  const std::shared_ptr<ShellRunner> runner_ = std::make_shared<ShellRunner>();
};

TEST_F(ElevatedRemovalByText, RunsNothingButTheRemoval) {
  tryHostileNames(folder_, quotable, true);
  const auto count = runner_->sources.size();
  tryHostileNames(folder_, unquotable, false);
  EXPECT_EQ(runner_->sources.size(), count);
  EXPECT_EQ(runner_->sources.front(), "do shell script \"/bin/rm '" + (folder_ / "plain.mov").native() +
                                          "';\" with administrator privileges");
}

TEST_F(ElevatedRemovalByText, ReportsWhatTheRunnerSays) {
  EXPECT_EQ(logOfRemoving(folder_ / "missing", true), "");
  EXPECT_TRUE(FileManager().removePathWithElevatedPermissions(""));
  EXPECT_TRUE(runner_->sources.empty());

  const auto file = folder_.file("file");
  runner_->answer.emplace();
  EXPECT_EQ(logOfRemoving(file, false), refused);
  runner_->answer = TextDictionary{{"b", "2"}, {"a", "one two"}};
  EXPECT_EQ(logOfRemoving(file, false), failed + std::string("key: a value: one two key: b value: 2\n"));
  runner_->answer = TextDictionary{};
  EXPECT_EQ(logOfRemoving(file, false),
            "error: QLC_FME_RIWEP-Still there after its removal was reported: FILE\n");
  runner_->fault = "gone";
  EXPECT_EQ(logOfRemoving(file, false), failed + std::string("key: exception value: gone\n"));
}

TEST_F(ElevatedRemovalByText, LetsItsThreadBeCancelled) {
  runner_->isCancelled = true;
  const auto file = folder_.file("file");
  std::thread thread([&] {
    pthread_cancel(pthread_self());
    FileManager().removeItemWithElevatedPermissions(file);
  });
  thread.join();
  EXPECT_EQ(runner_->sources.size(), 1U);
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST(ElevatedRemoval, RunsNothingButTheRemovalWithoutAShell) {
  const TemporaryFolder folder;
  runPrivately([&] {
    tryHostileNames(folder, quotable, true);
    tryHostileNames(folder, unquotable, true);

    const auto kept = folder.file("kept");
    const auto inner = folder.folder("inner");
    folder.link("to folder", inner);
    for (const auto& link :
         {folder.link("link", kept), folder.link("dangling", "/nowhere"), folder / "to folder/"}) {
      EXPECT_TRUE(FileManager().removeItemWithElevatedPermissions(link)) << link;
    }
    EXPECT_TRUE(std::filesystem::exists(kept) && std::filesystem::exists(inner));
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "dangling"));
    // The program quotes a name of odd bytes in its own way.
    EXPECT_THAT(
        logOfRemoving(inner, false),
        testing::MatchesRegex(
            failed + std::string("key: exit status value: 1 key: output value: .*(FILE|inner).*[^\n]\n")));
    EXPECT_TRUE(std::filesystem::exists(inner));
  });
}

// Replaces the programs that raise rights by the test's own, and becomes a user without rights.
void replaceLaunchers(const TemporaryFolder& folder, const std::string& pkexec, const std::string& sudo) {
  const auto layer = folder.folder("layer");
  mountAt(layer, "layer", "tmpfs", 0, "mode=755");
  mountAt("/usr/bin", "overlay", "overlay", 0, overlayOptions("/usr/bin", layer));
  for (const auto& [program, script] : {std::pair("/usr/bin/pkexec", pkexec), {"/usr/bin/sudo", sudo}}) {
    std::filesystem::remove(program);
    if (script.empty()) continue;
    folder.file(program, "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(program, std::filesystem::perms(0755));
  }
  ASSERT_EQ(chown(folder.path().c_str(), 65534, 65534), 0);
  becomeNobody();
}

TEST(ElevatedRemoval, RaisesTheRightsOfAnOrdinaryUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  const std::string removes = "shift $(($# - 3)); exec \"$@\"";
  const std::string says = "echo \"${0##*/} $*\"; exit ";
  const std::string status = failed + std::string("key: exit status value: ");
  // What the two programs do, and what is logged; nothing where the file is removed.
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {removes, says + "9", ""},
      {"", removes, ""},
      {says + "127", removes, ""},
      {says + "126", removes,
       status + "126 key: output value: pkexec --disable-internal-agent /bin/rm -- FILE\n"},
      {says + "127", says + "1", status + "1 key: output value: sudo -n -- /bin/rm -- FILE\n"},
      {"", "kill -9 $$", failed + std::string("key: signal value: 9\n")},
      {"", "", refused}};
  for (const auto& [pkexec, sudo, log] : rows) {
    const TemporaryFolder folder;
    const auto file = folder.file("it's.mov");
    runPrivately([&, &pkexec = pkexec, &sudo = sudo, &log = log] {
      replaceLaunchers(folder, pkexec, sudo);
      EXPECT_EQ(logOfRemoving(file, log.empty()), log);
    });
    if (testing::Test::IsSkipped()) return;
    EXPECT_EQ(std::filesystem::exists(file), !log.empty());
  }
}

}  // namespace
}  // namespace quillonic
