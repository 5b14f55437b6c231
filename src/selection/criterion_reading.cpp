#include <quillonic/selection/criterion.hpp>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

#include "selection/criterion_words.hpp"
#include "selection/moments.hpp"
#include "selection/written_size.hpp"

namespace quillonic::selection {
namespace {

// Reads one text from its first word to its last. An operation that gives nothing has refused the text.
class CriterionReader {
 public:
  explicit CriterionReader(std::string_view text) : text_(text) { advance(); }

  Result<Criterion, ParseError> read() {
    if (token_.form == Form::end) return Criterion();
    auto criterion = disjunction(0);
    if (criterion && token_.form != Form::end)
      criterion = refuse(R"("and", "or", another condition or the end)");
    if (!criterion) return error_;
    return *std::move(criterion);
  }

 private:
  using Found = std::optional<Criterion>;

  enum class Form { word, quoted, symbol, openQuote, end };
  struct Token {
    Form form = Form::end;
    // Without quotes.
    std::string value;
    std::size_t start = 0;
  };

  struct Condition {
    std::string_view word;
    Found (CriterionReader::*read)();
  };
  static const std::array<Condition, 12> conditions;

  // Each level of a criterion is written with a "not" and a parenthesis at most.
  static constexpr std::size_t greatestLevel = 2 * Criterion::greatestDepth;
  static constexpr std::string_view tooDeep = "fewer levels of parentheses and \"not\"";

  // Tokens.

  void advance() {
    const auto start = std::min(text_.find_first_not_of(words::spaces, end_), text_.size());
    token_ = {Form::end, {}, start};
    lastEnd_ = end_;
    end_ = start;
    if (start == text_.size()) return;
    const char first = text_[start];
    if (first == '"' || first == '\'') return advanceQuoted(first);
    const auto separator = std::min(text_.find_first_of(words::separators, start), text_.size());
    if (separator > start) {
      take(Form::word, separator);
    } else {
      const bool isDouble = (first == '<' || first == '>') && text_.substr(start + 1).starts_with('=');
      take(Form::symbol, start + (isDouble ? 2 : 1));
    }
  }

  void take(Form form, std::size_t end) {
    token_.form = form;
    token_.value = text_.substr(end_, end - end_);
    end_ = end;
  }

  void advanceQuoted(char quote) {
    token_.form = Form::quoted;
    for (++end_;; ++end_) {
      const auto closing = text_.find(quote, end_);
      if (closing == std::string_view::npos) {
        token_.form = Form::openQuote;
        token_.value = text_.substr(token_.start);
        end_ = text_.size();
        return;
      }
      token_.value += text_.substr(end_, closing - end_);
      end_ = closing + 1;
      // A quote in quotes is doubled.
      if (!text_.substr(end_).starts_with(quote)) return;
      token_.value += quote;
    }
  }

  bool isAt(Form form, std::string_view value) const { return token_.form == form && token_.value == value; }

  bool takes(Form form, std::string_view value) {
    const bool isIt = isAt(form, value);
    if (isIt) advance();
    return isIt;
  }
  bool takesWord(std::string_view value) { return takes(Form::word, value); }

  // Refuses the next word.
  std::nullopt_t refuse(std::string_view expected) {
    return refusePart(token_.start, end_,
                      token_.form == Form::openQuote ? "a quote that is closed" : expected);
  }

  // Refuses what was read since a position.
  std::nullopt_t refuseFrom(std::size_t start, std::string_view expected) {
    return refusePart(start, lastEnd_, expected);
  }

  std::nullopt_t refusePart(std::size_t start, std::size_t end, std::string_view expected) {
    constexpr std::size_t longest = 40;
    const auto before = text_.substr(0, start);
    error_.line = 1 + static_cast<std::size_t>(std::ranges::count(before, '\n'));
    error_.column = start - (before.rfind('\n') + 1) + 1;
    error_.found = text_.substr(start, std::min(end - start, longest));
    error_.expected = expected;
    return std::nullopt;
  }

  // Combinations.

  Found combined(Criterion (*combine)(std::vector<Criterion>), std::vector<Criterion> members) {
    try {
      return combine(std::move(members));
    } catch (const std::length_error&) {
      return refuse(tooDeep);
    }
  }

