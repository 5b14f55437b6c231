// A menu of presets, built-in ones and those of a folder; jobs that start from one; a changed one that is
// kept. Needs nlohmann-json and the target Quillonic::json, because the files are JSON.
#include <quillonic/filesystem.hpp>
#include <quillonic/preset_json.hpp>
#include <quillonic/transcode_cli.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

using namespace quillonic;
namespace fs = std::filesystem;

int main() {
  // What a user's folder may hold: a preset, made by hand or by another program, and something else.
  const auto folder = fs::temp_directory_path() / "quillonic-presets";
  fs::remove_all(folder);
  fs::create_directories(folder);
  std::ofstream(folder / "dailies.json") << R"({
    "identifier": "dailies", "name": "Dailies", "version": "1", "color": "orange",
    "options": {"-vcodec": "prores422lt", "-vbd": "8", "-file_format": "qt", "-clut": "/luts/Show.cube",
                "-tc_burn": "", "-tc_match": "", "-wmt_burn": "", "-wmt_text": "for review", "-web": null, "-ac_omit_3": "3",
                "-ac_omit_1": "1", "-abr": null}
  })";
  std::ofstream(folder / "notes.json")
      << R"({"identifier": "notes", "name": "Notes", "options": {"-out": "/a"}})";

  std::vector<StoredPreset> menu;
  for (const auto preset : allCases<TranscodeCliPreset>()) menu.push_back(StoredPreset::builtIn(preset));
  const auto [presets, broken] = loadJsonPresets(folder);
  for (const auto& [file, preset] : presets) menu.push_back(preset);
  for (const auto& preset : menu) std::cout << preset.description() << '\n';
  for (const auto& [file, reason] : broken) std::cout << file.filename() << ": " << reason << '\n';

  // The details of one, and what its codec does not allow.
  auto dailies = menu.back();
  std::cout << '\n';
  for (const auto& [flag, name, text] : dailies.details()) std::cout << name << ": " << text << '\n';
  for (const auto& [choice, allowed] : dailies.conflicts()) {
    std::cout << choice.name << " cannot be " << choice.text << ", but";
    for (const auto& text : allowed) std::cout << ' ' << text;
    std::cout << '\n';
  }

  // A changed one, kept with a name of its own in a new file with a legal name.
  auto changes = dailies.changes();
  changes.set(VAVVideoBitDepthFlag, 10);
  changes.forget(VAVWatermarkTextAddBurnFlag);
  changes.forget(VAVWatermarkTextBurnTextFlag);
  dailies.setChanges(changes);
  dailies.identifier = "dailies-clean";
  dailies.name = "Dailies 1/2, clean";
  const auto fileName = removingDisallowedMacOSFilesystemCharacters(dailies.name) + ".json";
  const auto file = FileManager().filePathAdjustedForCollision(folder / fileName);
  storeJsonPreset(dailies, file);
  std::cout << '\n' << file.filename() << ' ' << std::ifstream(file).rdbuf();

  // A job gets its files, then one preset after another: the files stay, the first preset does not.
  TranscodeCliArguments job;
  job.setInputFiles({"/card/A001_C001.mov"});
  job.setOutputFile("/media/A001_C001.mov");
  for (const auto& preset : {menu.front(), dailies}) {
    preset.replaceIn(job);
    std::cout << '\n';
    for (const auto& word : job.launchArguments()) std::cout << '"' << word << "\" ";
  }

  // What an older application stored becomes a preset as far as a command line can say it.
  Cloud_ConversionOptions options;
  options.codecType = Cloud_ConversionOptions::CodecType::h264;
  FrameRate::halfstep.storeIn(options.videoOptions);
  StoredPreset converted("converted", "Converted");
  const auto unsaid = converted.setSettings(options);
  std::cout << "\n\n" << converted.description() << '\n';
  for (const auto& choice : unsaid) std::cout << choice.name << " cannot be kept: " << choice.text << '\n';
  fs::remove_all(folder);
}
