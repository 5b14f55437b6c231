/// Folders of stored presets as JSON, for hosts that have nlohmann-json: the target Quillonic::json.
///
///     const auto [presets, broken] = loadJsonPresets(folder);
///     auto preset = presets.front().preset;
///     preset.name = "Review, large";
///     storeJsonPreset(preset, presets.front().file);
#pragma once

#include <quillonic/json.hpp>
#include <quillonic/transcode_cli/preset_files.hpp>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string_view>

namespace quillonic {

/// Loads the files of a folder whose names end in ".json"; see `loadPresets`.
inline PresetFolder loadJsonPresets(const std::filesystem::path& folder) {
  return loadPresets(folder, ".json",
                     [](std::string_view text) { return fromJson(nlohmann::ordered_json::parse(text)); });
}

/// Stores a preset in a file, whole or not at all; see `storePresetText`. The file's name should end in
/// ".json". Reading the file gives an equal preset.
inline void storeJsonPreset(const StoredPreset& preset, const std::filesystem::path& file) {
  storePresetText(file, toJson(encode(preset)).dump(2) + "\n");
}

}  // namespace quillonic
