// Any text as a criterion, and any name compared with it. The text ends at the first NUL; the rest is a name.
#include <quillonic/selection.hpp>

#include <string>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using namespace quillonic::selection;

void checkRefusal(std::string_view text, const ParseError& error) {
  const auto lineStart = [&] {
    std::size_t start = 0;
    for (std::size_t line = 1; line < error.line; ++line) start = text.find('\n', start) + 1;
    return start;
  };
  const auto at = lineStart() + error.column - 1;
  require(at <= text.size(), "an error is within the text");
  require(text.substr(at).starts_with(error.found), "an error tells what is at its place");
  require(!error.expected.empty(), "an error tells what was expected");
}

void checkCriterion(const Criterion& criterion, std::string_view name) {
  const auto text = criterion.text();
  const auto read = Criterion::fromText(text);
  require(read && *read == criterion, "what is written reads back");
  require(read && read->text() == text, "what is read back is written the same");
  require(decode<Criterion>(encode(criterion)) == criterion, "coding keeps a criterion");
  require(criterion.description().find('\n') == std::string::npos, "a description is one line");

  // Volumes would be looked up.
  if (text.find("volume") != std::string::npos) return;
  const Calendar calendar(TimeZone::utc());
  const std::chrono::sys_seconds now = std::chrono::sys_days(std::chrono::year(2026) / 11 / 22);
  const auto resolved = criterion.resolved(calendar, now);
  require(resolved.resolved(calendar) == resolved, "what is resolved stays as it is");

  const FileAttributes little = {{FileAttributeKey::filePathName, std::string(name)}};
  auto much = little;
  much.set(FileAttributeKey::NSFileType, FileType::regular);
  much.set(FileAttributeKey::NSFileSize, std::uint64_t{1'000'000});
  much.set(FileAttributeKey::NSFileModificationDate, Date(now));
  const Selector selector(criterion, calendar, now);
  const Selector inverse(Criterion::noneOf({criterion}), calendar, now);
  for (const auto& attributes : {little, much}) {
    const auto answer = selector.answer(attributes);
    const auto opposite = answer == Answer::yes ? Answer::no : answer == Answer::no ? Answer::yes : answer;
    require(inverse.answer(attributes) == opposite, "what is not chosen is chosen by the opposite");
    require(answer == Answer::unknown || selector.answer(much) == answer,
            "more knowledge overturns no answer");
  }
}

}  // namespace

void run(std::string_view bytes) {
  const auto end = bytes.find('\0');
  const auto text = bytes.substr(0, end);
  const auto name = end == std::string_view::npos ? bytes : bytes.substr(end + 1);
  const auto read = Criterion::fromText(text);
  if (!read) return checkRefusal(text, read.error());
  checkCriterion(*read, name);

  if (const auto size = byteSizeFromText(text)) {
    require(byteSizeFromText(byteSizeText(*size)) == size, "a size reads back");
  }
}

}  // namespace quillonic::fuzz
