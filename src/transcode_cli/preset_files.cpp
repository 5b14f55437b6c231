#include <quillonic/transcode_cli/preset_files.hpp>

#include <new>
#include <set>

#include "platform/items.hpp"
#include "text/unicode.hpp"

namespace quillonic {
namespace {

template <class T> T valueOf(Result<T> result, const std::filesystem::path& path) {
  if (!result) throw std::system_error(result.error(), path.string());
  return *std::move(result);
}

std::string textOf(const std::string& path) {
  const auto place = items::canonical(path);
  if (!place) throw std::system_error(place.error());
  auto text = items::firstBytes(*place, greatestPresetFileSize + 1);
  if (text.error() == std::errc::invalid_argument) throw std::runtime_error("not a regular file");
  if (!text) throw std::system_error(text.error());
  if (text->size() > greatestPresetFileSize) throw std::runtime_error("larger than 1 MiB");
  return *std::move(text);
}

void load(PresetFolder& loaded, std::set<std::string>& identifiers, const std::filesystem::path& file,
          FunctionRef<CodedValue(std::string_view)> parse) {
  try {
    auto preset = StoredPreset::from(parse(textOf(file.native())));
    if (!identifiers.insert(preset.identifier).second) {
      throw DecodingError("identifier", "an earlier file has \"" + preset.identifier + "\"");
    }
    loaded.presets.push_back({file, std::move(preset)});
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    loaded.broken.push_back({file, error.what()});
  }
}

}  // namespace

PresetFolder loadPresets(const std::filesystem::path& folder, std::string_view extension,
                         FunctionRef<CodedValue(std::string_view)> parse) {
  const auto place = valueOf(items::canonical(folder.native()), folder);
  const auto ending = text::lowerCased(extension);
  PresetFolder loaded;
  std::set<std::string> identifiers;
  for (const auto& entry : valueOf(items::entries(valueOf(items::Folder::open(place), folder)), folder)) {
    const bool isWanted = !entry.name.starts_with('.') && text::lowerCased(entry.name).ends_with(ending);
    if (isWanted && entry.type != FileType::directory) load(loaded, identifiers, folder / entry.name, parse);
  }
  return loaded;
}

void storePresetText(const std::filesystem::path& file, std::string_view text) {
  auto error = items::systemError(std::errc::file_too_large);
  if (text.size() <= greatestPresetFileSize) {
    const auto place = items::canonical(file.native());
    error = items::replace(place ? *place : file.native(), text);
  }
  if (error) throw std::system_error(error, file.string());
}

}  // namespace quillonic
