/// What is wrong with a text that cannot be read.
///
///     ParseError error{.line = 12, .column = 7, .found = "1,5", .expected = "a decimal number"};
///     std::cerr << error.description();    // line 12, column 7: found "1,5", expected a decimal number
#pragma once

#include <quillonic/export.hpp>

#include <cstddef>
#include <string>

namespace quillonic {

/// Where a reader gave up, and why. Whatever in the library reads a text of several lines refuses with one of these.
struct ParseError {
  /// Counted from 1.
  std::size_t line = 1;
  /// In bytes, counted from 1.
  std::size_t column = 1;
  /// The text at that place; empty at the end of the input.
  std::string found;
  /// What could have been there, for people: "a decimal number".
  std::string expected;

  /// One line for logs and users. Bytes of `found` that cannot be printed are written as "\x1b".
  QUILLONIC_EXPORT std::string description() const;

  friend bool operator==(const ParseError&, const ParseError&) = default;
};

}  // namespace quillonic
