/// Which version this is: the one whose headers a program is compiled with, and the one that it runs with. They differ
/// where a shared library was replaced by a later one of the same series, as it may be.
///
///     #if QUILLONIC_VERSION_MAJOR > 0 ...
///     std::cout << "built with " << version() << ", running with " << runningVersion();
///
/// The numbers follow semantic versioning. While the first is 0 a new second number may break programs, and the shared
/// library's name changes with it; docs/abi.md says when to raise which.
#pragma once

#include <quillonic/export.hpp>

#include <string_view>

// The one place where the version stands: the build, the packages and the shared library's name are made from these.
/// A new one may break programs.
#define QUILLONIC_VERSION_MAJOR 0
/// A new one adds to the library; it may break programs while the first number is 0.
#define QUILLONIC_VERSION_MINOR 2
/// A new one mends the library.
#define QUILLONIC_VERSION_PATCH 0

/// A number as a text, in two steps, so that a macro's name gives its value.
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

/// The version of the library that the program has loaded.
QUILLONIC_EXPORT std::string_view runningVersion() noexcept;

}  // namespace quillonic
