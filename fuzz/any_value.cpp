// Any numbers, a line each, as values of every width: they are read and compared by what they are exactly.
#include <quillonic/support/any_value.hpp>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

// A long double holds every 64-bit integer and every double.
static_assert(std::numeric_limits<long double>::digits >= 64);
struct Number {
  AnyValue value;
  long double exact;
};

template <class T> void checkReading(const Number& number) {
  constexpr auto lowest = static_cast<long double>(std::numeric_limits<T>::lowest());
  constexpr auto highest = static_cast<long double>(std::numeric_limits<T>::max());
  const bool holds = number.exact >= lowest && number.exact <= highest &&
                     static_cast<long double>(static_cast<T>(number.exact)) == number.exact;
  const auto read = number.value.as<T>();
  require(read.has_value() == holds, "a number reads as each type that holds it exactly");
  require(!holds || static_cast<long double>(*read) == number.exact, "a number reads as what it is");
}

template <class T> void add(std::vector<Number>& numbers, T number) {
  numbers.push_back({number, static_cast<long double>(number)});
}

// The number that a text begins with, in each type that may hold it or a part of it.
void addNumbers(std::string_view text, std::vector<Number>& numbers) {
  std::uint64_t bits = 0;
  std::from_chars(text.data(), text.data() + text.size(), bits);
  add(numbers, bits);
  add(numbers, static_cast<std::int64_t>(bits));
  add(numbers, static_cast<std::int16_t>(bits));
  add(numbers, static_cast<float>(bits));
  double real = 0;
  std::from_chars(text.data(), text.data() + text.size(), real);
  if (std::isfinite(real)) add(numbers, real);
}

}  // namespace

void run(std::string_view bytes) {
  std::vector<Number> numbers;
  for (const auto line : lines(bytes.substr(0, 500))) addNumbers(line, numbers);
  for (const auto& number : numbers) {
    checkReading<std::int8_t>(number);
    checkReading<std::int64_t>(number);
    checkReading<std::uint64_t>(number);
    checkReading<double>(number);
    checkReading<float>(number);
    for (const auto& other : numbers) {
      require((number.value == other.value) == (number.exact == other.exact), "equal numbers are equal");
    }
  }
}

}  // namespace quillonic::fuzz