  Found disjunction(std::size_t level) {
    std::vector<Criterion> members;
    do {
      auto member = conjunction(level);
      if (!member) return std::nullopt;
      members.push_back(*std::move(member));
    } while (takesWord(words::disjunction));
    return combined(Criterion::anyOf, std::move(members));
  }

  Found conjunction(std::size_t level) {
    std::vector<Criterion> members;
    do {
      auto member = single(level);
      if (!member) return std::nullopt;
      members.push_back(*std::move(member));
    } while (takesWord(words::conjunction) || isAt(Form::word, words::negation) || isAt(Form::symbol, "(") ||
             condition());
    return combined(Criterion::allOf, std::move(members));
  }

  Found single(std::size_t level) {
    if (level > greatestLevel) return refuse(tooDeep);
    if (takesWord(words::negation)) {
      auto member = single(level + 1);
      return member ? combined(Criterion::noneOf, {*std::move(member)}) : std::nullopt;
    }
    if (takes(Form::symbol, "(")) {
      auto inner = disjunction(level + 1);
      if (inner && !takes(Form::symbol, ")")) return refuse("\")\"");
      return inner;
    }
    const auto* found = condition();
    if (!found) {
      std::string expected = "a condition:";
      for (const auto& [word, read] : conditions) expected.append(" ").append(word);
      return refuse(expected);
    }
    // The word of a date says which.
    word_ = found->word;
    advance();
    return (this->*found->read)();
  }

  const Condition* condition() const {
    return token_.form == Form::word ? detail::rowWhere(conditions, &Condition::word, token_.value) : nullptr;
  }

  // Conditions, after their first words.

  Found everything() { return Criterion(); }
  Found nothing() { return Criterion::anyOf({}); }
  Found hidden() { return HiddenCondition{}; }

  std::optional<std::string> takenText(std::string_view expected) {
    if (token_.form != Form::word && token_.form != Form::quoted) return refuse(expected);
    auto text = std::exchange(token_.value, {});
    advance();
    return text;
  }

  Found kind() {
    KindCondition condition;
    do {
      const auto item = fromRawValue<ItemKind>(token_.value);
      const auto file = fromRawValue<FileKind>(token_.value);
      if (token_.form != Form::word || (!item && !file)) return refuse(kindExpected());
      condition.kinds.push_back(item ? Kind(*item) : Kind(*file));
      advance();
    } while (takes(Form::symbol, ","));
    return condition;
  }

  static std::string kindExpected() {
    std::string expected = "a kind:";
    for (const auto kind : allCases<ItemKind>()) expected.append(" ").append(rawValue(kind));
    for (const auto kind : allCases<FileKind>()) expected.append(" ").append(rawValue(kind));
    return expected;
  }

  Found extension() {
    ExtensionCondition condition;
    do {
      auto text = takenText("an extension");
      if (!text) return std::nullopt;
      condition.extensions.push_back(*std::move(text));
    } while (takes(Form::symbol, ","));
    return condition;
  }

  Found nameMatching(bool ignoresCase) {
    auto pattern = takenText("a pattern of names, in quotes if it has spaces, commas or the like");
    return pattern ? Found(NameCondition{*std::move(pattern), ignoresCase}) : std::nullopt;
  }
  Found name() { return nameMatching(false); }
  Found anyCaseName() { return nameMatching(true); }

  Found volume() {
    auto place = takenText("the path of a volume, in quotes if it has spaces");
    return place ? Found(VolumeCondition{*std::move(place)}) : std::nullopt;
  }

  std::optional<WrittenSize> takenSize() {
    const auto start = token_.start;
    constexpr std::string_view expected = "a size such as 1.5 GB, 700MiB or 0";
    if (token_.form != Form::word) return refuse(expected);
    const auto word = std::exchange(token_.value, {});
    const auto numberEnd = std::min(word.find_first_not_of("0123456789."), word.size());
    auto unit = word.substr(numberEnd);
    advance();
    if (isAt(Form::symbol, ",")) return refuse("a decimal point instead");
    if (unit.empty() && token_.form == Form::word && isSizeUnit(token_.value)) {
      unit = std::exchange(token_.value, {});
      advance();
    }
    const auto size = writtenSize(std::string_view(word).substr(0, numberEnd), unit);
    if (size) return size;
    return refuseFrom(start, expected);
  }

