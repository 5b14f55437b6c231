// Locations as texts that the system understands: absolute, standardized, without a trailing slash.
#pragma once

#include <quillonic/support/function_ref.hpp>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "support/result.hpp"

namespace quillonic::locations {

[[noreturn]] void fail(const char* operation, const std::filesystem::path& item, std::error_code error);

// The value of a result; throws its error.
template <class T> T valueOrFail(Result<T> result, const char* operation, const std::filesystem::path& item) {
  if (!result) fail(operation, item, result.error());
  return *std::move(result);
}

// A path without trailing slashes, with which the system would follow a link.
std::string itself(const std::filesystem::path& item);

std::string inFolder(std::string_view folder, std::string_view name);

// Fails where a path is relative and the working folder is gone.
Result<std::string> absolutePath(const std::string& item);

// Without ".", "..", doubled slashes and a trailing slash. The first `physical` bytes of the absolute path
// are known to be folders and no links, so that a ".." after them is the component before it; elsewhere the
// system is asked which folder is meant, and a ".." after what is no folder fails as it does there. What
// follows the last ".." need not exist.
Result<std::string> standardized(std::string_view absolute, std::size_t physical);

// The links in a place's folders followed, as far as these exist and can be looked at. `follow` is that of a
// folder. So every location is spelled in one way, however a caller or a link came to it.
std::string withFoldersFollowed(std::string place,
                                FunctionRef<Result<std::string>(const std::string&)> follow);

// An item as a caller named it, standardized and with its folders followed.
Result<std::string> standardizedItem(const std::string& item);

// The target of a symbolic link, from its stored text. The link's folder is absolute, and `physical` says
// that no part of it is a link. A text that ends in a slash or in "." has no target where something that is
// no folder is at that place.
Result<std::string> destination(std::string_view folder, bool physical, std::string_view text,
                                FunctionRef<Result<std::string>(const std::string&)> follow);

// An existing folder with its links followed, and the name in it.
struct Place {
  std::string folder;
  std::string name;

  std::string path() const { return name.empty() ? folder : inFolder(folder, name); }
};

Result<Place> placeOf(const std::filesystem::path& item);

}  // namespace quillonic::locations
