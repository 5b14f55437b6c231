#include "support/xml.hpp"

#include <quillonic/support/enumeration.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <set>

#include "text/ascii.hpp"
#include "text/utf8.hpp"

namespace quillonic {
namespace {

constexpr std::size_t greatestDepth = 64;
constexpr std::string_view space = " \t\r\n";

constexpr bool isNameCharacter(char c) noexcept {
  return ascii::isLetter(c) || ascii::isDigit(c) || c == '_' || c == '-' || c == '.' || c == ':' ||
         static_cast<unsigned char>(c) >= 0x80;
}

constexpr bool isXmlScalar(char32_t scalar) noexcept {
  return scalar == 9 || scalar == 10 || scalar == 13 || (scalar >= 0x20 && scalar <= 0xD7FF) ||
         (scalar >= 0xE000 && scalar <= 0xFFFD) || (scalar >= 0x10000 && scalar <= 0x10FFFF);
}

std::size_t nameSize(std::string_view text) noexcept {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, isNameCharacter) - text.begin());
}

// What may be skipped anywhere between tags.
struct Aside {
  std::string_view begin;
  std::string_view end;
  std::string_view expected;
};
constexpr Aside asides[] = {{"<!--", "-->", "the end of a comment"},
                            {"<?", "?>", "the end of an instruction"}};

const Aside* asideAt(std::string_view text) noexcept {
  for (const auto& each : asides) {
    if (text.starts_with(each.begin)) return &each;
  }
  return nullptr;
}

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

struct Entity {
  std::string_view name;
  char character;
};
constexpr Entity entities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

// The character of "amp", "#65" or "#x41".
std::optional<char32_t> referred(std::string_view code) {
  if (const auto* entity = detail::rowWhere(entities, &Entity::name, code)) return entity->character;
  if (!code.starts_with('#')) return std::nullopt;
  const bool isHexadecimal = code.starts_with("#x");
  code.remove_prefix(isHexadecimal ? 2 : 1);
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(code.data(), code.data() + code.size(), number, isHexadecimal ? 16 : 10);
  const bool isRead = error == std::errc() && end == code.data() + code.size();
  return isRead && isXmlScalar(number) ? std::optional<char32_t>(number) : std::nullopt;
}

}  // namespace

std::string xmlEscaped(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (const auto* entity = detail::rowWhere(entities, &Entity::character, c)) {
      result.append("&").append(entity->name).append(";");
    } else {
      result.push_back(c);
    }
  }
  return result;
}

std::optional<std::string> xmlRoot(std::string_view bytes) {
  std::string narrow;
  auto rest = markup(bytes, narrow);
  for (;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(space), rest.size()));
    if (const auto* aside = asideAt(rest)) {
      rest = after(rest.substr(aside->begin.size()), aside->end);
    } else if (rest.starts_with("<!DOCTYPE")) {
      rest = afterType(rest);
    } else {
      break;
    }
  }
  if (!rest.starts_with('<')) return std::nullopt;
  rest.remove_prefix(1);
  const auto end = nameSize(rest);
  if (end == 0 || end == rest.size() ||
      (space.find(rest[end]) == std::string_view::npos && rest[end] != '>' && rest[end] != '/'))
    return std::nullopt;
  auto name = rest.substr(0, end);
  name.remove_prefix(name.find(':') + 1);
  return std::string(name);
}

XmlReader::XmlReader(std::string_view text) : text_(text) {
  if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
  for (std::size_t at = 0; at < text_.size();) {
    const auto [scalar, length, valid] = utf8::decode(text_.substr(at));
    if (!valid) fail(at, "UTF-8");
    if (scalar < 0x20 && space.find(text_[at]) == std::string_view::npos) fail(at, "no control character");
    at += length;
  }
}

void XmlReader::fail(std::size_t offset, std::string_view expected) const {
  const auto before = text_.substr(0, offset);
  const auto lineStart = before.rfind('\n') + 1;
  auto found = text_.substr(offset, 20);
  found = found.substr(0, found.find('\n'));
  throw ParseError{.line = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1,
                   .column = offset - lineStart + 1,
                   .found = std::string(found),
                   .expected = std::string(expected)};
}

void XmlReader::skipSpace() {
  at_ = std::min(text_.find_first_not_of(space, at_), text_.size());
}

std::size_t XmlReader::find(std::string_view piece, std::string_view expected) const {
  const auto found = text_.find(piece, at_);
  if (found == std::string_view::npos) fail(text_.size(), expected);
  return found;
}

