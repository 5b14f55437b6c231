#include "filesystem/locations.hpp"

#include <quillonic/filesystem/io_error.hpp>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "platform/working_folder.hpp"

namespace quillonic::locations {

void fail(const char* operation, const std::filesystem::path& item, std::error_code error) {
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

std::optional<std::string> absolutePath(const std::string& item, std::error_code& error) {
  error.clear();
  if (item.starts_with('/')) return item;
  if (item.empty()) {
    error = std::error_code(ENOENT, std::system_category());
    return std::nullopt;
  }
  const auto folder = workingFolder();
  if (folder) return inFolder(*folder, item);
  error = FilePathAttributeGenerationError::symbolicLinkTargetNotFound;
  return std::nullopt;
}

std::optional<std::string> standardized(std::string_view absolute, std::size_t physical,
                                        std::error_code& error) {
  error.clear();
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
      // The resolution alone asks for no permission to pass through the folder.
      const bool isPassable = items::existsBehindLinks(result + "/..", error);
      auto folder = isPassable ? items::canonical(result, error) : std::nullopt;
      if (!folder) return std::nullopt;
      result = folder == "/" ? std::string() : *std::move(folder);
    }
    result.resize(result.empty() ? 0 : result.rfind('/'));
    physical = result.size();
  }
  if (result.empty()) result.push_back('/');
  return result;
}

std::optional<std::string> standardizedItem(const std::string& item, std::error_code& error) {
  const auto absolute = absolutePath(item, error);
  return absolute ? standardized(*absolute, 0, error) : std::nullopt;
}

std::optional<std::string> destination(std::string_view folder, bool physical, std::string_view target,
                                       std::error_code& error) {
  if (target.empty() || target.find('\0') != std::string_view::npos) {
    error = FilePathAttributeGenerationError::symbolicLinkTargetNotFound;
    return std::nullopt;
  }
  auto place = target.starts_with('/')
                   ? standardized(target, 0, error)
                   : standardized(inFolder(folder, target), physical ? folder.size() : 0, error);
  if (!place || !(target.ends_with('/') || target.ends_with("/."))) return place;
  // What is missing may become a folder; what is no folder leads nowhere.
  if (items::existsBehindLinks(*place + "/", error) || error != std::errc::not_a_directory) {
    error.clear();
    return place;
  }
  return std::nullopt;
}

std::optional<Place> placeOf(const std::filesystem::path& item, std::error_code& error) {
  const auto absolute = absolutePath(itself(item), error);
  if (!absolute) return std::nullopt;
  const auto prefix = path_text::folderPrefix(*absolute);
  Place place{std::string(prefix), absolute->substr(prefix.size())};
  if (place.name.empty() || place.name == "." || place.name == "..") place = {*absolute, {}};
  auto folder = items::canonical(place.folder, error);
  if (!folder) return std::nullopt;
  place.folder = *std::move(folder);
  return place;
}

}  // namespace quillonic::locations
