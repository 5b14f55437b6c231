// A row of a table that is in the order of one of its values.
#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

namespace quillonic {

// The row whose projection equals a value, or null. Takes logarithmic time.
template <class Rows, class Value, class Projection = std::identity>
constexpr auto findSorted(const Rows& rows, const Value& value, Projection projection = {}) {
  const auto row = std::ranges::lower_bound(rows, value, {}, projection);
  const bool isFound = row != std::ranges::end(rows) && std::invoke(projection, *row) == value;
  return isFound ? std::addressof(*row) : nullptr;
}

}  // namespace quillonic
