// The entries of a dictionary whose keys begin with a text.
#pragma once

#include <algorithm>
#include <ranges>
#include <string_view>

namespace quillonic {

// A range of iterators of the dictionary.
template <class Dictionary> auto prefixed(Dictionary& dictionary, std::string_view prefix) {
  const auto first = dictionary.lower_bound(prefix);
  const auto last = std::find_if_not(first, dictionary.end(),
                                     [&](const auto& entry) { return entry.first.starts_with(prefix); });
  return std::ranges::subrange(first, last);
}

template <class Dictionary> void removePrefixed(Dictionary& dictionary, std::string_view prefix) {
  const auto range = prefixed(dictionary, prefix);
  dictionary.erase(range.begin(), range.end());
}

}  // namespace quillonic