  Found size() {
    constexpr auto greatest = std::numeric_limits<std::uint64_t>::max();
    constexpr SizeCondition none{1, 0};
    const auto start = token_.start;
    if (token_.form != Form::symbol) {
      const auto least = takenSize();
      if (!least) return std::nullopt;
      if (!takesWord(words::to)) return refuse("\"to\" and a size, or one of < <= > >= = before the first");
      const auto most = takenSize();
      if (!most) return std::nullopt;
      if (most->bytes < least->bytes) return refuseFrom(start, "the smaller size first");
      return SizeCondition{least->bytes + (least->isWhole ? 0 : 1), most->bytes};
    }
    const auto comparison = token_.value;
    if (words::comparisons.find(comparison.front()) == std::string_view::npos)
      return refuse("one of < <= > >= =");
    advance();
    const auto size = takenSize();
    if (!size) return std::nullopt;
    const auto [bytes, isWhole] = *size;
    if (comparison == ">") return bytes == greatest ? none : SizeCondition{bytes + 1, greatest};
    if (comparison == ">=") return SizeCondition{bytes + (isWhole ? 0 : 1), greatest};
    if (comparison == "<=" || !isWhole) {
      return comparison == "=" ? refuseFrom(start, "a whole number of bytes")
                               : Found(SizeCondition{0, bytes});
    }
    if (comparison == "=") return SizeCondition{bytes, bytes};
    return bytes == 0 ? none : SizeCondition{0, bytes - 1};
  }

  std::optional<Moment> takenMoment() {
    const auto moment = token_.form == Form::word ? moments::read(token_.value) : std::nullopt;
    if (!moment) return refuse("a time such as 2026-11-22, 2026-11-22T10:00 or 2026-11-22T10:00:00Z");
    advance();
    return moment;
  }

  std::optional<std::chrono::local_days> takenDay() {
    const auto day = token_.form == Form::word ? moments::readDay(token_.value) : std::nullopt;
    if (!day) return refuse("a date such as 2026-11-22");
    advance();
    return day;
  }

  Found date() {
    DateCondition condition{*fromRawValue<FileDate>(word_), TimeSpan{}};
    auto& span = *std::get_if<TimeSpan>(&condition.when);
    if (takesWord(words::since)) {
      span.since = takenMoment();
      if (!span.since) return std::nullopt;
    }
    if (takesWord(words::before)) {
      span.before = takenMoment();
      if (!span.before) return std::nullopt;
    }
    if (span.since || span.before) return condition;
    if (token_.form == Form::word) {
      if (const auto frame = TimeFrame::fromText(token_.value)) {
        condition.when = *frame;
        advance();
        return condition;
      }
    }
    if (token_.form != Form::word || !moments::readDay(token_.value)) {
      return refuse(R"(a time frame such as today, this-week or last-7-days, a date, "since" or "before")");
    }
    const auto start = token_.start;
    const auto first = takenDay();
    const auto last = takesWord(words::to) ? takenDay() : first;
    if (!first || !last) return std::nullopt;
    if (*last < *first) return refuseFrom(start, "the earlier date first");
    span = {*first, std::chrono::local_seconds(*last + std::chrono::days(1))};
    return condition;
  }

  std::string_view text_;
  // Where the next word ends, and where the one before it does.
  std::size_t end_ = 0;
  std::size_t lastEnd_ = 0;
  Token token_;
  std::string_view word_;
  ParseError error_;
};

constexpr std::array<CriterionReader::Condition, 12> CriterionReader::conditions = {{
    {words::kind, &CriterionReader::kind},
    {words::extension, &CriterionReader::extension},
    {words::name, &CriterionReader::name},
    {words::anyCaseName, &CriterionReader::anyCaseName},
    {words::size, &CriterionReader::size},
    {rawValue(FileDate::created), &CriterionReader::date},
    {rawValue(FileDate::modified), &CriterionReader::date},
    {rawValue(FileDate::accessed), &CriterionReader::date},
    {words::hidden, &CriterionReader::hidden},
    {words::volume, &CriterionReader::volume},
    {words::everything, &CriterionReader::everything},
    {words::nothing, &CriterionReader::nothing},
}};

}  // namespace

Result<Criterion, ParseError> Criterion::fromText(std::string_view text) {
  return CriterionReader(text).read();
}

}  // namespace quillonic::selection
