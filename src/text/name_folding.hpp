// Comparing names without regard to case and composition.
#pragma once

#include <string>
#include <string_view>

namespace quillonic::text {

// Equal for names that differ only in case (by Unicode's simple mapping) or in composition (an accented
// letter as one scalar, or as a letter and its marks). Keeps bytes that are not UTF-8.
std::string foldedName(std::string_view name);

}  // namespace quillonic::text
