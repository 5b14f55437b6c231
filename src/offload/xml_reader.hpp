// As much of XML as lists of values need: elements, attributes and texts. No document types, and so no
// entities but the five that every reader knows.
#pragma once

#include <quillonic/support/parse_error.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic::offload {

// What may be written between tags and in attributes.
std::string xmlEscaped(std::string_view text);

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
  bool skipMarkup();
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

}  // namespace quillonic::offload
