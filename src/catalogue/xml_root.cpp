#include "catalogue/xml_root.hpp"

#include <algorithm>

#include "text/ascii.hpp"

namespace quillonic::catalogue {
namespace {

constexpr std::string_view spaces = " \t\r\n";

// Markup is ASCII: of UTF-16, half of the bytes tell it.
std::string_view markup(std::string_view bytes, std::string& narrow) {
  const bool isLittleEndian = bytes.starts_with("\xFF\xFE");
  const bool isBigEndian = bytes.starts_with("\xFE\xFF");
  if (bytes.starts_with("\xEF\xBB\xBF")) return bytes.substr(3);
  if (!isLittleEndian && !isBigEndian) return bytes;
  for (std::size_t at = 2; at + 1 < bytes.size(); at += 2)
    narrow.push_back(bytes[at + (isBigEndian ? 1 : 0)]);
  return narrow;
}

// What follows the first `end` in a text; empty when there is none.
std::string_view after(std::string_view text, std::string_view end) noexcept {
  const auto at = text.find(end);
  return at == std::string_view::npos ? std::string_view() : text.substr(at + end.size());
}

// What follows a document type, whose inner declarations are in brackets.
std::string_view afterType(std::string_view text) noexcept {
  const auto end = text.find_first_of("[>");
  if (end == std::string_view::npos) return {};
  return text[end] == '>' ? text.substr(end + 1) : after(after(text.substr(end), "]"), ">");
}

bool isNameByte(char c) noexcept {
  return ascii::isLetter(c) || ascii::isDigit(c) || c == '_' || c == '-' || c == '.' || c == ':' ||
         (static_cast<unsigned char>(c) & 0x80U) != 0;
}

}  // namespace

std::optional<std::string> xmlRoot(std::string_view bytes) {
  std::string narrow;
  auto rest = markup(bytes, narrow);
  for (;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(spaces), rest.size()));
    if (rest.starts_with("<?")) {
      rest = after(rest, "?>");
    } else if (rest.starts_with("<!--")) {
      rest = after(rest, "-->");
    } else if (rest.starts_with("<!DOCTYPE")) {
      rest = afterType(rest);
    } else {
      break;
    }
  }
  if (!rest.starts_with('<')) return std::nullopt;
  rest.remove_prefix(1);
  const auto end = static_cast<std::size_t>(std::ranges::find_if_not(rest, isNameByte) - rest.begin());
  if (end == 0 || end == rest.size() ||
      (spaces.find(rest[end]) == std::string_view::npos && rest[end] != '>' && rest[end] != '/'))
    return std::nullopt;
  auto name = rest.substr(0, end);
  name.remove_prefix(name.find(':') + 1);
  return std::string(name);
}

}  // namespace quillonic::catalogue
