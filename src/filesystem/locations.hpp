// Locations as texts for system calls: absolute, standardized, without a trailing slash.
#pragma once

#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/result.hpp>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic::locations {

[[noreturn]] void fail(const char* operation, const std::filesystem::path& item, std::error_code error);

// The value of a result; throws its error.
template <class T> T valueOrFail(Result<T> result, const char* operation, const std::filesystem::path& item) {
  if (!result) fail(operation, item, result.error());
  return *std::move(result);
}

// A path without trailing slashes, which would make the system follow a link.
std::string itself(const std::filesystem::path& item);

std::string inFolder(std::string_view folder, std::string_view name);

// Follows the links in a place's folders, as far as these exist and can be looked at; `follow` follows those
// of one folder. So every location has one spelling, however a caller or a link reached it.
std::string withFoldersFollowed(std::string place,
                                FunctionRef<Result<std::string>(const std::string&)> follow);

// An item as a caller named it, standardized and with its folders followed. Fails if the path is relative and
// the working folder is gone.
Result<std::string> standardizedItem(const std::string& item);

// The target of a symbolic link, from its stored text. The link's folder is absolute; `physical` says that no
// part of it is a link. A text that ends in a slash or in "." has no target if the item there is not a
// folder.
Result<std::string> destination(std::string_view folder, bool physical, std::string_view text,
                                FunctionRef<Result<std::string>(const std::string&)> follow);

// The same for a link as a caller named it.
Result<std::string> destinationOf(const std::string& link, std::string_view text);

// An existing folder with its links followed, and the name in it.
struct Place {
  std::string folder;
  std::string name;

  std::string path() const { return name.empty() ? folder : inFolder(folder, name); }
};

Result<Place> placeOf(const std::filesystem::path& item);

}  // namespace quillonic::locations