// Skips one comment or processing instruction.
bool XmlReader::skipAside() {
  const auto* aside = asideAt(text_.substr(at_));
  if (aside == nullptr) return false;
  at_ += aside->begin.size();
  at_ = find(aside->end, aside->expected) + aside->end.size();
  return true;
}

std::string_view XmlReader::readName() {
  const auto name = text_.substr(at_, nameSize(text_.substr(at_)));
  if (name.empty()) fail(at_, "a name");
  at_ += name.size();
  return name;
}

std::string XmlReader::unescaped(std::size_t begin, std::size_t end) const {
  std::string result;
  for (auto at = begin; at < end;) {
    const auto mark = std::min(text_.substr(0, end).find('&', at), end);
    result.append(text_.substr(at, mark - at));
    if (mark == end) break;
    const auto code = text_.substr(mark + 1, std::min<std::size_t>(end - mark - 1, 10));
    const auto stop = code.find(';');
    const auto scalar = stop != std::string_view::npos ? referred(code.substr(0, stop)) : std::nullopt;
    if (!scalar) fail(mark, "a character reference");
    utf8::append(result, *scalar);
    at = mark + stop + 2;
  }
  return result;
}

void XmlReader::readOpenTag(Element& element) {
  element.offset = at_;
  element.attributes.clear();
  ++at_;
  element.name = readName();
  std::set<std::string_view> names;
  for (;;) {
    const auto before = at_;
    skipSpace();
    if (startsWith("/>") || startsWith(">")) break;
    if (at_ == before) fail(at_, "a space or the end of a tag");
    const auto nameOffset = at_;
    const auto name = readName();
    if (!names.insert(name).second) fail(nameOffset, "an attribute of another name");
    skipSpace();
    if (!startsWith("=")) fail(at_, "\"=\"");
    ++at_;
    skipSpace();
    if (!startsWith("\"") && !startsWith("'")) fail(at_, "a quoted value");
    const auto quote = text_.substr(at_++, 1);
    const auto end = find(quote, "the end of a value");
    if (text_.substr(at_, end - at_).find('<') != std::string_view::npos) fail(at_, "a value without \"<\"");
    element.attributes.emplace_back(name, unescaped(at_, end));
    at_ = end + 1;
  }
  isEmpty_ = startsWith("/>");
  at_ += isEmpty_ ? 2 : 1;
  if (open_.size() == greatestDepth) fail(element.offset, "less nesting");
  open_.push_back(element.name);
}

void XmlReader::readCloseTag() {
  if (isEmpty_) {
    isEmpty_ = false;
  } else {
    const auto begin = at_;
    at_ += 2;
    if (readName() != open_.back()) fail(begin, "the end of \"" + std::string(open_.back()) + "\"");
    skipSpace();
    if (!startsWith(">")) fail(at_, "\">\"");
    ++at_;
  }
  open_.pop_back();
}

bool XmlReader::enter(Element& element) {
  for (;;) {
    if (isEmpty_) {
      readCloseTag();
      return false;
    }
    const auto next = std::min(text_.find('<', at_), text_.size());
    if (open_.empty() && text_.substr(at_, next - at_).find_first_not_of(space) != std::string_view::npos) {
      fail(at_, "an element");
    }
    at_ = next;
    if (at_ == text_.size()) fail(at_, open_.empty() ? "an element" : "the end of an element");
    if (skipAside()) continue;
    if (startsWith("<![CDATA[") && !open_.empty()) {
      at_ = find("]]>", "the end of a literal text") + 3;
      continue;
    }
    if (startsWith("<!")) fail(at_, "no document type");
    if (startsWith("</")) {
      if (open_.empty()) fail(at_, "an element");
      readCloseTag();
      return false;
    }
    readOpenTag(element);
    return true;
  }
}

std::string XmlReader::leaveWithText() {
  std::string result;
  while (!isEmpty_) {
    const auto next = find("<", "the end of an element");
    result += unescaped(at_, next);
    at_ = next;
    if (startsWith("</")) break;
    if (startsWith("<![CDATA[")) {
      at_ += 9;
      const auto end = find("]]>", "the end of a literal text");
      result.append(text_.substr(at_, end - at_));
      at_ = end + 3;
    } else if (!skipAside()) {
      fail(at_, "a text");
    }
  }
  readCloseTag();
  return result;
}

void XmlReader::skip() {
  const auto depth = open_.size() - 1;
  Element inner;
  while (open_.size() > depth) static_cast<void>(enter(inner));
}

void XmlReader::expectEnd() {
  do skipSpace();
  while (skipAside());
  if (at_ != text_.size()) fail(at_, "nothing after the root");
}

}  // namespace quillonic
