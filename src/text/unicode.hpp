// Text as the command lines need it: lower-cased and trimmed by Unicode's rules, without a locale.
#pragma once

#include <string>
#include <string_view>

namespace quillonic::text {

// Without the white space and line breaks at both ends: every scalar with the property White_Space.
std::string_view trimmed(std::string_view text) noexcept;

// By Unicode's simple mapping, except that U+0130 gives "i" and U+0307. Bytes that are not UTF-8 stay as they
// are. Lower-casing neither makes nor removes white space or a hyphen, so it may be done before or after
// trimming.
std::string lowerCased(std::string_view text);

}  // namespace quillonic::text
