// Converts lists to one text and back, so that a test shows results and expectations in one line.
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace quillonic {

// Texts, or cases that have one; `textOf` makes a text of anything else.
template <class Items, class TextOf = std::identity>
std::string joined(const Items& items, char separator = ' ', TextOf textOf = {}) {
  std::string all;
  for (const auto& item : items) {
    const auto& text = std::invoke(textOf, item);
    if constexpr (std::is_convertible_v<decltype(text), std::string_view>) {
      all += text;
    } else {
      all += rawValue(text);
    }
    all += separator;
  }
  return all.empty() ? all : all.substr(0, all.size() - 1);
}

// The pieces of a text, and none of an empty one.
inline std::vector<std::string> split(std::string_view text, char separator = ' ') {
  std::vector<std::string> pieces;
  for (std::size_t at = 0, end = 0; end < text.size(); at = end + 1) {
    end = std::min(text.find(separator, at), text.size());
    pieces.emplace_back(text.substr(at, end - at));
  }
  return pieces;
}

}  // namespace quillonic
