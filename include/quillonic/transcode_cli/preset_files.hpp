/// Folders of stored presets, in any archive format; preset_json.hpp has the calls for JSON.
///
///     const auto [presets, broken] = loadPresets(folder, ".json", parse);
///     for (const auto& [file, preset] : presets) menu.add(preset.description());
///     for (const auto& [file, reason] : broken) warn(file, reason);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/transcode_cli/stored_preset.hpp>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// The maximum size of a preset file in bytes. Larger files are not read.
inline constexpr std::size_t greatestPresetFileSize = 1 << 20;

/// A preset and its file.
struct PresetFile {
  /// The folder's path and the file's name, whose bytes never change.
  std::filesystem::path file;
  /// What it holds.
  StoredPreset preset;
};

/// A file that holds no preset.
struct BrokenPresetFile {
  /// The folder's path and the file's name, whose bytes never change.
  std::filesystem::path file;
  /// Why, in English: the system's message, the parser's, or a `DecodingError`'s.
  std::string reason;
};

/// What a folder holds.
struct PresetFolder {
  /// In byte order of the file names.
  std::vector<PresetFile> presets;
  /// In byte order of the file names.
  std::vector<BrokenPresetFile> broken;
};

/// Reads all files of a folder whose names end in `extension`, in capitals or not. Follows links; does not
/// look into folders, nor at names with a leading dot. A file is broken if it cannot be read, is larger than
/// `greatestPresetFileSize`, is a pipe or a device, if `parse` throws a `std::exception` for its text, or if
/// an earlier file has the same identifier. Throws a `std::system_error` if the folder cannot be read.
QUILLONIC_EXPORT PresetFolder loadPresets(const std::filesystem::path& folder, std::string_view extension,
                                          FunctionRef<CodedValue(std::string_view text)> parse);

/// Writes a text to a file, whole or not at all: readers see the earlier file or the new one, even if the
/// process ends meanwhile. Follows a link; keeps the permissions of an existing file. Throws a
/// `std::system_error`, also for an existing file that may not be written, and leaves it as it was.
QUILLONIC_EXPORT void storePresetText(const std::filesystem::path& file, std::string_view text);

}  // namespace quillonic
