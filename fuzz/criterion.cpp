// Any text as a criterion, and any name compared with it. The text ends at the first NUL; the rest is a name.
// The same bytes as choices make a criterion that need not have a text that people write.
#include <quillonic/selection.hpp>

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using namespace quillonic::selection;

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units

// Any criterion, from bytes.
class AnyCriterion {
 public:
  explicit AnyCriterion(std::string_view bytes) : bytes_(bytes) {}

  Criterion operator()(int depth = 4) {
    switch (below(depth > 0 ? 14 : 8)) {
      case 0:
        return KindCondition{{ItemKind(below(5)), FileKind(below(17)), FileKind(below(17))}};
      case 1:
        return ExtensionCondition{{text(), text()}};
      case 2:
        return NameCondition{text(), below(2) == 0};
      case 3:
        return DateCondition{FileDate(below(3)), TimeFrame::lastHours(below(3))};
      case 4:
        return DateCondition{FileDate(below(3)), TimeSpan{moment(), moment()}};
      case 5:
        return SizeCondition{size(), size()};
      case 6:
        return HiddenCondition{};
      case 7:
        return VolumeCondition{text()};
      default:
        std::vector<Criterion> members;
        for (int i = below(4); i > 0; --i) members.push_back((*this)(depth - 1));
        return std::array{Criterion::allOf, Criterion::anyOf,
                          Criterion::noneOf}[std::size_t(below(3))](members);
    }
  }

  std::uint64_t size() {
    constexpr std::uint64_t units[] = {1, 1000, 1024, 500'000, 1 << 20, 1'000'000'000, 1ULL << 50, 0, ~0ULL};
    return units[below(9)] * std::uint64_t(below(3000)) + std::uint64_t(below(3) - 1);
  }

 private:
  // Takes two bytes for what one does not count.
  int below(int bound) {
    int number = 0;
    for (int greatest = 1; greatest < bound && !bytes_.empty(); greatest *= 256) {
      number = number * 256 + static_cast<unsigned char>(bytes_.front());
      bytes_.remove_prefix(1);
    }
    return number % bound;
  }

  std::string text() {
    constexpr std::string_view letters = "aB.*?[]\\ \t\n\"'(),<>=/\xC3\xA9";
    std::string text;
    for (int i = below(5); i > 0; --i) text += letters[std::size_t(below(int(letters.size())))];
    return text;
  }

  std::optional<Moment> moment() {
    const seconds times[] = {0s,
                             86400s * below(30000),
                             3600s * below(60000) * 7,
                             -30000s * below(60000),
                             seconds::min(),
                             seconds::max()};
    const auto time = times[below(6)];
    if (below(4) == 0) return std::nullopt;
    return below(2) == 0 ? Moment(sys_seconds(time)) : Moment(local_seconds(time));
  }

  std::string_view bytes_;
};

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

  const Calendar calendar(TimeZone::utc());
  const sys_seconds now = sys_days(2026y / 11 / 22);
  const auto resolved = criterion.resolved(calendar, now);
  require(resolved.resolved(calendar) == resolved, "what is resolved stays as it is");
  // Volumes would be looked up.
  if (text.find("volume") != std::string::npos) return;

  FileAttributes much = {{FileAttributeKey::filePathName, std::string(name)}};
  std::vector<FileAttributes> known = {FileAttributes(), much};
  much.set(FileAttributeKey::NSFileType, FileType::regular);
  much.set(FileAttributeKey::NSFileSize, std::uint64_t{1'000'000});
  much.set(FileAttributeKey::NSFileModificationDate, Date(now));
  const Selector selector(criterion, calendar, now);
  const Selector inverse(Criterion::noneOf({criterion}), calendar, now);
  known.push_back(much);
  for (const auto& entry : much) {
    known.push_back(much);
    known.back().remove(entry.key);
  }
  for (const auto& attributes : known) {
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
  AnyCriterion any(bytes);
  const auto size = any.size();
  require(byteSizeFromText(byteSizeText(size)) == size, "a size reads back");
  checkCriterion(any(), name);
  const auto read = Criterion::fromText(text);
  read ? checkCriterion(*read, name) : checkRefusal(text, read.error());
}

}  // namespace quillonic::fuzz
