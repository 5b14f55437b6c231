#include "filesystem/locations.hpp"

#include <quillonic/filesystem/io_error.hpp>

#include <utility>

#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "text/pieces.hpp"

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

namespace {

// Fails if a path is relative and the working folder is gone.
Result<std::string> absolutePath(const std::string& item) {
  if (item.starts_with('/')) return item;
  if (item.empty()) return items::systemError(std::errc::no_such_file_or_directory);
  const auto folder = items::workingFolder();
  return folder ? inFolder(*folder, item) : folder;
}

// Without ".", "..", doubled slashes and a trailing slash. The first `physical` bytes of the absolute path
// are known to be folders without links, so that a ".." after them removes the component before it; elsewhere
// the system is asked which folder is meant, and a ".." after an item that is not a folder fails as it does
// there. What follows the last ".." need not exist.
Result<std::string> standardized(std::string_view absolute, std::size_t physical) {
  std::string result;
  result.reserve(absolute.size());
  for (auto names = text::split(absolute, '/'); const auto name = names.next();) {
    if (name->empty() || *name == ".") continue;
    if (*name != "..") {
      result.append("/").append(*name);
      continue;
    }
    if (result.size() > physical) {
      // Resolving alone needs no permission to pass through the folder.
      if (const auto error = items::reach(result + "/..")) return error;
      auto folder = items::canonical(result);
      if (!folder) return folder.error();
      result = *folder == "/" ? std::string() : *std::move(folder);
    }
    result.resize(result.empty() ? 0 : result.rfind('/'));
    physical = result.size();
  }
  if (result.empty()) result.push_back('/');
  return result;
}

}  // namespace

std::string withFoldersFollowed(std::string place,
                                FunctionRef<Result<std::string>(const std::string&)> follow) {
  auto prefix = path_text::folderPrefix(place);
  while (prefix.size() > 1) {
    if (const auto folder = follow(std::string(prefix)))
      return inFolder(*folder, place.substr(prefix.size()));
    prefix = path_text::folderPrefix(path_text::withoutTrailingSlashes(prefix));
  }
  return place;
}

Result<std::string> standardizedItem(const std::string& item) {
  const auto absolute = absolutePath(item);
  auto place = absolute ? standardized(*absolute, 0) : absolute.error();
  if (!place) return place;
  return withFoldersFollowed(*std::move(place), items::canonical);
}

Result<std::string> destination(std::string_view folder, bool physical, std::string_view text,
                                FunctionRef<Result<std::string>(const std::string&)> follow) {
  if (text.empty() || text.find('\0') != std::string_view::npos) {
    return FilePathAttributeGenerationError::symbolicLinkTargetNotFound;
  }
  auto place = text.starts_with('/') ? standardized(text, 0)
                                     : standardized(inFolder(folder, text), physical ? folder.size() : 0);
  // A missing item may become a folder; an item that is not a folder contains nothing.
  const bool asksForFolder = text.ends_with('/') || text.ends_with("/.");
  if (place && asksForFolder) {
    const auto error = items::reach(*place + "/");
    if (error == std::errc::not_a_directory) return error;
  }
  if (!place) return place;
  return withFoldersFollowed(*std::move(place), follow);
}

Result<std::string> destinationOf(const std::string& link, std::string_view text) {
  const auto absolute = text.starts_with('/') ? std::string() : absolutePath(link);
  if (!absolute) return absolute.error();
  return destination(path_text::folderPrefix(*absolute), false, text, items::canonical);
}

Result<Place> placeOf(const std::filesystem::path& item) {
  const auto absolute = absolutePath(itself(item));
  if (!absolute) return absolute.error();
  const auto prefix = path_text::folderPrefix(*absolute);
  Place place{std::string(prefix), absolute->substr(prefix.size())};
  if (place.name.empty() || place.name == "." || place.name == "..") place = {*absolute, {}};
  auto folder = items::canonical(place.folder);
  if (!folder) return folder.error();
  place.folder = *std::move(folder);
  return place;
}

}  // namespace quillonic::locations
