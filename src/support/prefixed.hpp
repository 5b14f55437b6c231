// The entries of a dictionary whose keys begin with a text.
#pragma once

#include <quillonic/support/text_dictionary.hpp>

#include <algorithm>
#include <string_view>

namespace quillonic {

// A range of iterators of a dictionary.
class PrefixedEntries {
 public:
  using Iterator = TextDictionary::const_iterator;

  PrefixedEntries(const TextDictionary& dictionary, std::string_view prefix)
      : first_(dictionary.lower_bound(prefix)),
        last_(std::find_if_not(first_, dictionary.end(),
                               [&](const auto& entry) { return entry.first.starts_with(prefix); })) {}

  Iterator begin() const noexcept { return first_; }
  Iterator end() const noexcept { return last_; }

 private:
  Iterator first_;
  Iterator last_;
};

inline void removePrefixed(TextDictionary& dictionary, std::string_view prefix) {
  const PrefixedEntries entries(dictionary, prefix);
  dictionary.erase(entries.begin(), entries.end());
}

}  // namespace quillonic
