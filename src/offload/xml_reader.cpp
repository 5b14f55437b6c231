#include "offload/xml_reader.hpp"

#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <set>

#include "text/ascii.hpp"
#include "text/number_text.hpp"
#include "text/utf8.hpp"

namespace quillonic::offload {
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

struct Entity {
  std::string_view name;
  char character;
};
constexpr Entity entities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

// The character of "#65" or "#x41".
std::optional<char32_t> numbered(std::string_view code) {
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
    const auto* entity = std::ranges::find(entities, c, &Entity::character);
    if (entity == std::end(entities)) {
      result.push_back(c);
    } else {
      result.append("&").append(entity->name).append(";");
    }
  }
  return result;
}

XmlReader::XmlReader(std::string_view text) : text_(text) {
  if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
  if (!isUtf8(text_)) {
    std::size_t bad = 0;
    while (utf8::decode(text_.substr(bad)).valid) bad += utf8::decode(text_.substr(bad)).length;
    fail(bad, "UTF-8");
  }
  const auto isControl = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && space.find(c) == std::string_view::npos;
  };
  if (const auto* bad = std::ranges::find_if(text_, isControl); bad != text_.end()) {
    fail(static_cast<std::size_t>(bad - text_.begin()), "no control character");
  }
}

void XmlReader::fail(std::size_t offset, std::string_view expected) const {
  const auto before = text_.substr(0, offset);
  const auto lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
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
bool XmlReader::skipMarkup() {
  if (startsWith("<!--")) {
    at_ += 4;
    at_ = find("-->", "the end of a comment") + 3;
    return true;
  }
  if (startsWith("<?")) {
    at_ = find("?>", "the end of an instruction") + 2;
    return true;
  }
  return false;
}

std::string_view XmlReader::readName() {
  const auto begin = at_;
  while (at_ < text_.size() && isNameCharacter(text_[at_])) ++at_;
  if (at_ == begin) fail(begin, "a name");
  return text_.substr(begin, at_ - begin);
}

std::string XmlReader::unescaped(std::size_t begin, std::size_t end) const {
  std::string result;
  for (auto at = begin; at < end;) {
    const auto mark = std::min(text_.substr(0, end).find('&', at), end);
    result.append(text_.substr(at, mark - at));
    if (mark == end) break;
    const auto code = text_.substr(mark + 1, std::min<std::size_t>(end - mark - 1, 10));
    const auto stop = code.find(';');
    const auto name = code.substr(0, stop);
    const auto* entity = std::ranges::find(entities, name, &Entity::name);
    if (stop != std::string_view::npos && entity != std::end(entities)) {
      result.push_back(entity->character);
    } else if (const auto scalar =
                   stop != std::string_view::npos && name.starts_with('#') ? numbered(name) : std::nullopt) {
      utf8::append(result, *scalar);
    } else {
      fail(mark, "a character reference");
    }
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
    if (skipMarkup()) continue;
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
    } else if (!skipMarkup()) {
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
  while (skipMarkup());
  if (at_ != text_.size()) fail(at_, "nothing after the root");
}

}  // namespace quillonic::offload
