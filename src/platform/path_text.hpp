// Paths as texts, cut without adding, removing or re-encoding a component.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/pieces.hpp"

namespace quillonic::path_text {

// A trailing slash is no component. The root stays one slash.
constexpr std::string_view withoutTrailingSlashes(std::string_view path) noexcept {
  const auto last = path.find_last_not_of('/');
  return path.substr(0, last == std::string_view::npos ? std::min<std::size_t>(path.size(), 1) : last + 1);
}

// Everything before the last component, including the slash; empty for a name alone. The path has no trailing
// slash; the root is all folder.
constexpr std::string_view folderPrefix(std::string_view path) noexcept {
  return path.substr(0, path.rfind('/') + 1);
}

// The folder of an item, without a trailing slash; the root is its own folder.
constexpr std::string_view folderOf(std::string_view path) noexcept {
  return withoutTrailingSlashes(folderPrefix(path));
}

// The position of the extension's full stop in a name; the name's size when it has no extension.
constexpr std::size_t extensionStart(std::string_view name) noexcept {
  const auto stop = name.rfind('.');
  const bool hasExtension = stop != std::string_view::npos && stop > 0 && stop + 1 < name.size();
  return hasExtension ? stop : name.size();
}

// The names between the slashes.
inline std::vector<std::string> components(std::string_view path) {
  std::vector<std::string> names;
  for (auto pieces = text::split(path, '/'); const auto name = pieces.next();) {
    if (!name->empty()) names.emplace_back(*name);
  }
  return names;
}

// Whether a path is the folder itself or below it, compared by components.
constexpr bool isWithin(std::string_view path, std::string_view folder) noexcept {
  return path.starts_with(folder) &&
         (path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/');
}

}  // namespace quillonic::path_text
