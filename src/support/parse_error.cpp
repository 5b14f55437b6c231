#include <quillonic/support/parse_error.hpp>

#include "text/pieces.hpp"

namespace quillonic {

std::string ParseError::description() const {
  const auto what = found.empty() ? "the end" : '"' + text::printable(found) + '"';
  return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": found " + what +
         ", expected " + text::printable(expected);
}

}  // namespace quillonic
