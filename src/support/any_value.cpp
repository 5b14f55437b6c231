#include <quillonic/support/any_value.hpp>

#include <cmath>
#include <limits>

#include "text/number_text.hpp"

namespace quillonic {
namespace {

// The exact integer value of a floating-point number, if there is one.
template <class Integer> std::optional<Integer> exactInteger(double number) noexcept {
  constexpr auto lowest = static_cast<double>(std::numeric_limits<Integer>::min());
  constexpr auto beyond = 2.0 * static_cast<double>(Integer{1} << (std::numeric_limits<Integer>::digits - 1));
  if (!(number >= lowest && number < beyond)) return std::nullopt;
  const auto integer = static_cast<Integer>(number);
  return static_cast<double>(integer) == number ? std::optional(integer) : std::nullopt;
}

template <class Integer> std::optional<double> exactDouble(Integer integer) noexcept {
  const auto number = static_cast<double>(integer);
  return exactInteger<Integer>(number) == integer ? std::optional(number) : std::nullopt;
}

std::string isoText(Date date) {
  using namespace std::chrono;  // NOLINT(google-build-using-namespace): its units are the text's
  // Counted in seconds first: the earliest dates are in a second that begins before the range.
  constexpr std::int64_t second = 1'000'000'000;
  const auto count = date.time_since_epoch().count();
  const auto fraction = (count % second + second) % second;
  const sys_seconds whole(seconds(count / second - (count % second < 0 ? 1 : 0)));
  const auto day = floor<days>(whole);
  const year_month_day calendar(day);
  const hh_mm_ss time(whole - day);
  using number_text::padded;
  auto text = padded(static_cast<int>(calendar.year()), 4) + "-" +
              padded(static_cast<unsigned>(calendar.month()), 2) + "-" +
              padded(static_cast<unsigned>(calendar.day()), 2) + "T" + padded(time.hours().count(), 2) + ":" +
              padded(time.minutes().count(), 2) + ":" + padded(time.seconds().count(), 2);
  if (fraction != 0) {
    text.append(".").append(padded(fraction, 9));
    text.erase(text.find_last_not_of('0') + 1);
  }
  return text.append("Z");
}

}  // namespace

detail::HostValue::~HostValue() = default;

std::optional<std::int64_t> AnyValue::asSigned() const noexcept {
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) return *integer;
  if (const auto* number = std::get_if<double>(&value_)) return exactInteger<std::int64_t>(*number);
  return std::nullopt;
}

std::optional<std::uint64_t> AnyValue::asUnsigned() const noexcept {
  if (const auto* integer = std::get_if<std::uint64_t>(&value_)) return *integer;
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) {
    return *integer >= 0 ? std::optional(static_cast<std::uint64_t>(*integer)) : std::nullopt;
  }
  if (const auto* number = std::get_if<double>(&value_)) return exactInteger<std::uint64_t>(*number);
  return std::nullopt;
}

std::optional<double> AnyValue::asDouble() const noexcept {
  if (const auto* number = std::get_if<double>(&value_)) return *number;
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) return exactDouble(*integer);
  if (const auto* integer = std::get_if<std::uint64_t>(&value_)) return exactDouble(*integer);
  return std::nullopt;
}

std::optional<float> AnyValue::asFloat() const noexcept {
  const auto number = asDouble();
  if (!number) return std::nullopt;
  constexpr auto greatest = static_cast<double>(std::numeric_limits<float>::max());
  if (std::isfinite(*number) && std::abs(*number) > greatest) return std::nullopt;
  const auto narrow = static_cast<float>(*number);
  const bool isExact = static_cast<double>(narrow) == *number || std::isnan(*number);
  return isExact ? std::optional(narrow) : std::nullopt;
}

std::string AnyValue::description() const {
  struct Describe {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(std::uint64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return number_text::shortest(value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const std::filesystem::path& value) const { return value.native(); }
    std::string operator()(Date value) const { return isoText(value); }
    std::string operator()(const Host& value) const { return value ? value->description() : std::string(); }
  };
  return std::visit(Describe{}, value_);
}

bool AnyValue::operator==(const AnyValue& other) const {
  if (value_.index() != other.value_.index()) {
    // Two numbers of different forms are a floating-point number and an integer, or one is beyond a signed
    // integer: they are equal only when they are the same integer.
    if (const auto integer = asSigned()) return integer == other.asSigned();
    if (const auto integer = asUnsigned()) return integer == other.asUnsigned();
    return false;
  }
  if (const auto* number = std::get_if<double>(&value_)) {
    const auto otherNumber = *std::get_if<double>(&other.value_);
    return *number == otherNumber || (std::isnan(*number) && std::isnan(otherNumber));
  }
  if (const auto* host = std::get_if<Host>(&value_)) {
    const auto& otherHost = *std::get_if<Host>(&other.value_);
    if (!*host || !otherHost) return *host == otherHost;
    return (*host)->type() == otherHost->type() && (*host)->equals(*otherHost);
  }
  return value_ == other.value_;
}

}  // namespace quillonic
