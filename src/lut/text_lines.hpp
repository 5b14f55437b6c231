// The significant lines of a table's file, word by word. The first fault ends the text: every later line and
// word is missing, every later number 0, so that readers need not look at each step.
#pragma once

#include <quillonic/lut/tables.hpp>
#include <quillonic/support/parse_error.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic::lut {

constexpr bool isBlank(char c) noexcept {
  return c == ' ' || c == '\t';
}
constexpr bool isLineEnd(char c) noexcept {
  return c == '\n' || c == '\r';
}

std::string_view trimmed(std::string_view text) noexcept;
// Whether two texts are the same but for the case of ASCII letters.
bool isSame(std::string_view left, std::string_view right) noexcept;

class TextLines {
 public:
  explicit TextLines(std::string_view text);

  // Goes to the next line that is neither empty nor a comment, and keeps the comments that it passes. The
  // rest of the line before is skipped. False after the last one.
  bool next();
  // Like it; a fault that says what was expected after the last one.
  bool nextMustBe(std::string_view expected);
  // Goes to the very next line.
  bool nextOfAny();
  // Lets the next call of `next` find this line again.
  void again() noexcept { isAgain_ = true; }

  // The first line of the text, even if it is a comment, without the spaces around it.
  std::string_view firstLine() const noexcept { return trimmed(text_.substr(0, lineEnd(0))); }
  // The whole line without the spaces around it.
  std::string_view line() const noexcept;
  // What follows the last word that was read, comments included, without the spaces around it.
  std::string_view rest() const noexcept;

  // The next word of the line without reading it; empty after the last one.
  std::string_view peek() const noexcept;
  std::string_view word() noexcept;

  // Read a word that must be what the name says; without it a fault.
  float real();
  Rgb color();
  std::int64_t integer();
  // A whole number in a range.
  std::size_t count(std::size_t least, std::size_t greatest);
  // The size of a cube, once for each axis.
  std::size_t equalEdges();
  // The word, whatever its case.
  void literal(std::string_view word);
  // Nothing but a comment.
  void end();

  // Rows of three numbers, one a line, all of which must be there.
  std::vector<Rgb> rows(std::size_t count);
  // The greatest number of rows that the unread text can hold, if each takes as many bytes, its end included.
  std::size_t mostRows(std::size_t bytesOfRow) const noexcept;
  // The lines from this one on, or a few more.
  std::size_t linesLeft() const noexcept;
  // A line is the next of `count`; otherwise a fault that tells how many there were.
  bool nextOf(std::size_t rowsRead, std::size_t count);
  // No significant line may follow.
  void endOfText();

  // Faults: at the next word, at a part of the text in this line or an earlier one, or at the last line that
  // was read, with what was counted.
  void failHere(std::string_view expected) { failAt(peek(), expected); }
  void failAt(std::string_view found, std::string_view expected);
  void failCounted(std::string found, std::string_view expected);

  // Whether a line was looked for after the last one.
  bool isPastEnd() const noexcept { return isPastEnd_; }
  const std::optional<ParseError>& fault() const noexcept { return fault_; }
  std::string& comments() noexcept { return comments_; }

 private:
  std::size_t lineEnd(std::size_t from) const noexcept;
  std::size_t wordEnd(std::size_t from) const noexcept;
  void skipBlanks() noexcept;
  void refuseBytes();
  void goTo(std::size_t position);
  void stop(ParseError fault);

  std::string_view text_;
  // Where the line starts, and the next byte to read.
  std::size_t start_ = 0;
  std::size_t at_ = 0;
  std::size_t number_ = 0;
  bool isAgain_ = false;
  bool isPastEnd_ = false;
  std::optional<ParseError> fault_;
  std::string comments_;
};

}  // namespace quillonic::lut
