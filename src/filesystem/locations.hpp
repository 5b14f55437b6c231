// Locations as texts that the system understands: absolute, standardized, without a slash at the end.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic::locations {

[[noreturn]] void fail(const char* operation, const std::string& item, std::error_code error);

// A path as the system is to see it: with a slash at its end it would follow a link.
std::string itself(const std::filesystem::path& item);

std::string inFolder(std::string_view folder, std::string_view name);

// Throws where a path is relative and the working folder is gone.
std::string absolutePath(const std::string& item);

// Without ".", "..", doubled slashes and a slash at the end. The first `physical` bytes of the absolute path are
// known to hold no link, so that a ".." behind them is the component before it; elsewhere the system is asked
// which folder is meant, and where it does not know, the text decides.
std::string standardized(std::string_view absolute, std::size_t physical = 0);

// Where a symbolic link leads, from its stored target; nothing where that names no place. The link's folder is
// absolute, and `physical` tells that no part of it is a link.
std::optional<std::string> destination(std::string_view folder, bool physical, std::string_view target);

// An existing folder with its links followed, and the name in it.
struct Place {
  std::string folder;
  std::string name;

  std::string path() const { return name.empty() ? folder : inFolder(folder, name); }
};

// Throws where the folder is missing.
Place placeOf(const std::filesystem::path& item);

}  // namespace quillonic::locations
