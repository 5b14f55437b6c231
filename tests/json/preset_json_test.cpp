#include <quillonic/preset_json.hpp>
#include <quillonic/transcode_cli.hpp>

#include <cerrno>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <system_error>

#include "error_of.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

// Each flag of the vocabulary and some that are not in it, set or removed by chance.
TranscodeOptionChanges randomChanges(std::mt19937& random, bool withRemovals) {
  const std::string_view texts[] = {"", "1", "h264", "960x540", "01:00:00;00", "/L \xff", "{}\n\""};
  TranscodeOptionChanges changes;
  const auto change = [&](std::string_view flag) {
    if (random() % 4 == 0) changes.set(flag, texts[random() % std::size(texts)]);
    if (withRemovals && random() % 8 == 0) changes.remove(flag);
  };
  for (const auto family : detail::flagRows) {
    for (const auto& row : family) change(row.text);
  }
  for (const auto* flag : {"-in_0_0", "-ac_omit_0", "-ac_omit_1", "-tc_burn_later"}) change(flag);
  return changes;
}

bool isOfJob(const std::string& flag) {
  return flag.starts_with("-in") || flag == "-out" || flag.starts_with("-progress_") ||
         !VAVTranscodeCliCommand::fromRawValue(flag)->meaning().empty();
}

TEST(PresetJson, KeepsPresetsWhichAreWhatTheirSettingsMakeAndLeaveJobsAlone) {
  std::mt19937 random(20);
  for (int i = 0; i < 1000; ++i) {
    StoredPreset preset;
    preset.setChanges(randomChanges(random, false));
    auto again = preset;
    again.setSettings(preset.settings());
    EXPECT_EQ(again, preset);

    TranscodeCliArguments job;
    randomChanges(random, false).apply(job);
    const auto before = job.clone();
    preset.replaceIn(job);
    for (const auto& [flag, was, is] : job.differencesFrom(before)) EXPECT_FALSE(isOfJob(flag)) << flag;
    again.setSettings(job);
    EXPECT_EQ(again, preset);

    StoredPreset changing("id \xff", "Größe\n");
    changing.setChanges(randomChanges(random, true));
    changing.otherMembers.add("$later", CodedList{CodedValue(), 1.5, CodedRecord()});
    const auto text = toJson(encode(changing)).dump();
    EXPECT_EQ(decode<StoredPreset>(fromJson(nlohmann::ordered_json::parse(text))), changing);
  }
}

std::string told(const PresetFolder& folder) {
  std::string lines;
  for (const auto& [file, preset] : folder.presets)
    lines += file.filename().native() + " is " + preset.name + "\n";
  for (const auto& [file, reason] : folder.broken) lines += file.filename().native() + ": " + reason + "\n";
  return lines;
}

TEST(PresetJson, LoadsAFolderAndTellsWhatIsBroken) {
  const TemporaryFolder folder;
  folder.link("a.json", folder.file("elsewhere", R"({"name": "A", "identifier": "", "options": {}})"));
  folder.file("b.JSON", R"({"identifier": "b", "name": "B", "options": {"-vbr": null}})");
  folder.file("\xff.json", R"({"identifier": "x", "name": "X", "options": {}})");
  folder.file("c.json", R"({"identifier": "b", "name": "C", "options": {}})");
  folder.file("d.json", R"({"identifier": "d", "options": {}})");
  folder.file("e.json", R"({"identifier": "e", "name": "E", "options": {"-Out": "/o"}})");
  folder.file("i.json", std::string(greatestPresetFileSize + 1, ' '));
  folder.link("j.json", "nowhere");
  ASSERT_EQ(mkfifo((folder / "k.json").c_str(), 0600), 0);
  folder.file(".l.json");
  folder.folder("m.json");
  EXPECT_EQ(told(loadJsonPresets(folder.path())),
            "a.json is A\nb.JSON is B\n\xff.json is X\n"
            "c.json: cannot decode 'identifier': an earlier file has \"b\"\n"
            "d.json: cannot decode 'name': the key is missing\n"
            "e.json: cannot decode '-out': the option belongs to a job, not to a preset\n"
            "i.json: larger than 1 MiB\n"
            "j.json: " +
                std::system_category().message(ENOENT) +
                "\n"
                "k.json: not a regular file\n");
  EXPECT_EQ(errorOf(loadJsonPresets, folder / "missing"), std::errc::no_such_file_or_directory);
}

TEST(PresetJson, StoresWholeOrNotAtAll) {
  const TemporaryFolder folder;
  const auto file = folder.file("a.json", "broken");
  folder.link("link.json", "a.json");
  std::filesystem::permissions(file, std::filesystem::perms{0640});
  StoredPreset preset("a", "New");
  storeJsonPreset(preset, folder / "link.json");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.json"));
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms{0640});
  preset.version.assign(greatestPresetFileSize, 'x');
  EXPECT_EQ(errorOf(storeJsonPreset, preset, file), std::errc::file_too_large);
  EXPECT_EQ(errorOf(storePresetText, folder / "missing/x", "x"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(errorOf(storePresetText, folder.path(), "x"), std::errc::invalid_argument);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
  EXPECT_EQ(loadJsonPresets(folder.path()).presets.at(0).preset.name, "New");
}

}  // namespace
}  // namespace quillonic
