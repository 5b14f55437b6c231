// Names compared as people read them.
#pragma once

#include <string>
#include <string_view>

namespace quillonic::text {

// A text that is the same for names that differ only in case (by Unicode's simple mapping) and in whether
// accented letters are written as one scalar or as a letter and its marks. Bytes that are not UTF-8 stay.
std::string foldedName(std::string_view name);

}  // namespace quillonic::text
