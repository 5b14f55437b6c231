/// The version of the headers that a program is compiled with, and of the library that it runs with. They
/// differ when the shared library was replaced by a later one of the same series, which is allowed.
///
///     #if QUILLONIC_VERSION_MAJOR > 0 ...
///     std::cout << "built with " << version() << ", running with " << runningVersion();
///
/// The numbers follow semantic versioning. While the first is 0, a new second number may break programs and
/// changes the shared library's name; docs/abi.md says when to raise which.
#pragma once

#include <quillonic/export.hpp>

#include <string_view>

// The only definition of the version: the build, the packages and the shared library's name read it here.
/// A new number may break programs.
#define QUILLONIC_VERSION_MAJOR 0
/// A new number adds to the library; it may break programs while the first number is 0.
#define QUILLONIC_VERSION_MINOR 2
/// A new number fixes faults only.
#define QUILLONIC_VERSION_PATCH 0

/// Turns a number into text, in two steps so that macros are expanded first.
#define QUILLONIC_DETAIL_TEXT_OF(number) #number
/// The second step.
#define QUILLONIC_DETAIL_TEXT(number) QUILLONIC_DETAIL_TEXT_OF(number)
/// The three numbers as a text, "0.2.0".
#define QUILLONIC_VERSION                        \
  QUILLONIC_DETAIL_TEXT(QUILLONIC_VERSION_MAJOR) \
  "." QUILLONIC_DETAIL_TEXT(QUILLONIC_VERSION_MINOR) "." QUILLONIC_DETAIL_TEXT(QUILLONIC_VERSION_PATCH)

/// All that the library offers.
namespace quillonic {

/// The version of the headers that the calling code is compiled with.
constexpr std::string_view version() noexcept {
  return QUILLONIC_VERSION;
}

/// The version of the loaded library.
QUILLONIC_EXPORT std::string_view runningVersion() noexcept;

}  // namespace quillonic
