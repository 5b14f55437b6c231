// A tree of coded values, written in lines. "{" begins a record, in which a line with a key stands before
// each value; "[" begins a list; "}" or "]" ends either. "t" and "f" are Booleans, "i5" an integer, "d0.5" a
// number, "sabc" a text; any other line is nothing.
#pragma once

#include <quillonic/support/coding.hpp>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {

template <class Number> Number numberOf(std::string_view text) {
  Number value{};
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// A value that holds NaN equals nothing.
inline double equalToItself(double value) {
  return std::isnan(value) ? 0 : value;
}

class CodedTree {
 public:
  explicit CodedTree(std::string_view bytes) : lines_(lines(bytes)) {}

  CodedValue value() {
    const auto line = next();
    if (line.empty()) return {};
    const auto rest = line.substr(1);
    switch (line.front()) {
      case 't':
        return true;
      case 'f':
        return false;
      case 'i':
        return numberOf<std::int64_t>(rest);
      case 'd':
        return equalToItself(numberOf<double>(rest));
      case 's':
        return std::string(rest);
      case '[': {
        CodedList list;
        while (!ends()) list.push_back(value());
        return list;
      }
      case '{': {
        CodedRecord record;
        while (!ends()) {
          const auto key = next();
          record.add(key, value());
        }
        return record;
      }
      default:
        return {};
    }
  }

 private:
  bool ends() {
    if (at_ < lines_.size() && lines_[at_] != "]" && lines_[at_] != "}") return false;
    ++at_;
    return true;
  }
  std::string_view next() { return at_ < lines_.size() ? lines_[at_++] : std::string_view{}; }

  std::vector<std::string_view> lines_;
  std::size_t at_ = 0;
};

}  // namespace quillonic::fuzz
