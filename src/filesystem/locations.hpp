// Locations as texts that the system understands: absolute, standardized, without a slash at the end.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic::locations {

[[noreturn]] void fail(const char* operation, const std::filesystem::path& item, std::error_code error);

// What follows reports a failure in `error` and by giving nothing, and clears `error` otherwise.

// A path as the system is to see it: with a slash at its end it would follow a link.
std::string itself(const std::filesystem::path& item);

std::string inFolder(std::string_view folder, std::string_view name);

// Nothing where a path is relative and the working folder is gone.
std::optional<std::string> absolutePath(const std::string& item, std::error_code& error);

// Without ".", "..", doubled slashes and a slash at the end. The first `physical` bytes of the absolute path are
// known to be folders and no links, so that a ".." behind them is the component before it; elsewhere the system
// is asked which folder is meant, and a ".." behind what is no folder fails as it does there. What stands behind
// the last ".." need not exist.
std::optional<std::string> standardized(std::string_view absolute, std::size_t physical,
                                        std::error_code& error);

// The same for an item as a caller named it.
std::optional<std::string> standardizedItem(const std::string& item, std::error_code& error);

// Where a symbolic link leads, from its stored target. The link's folder is absolute, and `physical` tells that
// no part of it is a link. A target that ends in a slash or in "." is no place where something that is no
// folder stands there.
std::optional<std::string> destination(std::string_view folder, bool physical, std::string_view target,
                                       std::error_code& error);

// An existing folder with its links followed, and the name in it.
struct Place {
  std::string folder;
  std::string name;

  std::string path() const { return name.empty() ? folder : inFolder(folder, name); }
};

std::optional<Place> placeOf(const std::filesystem::path& item, std::error_code& error);

}  // namespace quillonic::locations
