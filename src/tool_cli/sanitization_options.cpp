#include <quillonic/tool_cli/sanitization_options.hpp>

#include "text/unicode.hpp"

namespace quillonic {

std::string CLISanitizationOptions::sanitize(std::string_view text) const {
  if (contains(trimWhiteSpace)) text = text::trimmed(text);
  return contains(lowercase) ? text::lowerCased(text) : std::string(text);
}

}  // namespace quillonic
