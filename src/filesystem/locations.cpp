#include "filesystem/locations.hpp"

#include <quillonic/filesystem/io_error.hpp>

#include <algorithm>
#include <utility>

#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "platform/working_folder.hpp"

namespace quillonic::locations {

void fail(const char* operation, const std::string& item, std::error_code error) {
  throw std::filesystem::filesystem_error(operation, item, error);
}

std::string itself(const std::filesystem::path& item) {
  return std::string(path_text::withoutTrailingSlashes(item.native()));
}

std::string inFolder(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path.append(folder);
  if (!path.ends_with('/')) path.push_back('/');
  return path.append(name);
}

std::string absolutePath(const std::string& item) {
  if (item.starts_with('/')) return item;
  const auto folder = workingFolder();
  if (!folder)
    fail("cannot find the working folder", item,
         FilePathAttributeGenerationError::symbolicLinkTargetNotFound);
  return inFolder(*folder, item);
}

std::string standardized(std::string_view absolute, std::size_t physical) {
  std::string result;
  result.reserve(absolute.size());
  for (std::size_t at = 0; at < absolute.size();) {
    const auto end = std::min(absolute.find('/', at), absolute.size());
    const auto name = absolute.substr(at, end - at);
    at = end + 1;
    if (name.empty() || name == ".") continue;
    if (name != "..") {
      result.append("/").append(name);
      continue;
    }
    if (result.size() > physical) {
      if (auto folder = items::canonical(result)) {
        result = folder == "/" ? std::string() : *std::move(folder);
        physical = result.size();
      }
    }
    result.resize(result.empty() ? 0 : result.rfind('/'));
    physical = std::min(physical, result.size());
  }
  if (result.empty()) result.push_back('/');
  return result;
}

std::optional<std::string> destination(std::string_view folder, bool physical, std::string_view target) {
  if (target.empty() || target.find('\0') != std::string_view::npos) return std::nullopt;
  if (target.starts_with('/')) return standardized(target);
  return standardized(inFolder(folder, target), physical ? folder.size() : 0);
}

Place placeOf(const std::filesystem::path& item) {
  const auto absolute = absolutePath(itself(item));
  const auto prefix = path_text::folderPrefix(absolute);
  Place place{std::string(prefix), absolute.substr(prefix.size())};
  if (place.name.empty() || place.name == "." || place.name == "..") place = {absolute, {}};
  std::error_code error;
  auto folder = items::canonical(place.folder);
  if (!folder) {
    // The resolution says nothing of why it failed; looking at the folder does.
    items::status(inFolder(place.folder, "."), error);
    fail("cannot find the folder", place.folder,
         error ? error : std::make_error_code(std::errc::no_such_file_or_directory));
  }
  place.folder = *std::move(folder);
  return place;
}

}  // namespace quillonic::locations
