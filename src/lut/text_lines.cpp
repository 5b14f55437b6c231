#include "lut/text_lines.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <utility>

#include "text/ascii.hpp"

namespace quillonic::lut {
namespace {

// Longer texts tell a reader no more.
constexpr std::size_t greatestFound = 60;

// A number that no double holds: whether it is too small, not too large. `digits` are as in a number.
bool isTiny(std::string_view number) noexcept {
  const auto exponentAt = std::min(number.find_first_of("eE"), number.size());
  const auto digits = number.substr(0, exponentAt);
  std::int64_t exponent = 0;
  if (exponentAt < number.size()) {
    const bool isNegative = number[exponentAt + 1] == '-';
    const char* first = number.data() + exponentAt + (isNegative || number[exponentAt + 1] == '+' ? 2 : 1);
    if (std::from_chars(first, number.data() + number.size(), exponent).ec != std::errc())
      return isNegative;  // an exponent of 20 digits outweighs any digits
    if (isNegative) exponent = -exponent;
  }
  const auto point = std::min(digits.find('.'), digits.size());
  const auto first = digits.find_first_of("123456789");
  return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + exponent < 0;
}

// A number at the start of a text: where it ends, or null if there is none that a float holds.
const char* readReal(const char* at, const char* end, float& value) noexcept {
  if (at != end && *at == '+') {
    ++at;
    if (at != end && *at == '-') return nullptr;
  }
  const char* digits = at != end && *at == '-' ? at + 1 : at;
  // No names of numbers that are not finite.
  if (digits == end || !(ascii::isDigit(*digits) || *digits == '.')) return nullptr;
  const auto [last, error] = std::from_chars(at, end, value);
  if (error == std::errc()) return std::isfinite(value) ? last : nullptr;
  if (error != std::errc::result_out_of_range) return nullptr;
  // Too small and too large are reported alike, and the value is left as it was.
  double wide = 0;
  const bool isOutside = std::from_chars(at, end, wide).ec != std::errc();
  if (isOutside && !isTiny({digits, static_cast<std::size_t>(last - digits)})) return nullptr;
  value = static_cast<float>(wide);
  return std::isfinite(value) ? last : nullptr;
}

std::string cut(std::string_view text) {
  return std::string(text.substr(0, greatestFound)) + (text.size() > greatestFound ? "..." : "");
}

}  // namespace

std::string_view trimmed(std::string_view text) noexcept {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool isSame(std::string_view left, std::string_view right) noexcept {
  return ascii::equalsIgnoringCase(left, right);
}

TextLines::TextLines(std::string_view text) : text_(text) {
  if (text_.starts_with("\xEF\xBB\xBF")) text_.remove_prefix(3);
  refuseBytes();
}

void TextLines::refuseBytes() {
  if (text_.starts_with("\xFE\xFF") || text_.starts_with("\xFF\xFE")) return failCounted("UTF-16", "UTF-8");
  const auto nul = text_.find('\0');
  if (nul == std::string_view::npos) return;
  failAt(text_.substr(nul, 1), "a text without NUL bytes");
}

void TextLines::goTo(std::size_t position) {
  start_ = at_ = number_ = 0;
  do nextOfAny();
  while (lineEnd(start_) < position);
  at_ = position;
}

std::size_t TextLines::lineEnd(std::size_t from) const noexcept {
  while (from < text_.size() && !isLineEnd(text_[from])) ++from;
  return from;
}

std::size_t TextLines::wordEnd(std::size_t from) const noexcept {
  while (from < text_.size() && !isLineEnd(text_[from]) && !isBlank(text_[from])) ++from;
  return from;
}

void TextLines::skipBlanks() noexcept {
  while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
}

bool TextLines::nextOfAny() {
  if (fault_) return false;
  if (number_ > 0) {
    at_ = lineEnd(at_);
    if (at_ < text_.size()) at_ += text_.substr(at_).starts_with("\r\n") ? 2U : 1U;
  }
  // What follows the last line end is no line unless it has bytes.
  isPastEnd_ = at_ == text_.size();
  if (isPastEnd_) return false;
  start_ = at_;
  ++number_;
  return true;
}

bool TextLines::next() {
  if (std::exchange(isAgain_, false)) {
    at_ = start_;
    skipBlanks();
    return !fault_;
  }
  while (nextOfAny()) {
    skipBlanks();
    if (at_ == text_.size() || isLineEnd(text_[at_])) continue;
    if (text_[at_] != '#') return true;
    const auto end = lineEnd(at_);
    comments_.append(trimmed(text_.substr(at_ + 1, end - at_ - 1))).append(1, '\n');
    at_ = end;
  }
  return false;
}

bool TextLines::nextMustBe(std::string_view expected) {
  if (next()) return true;
  failCounted({}, expected);
  return false;
}

std::string_view TextLines::line() const noexcept {
  return trimmed(text_.substr(start_, lineEnd(start_) - start_));
}

std::string_view TextLines::rest() const noexcept {
  return trimmed(text_.substr(at_, lineEnd(at_) - at_));
}

std::string_view TextLines::peek() const noexcept {
  auto from = at_;
  while (from < text_.size() && isBlank(text_[from])) ++from;
  if (from < text_.size() && text_[from] == '#') return {};
  return text_.substr(from, wordEnd(from) - from);
}

std::string_view TextLines::word() noexcept {
  const auto found = peek();
  if (!found.empty()) at_ = static_cast<std::size_t>(found.data() + found.size() - text_.data());
  return found;
}

float TextLines::real() {
  skipBlanks();
  float value = 0;
  const char* const end = text_.data() + text_.size();
  const char* const last = readReal(text_.data() + at_, end, value);
  if (!last || (last != end && !isBlank(*last) && !isLineEnd(*last))) {
    failHere("a number");
    return 0;
  }
  at_ = static_cast<std::size_t>(last - text_.data());
  return value;
}

Rgb TextLines::color() {
  Rgb color;
  for (float& value : color) value = real();
  return color;
}

std::int64_t TextLines::integer() {
  const auto found = peek();
  auto digits = found;
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
  std::int64_t value = 0;
  const auto [last, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || last != digits.data() + digits.size()) {
    failHere("an integer");
    return 0;
  }
  word();
  return value;
}

std::size_t TextLines::count(std::size_t least, std::size_t greatest) {
  const auto found = peek();
  const auto value = integer();
  if (value >= static_cast<std::int64_t>(least) && value <= static_cast<std::int64_t>(greatest))
    return static_cast<std::size_t>(value);
  failAt(found, least == greatest
                    ? std::to_string(least)
                    : "a number from " + std::to_string(least) + " to " + std::to_string(greatest));
  return least;
}

std::size_t TextLines::equalEdges() {
  const auto sizes = line();
  const auto edge = count(leastSize, greatestEdge);
  for (int axis = 1; axis < 3; ++axis) {
    if (count(leastSize, greatestEdge) != edge) failAt(sizes, "three equal sizes");
  }
  return edge;
}

void TextLines::literal(std::string_view expected) {
  if (isSame(peek(), expected)) {
    word();
  } else {
    failHere(expected);
  }
}

void TextLines::end() {
  if (!peek().empty()) failHere("the end of the line");
}

std::size_t TextLines::mostRows(std::size_t bytesOfRow) const noexcept {
  return (text_.size() - start_ + 1) / bytesOfRow;
}

std::size_t TextLines::linesLeft() const noexcept {
  return static_cast<std::size_t>(
             std::count_if(text_.begin() + static_cast<std::ptrdiff_t>(start_), text_.end(), isLineEnd)) +
         1;
}

bool TextLines::nextOf(std::size_t rowsRead, std::size_t count) {
  if (next()) return true;
  failCounted(std::to_string(rowsRead) + " rows", std::to_string(count) + " rows");
  return false;
}

std::vector<Rgb> TextLines::rows(std::size_t count) {
  std::vector<Rgb> entries;
  // A size is only a promise: the rest of the text decides how much memory is used.
  entries.reserve(std::min(count, mostRows(6)));
  while (entries.size() < count && nextOf(entries.size(), count)) {
    entries.push_back(color());
    end();
  }
  return entries;
}

void TextLines::endOfText() {
  if (next()) failAt(line(), "the end of the file after the last row");
}

void TextLines::failAt(std::string_view found, std::string_view expected) {
  if (fault_) return;
  const auto at = found.empty() ? at_ : static_cast<std::size_t>(found.data() - text_.data());
  if (number_ == 0 || at < start_) goTo(at);
  stop({number_, at - start_ + 1, cut(found), std::string(expected)});
}

void TextLines::failCounted(std::string found, std::string_view expected) {
  stop({std::max<std::size_t>(number_, 1), 1, std::move(found), std::string(expected)});
}

void TextLines::stop(ParseError fault) {
  if (fault_) return;
  fault_ = std::move(fault);
  start_ = at_ = text_.size();
}

}  // namespace quillonic::lut
