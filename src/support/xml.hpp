// As much of XML as is needed: the root of any text, and lists of values. These have elements, attributes and
// texts, but no document type, and so no entities but the five that every reader knows.
#pragma once

#include <quillonic/support/parse_error.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic {

// What may be written between tags and in attributes.
std::string xmlEscaped(std::string_view text);

// The name of the root element without its prefix, after declarations, comments and a document type. Takes
// UTF-8 and UTF-16; nothing if the bytes are no XML, or end before the root. Linear time.
std::optional<std::string> xmlRoot(std::string_view bytes);

// Reads a text from front to back. Throws a `ParseError`.
class XmlReader {
 public:
  explicit XmlReader(std::string_view text);

  struct Element {
    std::string_view name;
    std::vector<std::pair<std::string_view, std::string>> attributes;
    // Where its tag begins.
    std::size_t offset = 0;
  };

  // Goes to the next element within the current one and enters it; false, after the current element's end,
  // when there is none. Texts on the way are skipped.
  bool enter(Element& element);
  // The text of the element that was entered last, which must have nothing else; leaves it.
  std::string leaveWithText();
  // Leaves the element that was entered last with all that is in it.
  void skip();
  // Requires that nothing follows.
  void expectEnd();

  [[noreturn]] void fail(std::size_t offset, std::string_view expected) const;
  std::size_t offset() const noexcept { return at_; }

 private:
  bool startsWith(std::string_view piece) const { return text_.substr(at_).starts_with(piece); }
  void skipSpace();
  bool skipAside();
  std::size_t find(std::string_view piece, std::string_view expected) const;
  std::string_view readName();
  std::string unescaped(std::size_t begin, std::size_t end) const;
  void readOpenTag(Element& element);
  void readCloseTag();

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<std::string_view> open_;
  // The element that was entered last has no content: "<a/>".
  bool isEmpty_ = false;
};

}  // namespace quillonic
