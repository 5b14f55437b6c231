// Lower-casing and trimming by Unicode's rules, without a locale.
#pragma once

#include <string>
#include <string_view>

namespace quillonic::text {

// Removes leading and trailing white space and line breaks: every scalar with the property White_Space.
std::string_view trimmed(std::string_view text) noexcept;

// Lower-cases by Unicode's simple mapping, except that U+0130 gives "i" and U+0307. Keeps bytes that are not
// UTF-8. Lower-casing neither adds nor removes white space or a hyphen, so it may come before or after
// trimming.
std::string lowerCased(std::string_view text);

// The same by the simple mapping alone, U+0130 included, so that every character stays one.
std::string lowerCasedEach(std::string_view text);

}  // namespace quillonic::text
