// Splitting texts, and escaping bytes in them.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic::text {

// The pieces of a text between separators, one at a time. Two separators in a row enclose an empty piece.
class Pieces {
 public:
  constexpr Pieces(std::string_view text, char separator) noexcept : rest_(text), separator_(separator) {}

  // Nothing after the last piece.
  constexpr std::optional<std::string_view> next() noexcept {
    if (isOver_) return std::nullopt;
    const auto end = rest_.find(separator_);
    const auto piece = rest_.substr(0, end);
    isOver_ = end == std::string_view::npos;
    if (!isOver_) rest_.remove_prefix(end + 1);
    return piece;
  }

 private:
  std::string_view rest_;
  char separator_;
  bool isOver_ = false;
};

constexpr Pieces split(std::string_view text, char separator) noexcept {
  return {text, separator};
}

constexpr Pieces lines(std::string_view text) noexcept {
  return {text, '\n'};
}

constexpr bool hasPiece(std::string_view text, char separator, std::string_view wanted) noexcept {
  for (auto pieces = split(text, separator); const auto piece = pieces.next();) {
    if (*piece == wanted) return true;
  }
  return false;
}

// The text after a key such as "NAME=" in the first line that starts with it.
constexpr std::optional<std::string_view> valueInLines(std::string_view text, std::string_view key) noexcept {
  for (auto pieces = lines(text); const auto line = pieces.next();) {
    if (line->starts_with(key)) return line->substr(key.size());
  }
  return std::nullopt;
}

// Restores bytes written as a mark and a number of digits: "\040" with mark "\", 3 digits and base 8.
inline std::string unescaped(std::string_view text, std::string_view mark, std::size_t digits, int base) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto code = text.substr(at, mark.size() + digits);
    const char* const end = code.data() + code.size();
    std::uint8_t byte = 0;
    bool isEscape = code.size() == mark.size() + digits && code.starts_with(mark);
    if (isEscape) {
      const auto [last, error] = std::from_chars(code.data() + mark.size(), end, byte, base);
      isEscape = last == end && error == std::errc();
    }
    result.push_back(isEscape ? static_cast<char>(byte) : text[at]);
    if (isEscape) at += code.size() - 1;
  }
  return result;
}

// One line for people: line breaks and other control characters as "\n" and "\x1b".
inline std::string printable(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string line;
  line.reserve(text.size());
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n') {
      line += "\\n";
    } else if (byte < 0x20 || byte == 0x7F) {
      line.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 0xF]);
    } else {
      line.push_back(c);
    }
  }
  return line;
}

}  // namespace quillonic::text
