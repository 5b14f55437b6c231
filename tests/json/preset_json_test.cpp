#include <quillonic/preset_json.hpp>

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

#include "error_of.hpp"
#include "random_preset.hpp"
#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

const std::string review =
    R"({"identifier": "r", "name": "Review", "options": {"-vbr": null}, "later": [1]})";

std::string told(const PresetFolder& folder) {
  std::string lines;
  for (const auto& [file, preset] : folder.presets)
    lines += file.filename().native() + " is " + preset.identifier + "\n";
  for (const auto& [file, reason] : folder.broken) lines += file.filename().native() + ": " + reason + "\n";
  return lines;
}

TEST(PresetJson, StoresPresetsThatReadBackAlike) {
  const TemporaryFolder folder;
  std::mt19937 random(7);
  for (int i = 0; i < 100; ++i) {
    auto preset = randomPreset(random, true);
    storeJsonPreset(preset, folder / "p.json");
    const auto loaded = loadJsonPresets(folder.path());
    ASSERT_EQ(told(loaded), "p.json is id \xff\n");
    EXPECT_EQ(loaded.presets.front().preset, preset);
  }
}

TEST(PresetJson, LoadsAFolderAndTellsWhatIsBroken) {
  const TemporaryFolder folder;
  folder.file("b.JSON", review);
  folder.link("a.json", folder.file("elsewhere", R"({"name": "", "identifier": "", "options": {}})"));
  folder.file("\xff.json", R"({"identifier": "x", "name": "X", "options": {}})");
  folder.file("c.json", review);
  folder.file("d.json", R"({"identifier": "d", "options": {}})");
  folder.file("e.json", R"({"identifier": "e", "name": "E", "options": {"-Out": "/o"}})");
  folder.file("f.json", R"({"identifier": "f", "name": "F", "options": {"-later": ""}})");
  folder.file("g.json", R"({"identifier": "g", "name": "G", "options": {"-vbr": 3}})");
  folder.file("h.json", "[]");
  folder.file("i.json", std::string(greatestPresetFileSize + 1, ' '));
  folder.link("j.json", "nowhere");
  ASSERT_EQ(mkfifo((folder / "k.json").c_str(), 0600), 0);
  folder.file(".l.json");
  folder.folder("m.json");
  folder.file("n.txt");
  EXPECT_EQ(told(loadJsonPresets(folder.path())),
            "a.json is \nb.JSON is r\n\xff.json is x\n"
            "c.json: cannot decode 'identifier': an earlier file has \"r\"\n"
            "d.json: cannot decode 'name': the key is missing\n"
            "e.json: cannot decode '-out': the option belongs to a job, not to a preset\n"
            "f.json: cannot decode '-later': the flag is not valid\n"
            "g.json: cannot decode '-vbr': the value has another type\n"
            "h.json: cannot decode the value: the value has another type\n"
            "i.json: larger than 1 MiB\n"
            "j.json: No such file or directory\n"
            "k.json: not a regular file\n");
  EXPECT_EQ(errorOf(loadJsonPresets, folder / "missing"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(errorOf(loadJsonPresets, folder / "n.txt"), std::errc::not_a_directory);
}

TEST(PresetJson, StoresWholeOrNotAtAll) {
  const TemporaryFolder folder;
  const auto file = folder.file("a.json", review);
  folder.link("link.json", "a.json");
  std::filesystem::permissions(file, std::filesystem::perms{0640});
  auto preset = loadJsonPresets(folder.path()).presets.front().preset;
  preset.name = "New";
  storeJsonPreset(preset, folder / "link.json");
  EXPECT_EQ(contentOf(file), R"({
  "identifier": "r",
  "name": "New",
  "options": {
    "-vbr": null
  },
  "later": [
    1
  ]
}
)");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.json"));
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms{0640});
  const auto store = [&](const auto& path) { storeJsonPreset(preset, path); };
  EXPECT_EQ(errorOf(store, folder / "missing/x.json"), std::errc::no_such_file_or_directory);
  EXPECT_NE(errorOf(store, folder.folder("x.json")), std::error_code());
  preset.version.assign(greatestPresetFileSize, 'x');
  EXPECT_EQ(errorOf(store, file), std::errc::file_too_large);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 3);
  EXPECT_EQ(loadJsonPresets(folder.path()).presets.front().preset.name, "New");
}

}  // namespace
}  // namespace quillonic
