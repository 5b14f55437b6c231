// Finds the row of a table by one of its values.
#pragma once

#include <algorithm>
#include <functional>
#include <iterator>

namespace quillonic {

// The first row whose projection equals a value, or null. Linear time.
template <class Rows, class Value, class Projection = std::identity>
constexpr auto rowOf(const Rows& rows, const Value& value, Projection projection = {}) {
  const auto row = std::ranges::find(rows, value, projection);
  return row == std::ranges::end(rows) ? nullptr : std::addressof(*row);
}

// Logarithmic time, in rows that ascend by their projection.
template <class Rows, class Value, class Projection = std::identity>
constexpr auto sortedRowOf(const Rows& rows, const Value& value, Projection projection = {}) {
  const auto row = std::ranges::lower_bound(rows, value, {}, projection);
  const bool isFound = row != std::ranges::end(rows) && std::invoke(projection, *row) == value;
  return isFound ? std::addressof(*row) : nullptr;
}

}  // namespace quillonic
