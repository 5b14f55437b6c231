// Paths as texts: cut without a component being added, removed or re-encoded.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic::path_text {

// A slash at the end is no component. The root stays one slash.
constexpr std::string_view withoutTrailingSlashes(std::string_view path) noexcept {
  const auto last = path.find_last_not_of('/');
  return path.substr(0, last == std::string_view::npos ? std::min<std::size_t>(path.size(), 1) : last + 1);
}

// Everything before the last component, the slash that ends it included; empty for a name alone. The path has
// no slash at its end; the root is all folder.
constexpr std::string_view folderPrefix(std::string_view path) noexcept {
  return path.substr(0, path.rfind('/') + 1);
}

// The names between the slashes.
inline std::vector<std::string> components(std::string_view path) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < path.size();) {
    const auto end = std::min(path.find('/', at), path.size());
    if (end > at) names.emplace_back(path.substr(at, end - at));
    at = end + 1;
  }
  return names;
}

// Whether a path is the folder itself or lies below it, by its components.
constexpr bool isWithin(std::string_view path, std::string_view folder) noexcept {
  return path.starts_with(folder) &&
         (path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/');
}

}  // namespace quillonic::path_text
