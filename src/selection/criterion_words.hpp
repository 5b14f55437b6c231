// The words of the text form, as they are read and written.
#pragma once

#include <string_view>

namespace quillonic::selection::words {

inline constexpr std::string_view everything = "everything";
inline constexpr std::string_view nothing = "nothing";
inline constexpr std::string_view conjunction = "and";
inline constexpr std::string_view disjunction = "or";
inline constexpr std::string_view negation = "not";
inline constexpr std::string_view kind = "kind";
inline constexpr std::string_view extension = "extension";
inline constexpr std::string_view name = "name";
inline constexpr std::string_view anyCaseName = "iname";
inline constexpr std::string_view size = "size";
inline constexpr std::string_view hidden = "hidden";
inline constexpr std::string_view volume = "volume";
inline constexpr std::string_view since = "since";
inline constexpr std::string_view before = "before";
inline constexpr std::string_view to = "to";

inline constexpr std::string_view spaces = " \t\r\n";
inline constexpr std::string_view comparisons = "<>=";
// What ends a word unless it is in quotes.
inline constexpr std::string_view separators = " \t\r\n()<>=,\"'";

}  // namespace quillonic::selection::words
