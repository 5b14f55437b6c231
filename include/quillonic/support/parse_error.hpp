/// Describes a text that cannot be read.
///
///     ParseError error{.line = 12, .column = 7, .found = "1,5", .expected = "a decimal number"};
///     std::cerr << error.description();    // line 12, column 7: found "1,5", expected a decimal number
#pragma once

#include <quillonic/export.hpp>

#include <cstddef>
#include <string>

namespace quillonic {

/// Where a reader stopped, and why: the one form in which readers of texts with several lines refuse.
struct ParseError {
  /// Counted from 1.
  std::size_t line = 1;
  /// In bytes, counted from 1.
  std::size_t column = 1;
  /// The text at this position; empty at the end of the input.
  std::string found;
  /// What was expected there, for people: "a decimal number".
  std::string expected;

  /// One line for logs and users, with line breaks and control characters as "\n" and "\x1b".
  QUILLONIC_EXPORT std::string description() const;

  friend bool operator==(const ParseError&, const ParseError&) = default;
};

}  // namespace quillonic
