// Names compared ignoring case and composition.
#pragma once

#include <string>
#include <string_view>

namespace quillonic::text {

// Equal for names that differ only in case (by Unicode's simple mapping) and in whether accented letters are
// one scalar or a letter and its marks. Bytes that are not UTF-8 stay.
std::string foldedName(std::string_view name);

}  // namespace quillonic::text
