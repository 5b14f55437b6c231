#include <quillonic/selection.hpp>

#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "error_of.hpp"

namespace quillonic::selection {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units

// Any criterion, from a seed.
class AnyCriterion {
 public:
  explicit AnyCriterion(unsigned seed) : random_(seed) {}

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
        return std::vector{Criterion::allOf, Criterion::anyOf,
                           Criterion::noneOf}[std::size_t(below(3))](members);
    }
  }

  std::uint64_t size() {
    constexpr std::uint64_t units[] = {1, 1000, 1024, 500'000, 1 << 20, 1'000'000'000, 1ULL << 50, 0, ~0ULL};
    return units[below(9)] * std::uint64_t(below(3000)) + std::uint64_t(below(3) - 1);
  }

 private:
  int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }

  std::string text() {
    constexpr std::string_view letters = "aB.*?[]\\ \t\n\"'(),<>=/\xC3\xA9";
    std::string text;
    for (int i = below(5); i > 0; --i) text += letters[std::size_t(below(int(letters.size())))];
    return text;
  }

  std::optional<Moment> moment() {
    const seconds times[] = {0s,
                             86400s * below(30000),
                             3600s * below(400'000),
                             -1s * below(2'000'000'000),
                             seconds::min(),
                             seconds::max()};
    const auto time = times[below(6)];
    if (below(4) == 0) return std::nullopt;
    return below(2) == 0 ? Moment(sys_seconds(time)) : Moment(local_seconds(time));
  }

  std::mt19937 random_;
};

std::string reread(std::string_view text) {
  const auto read = Criterion::fromText(text);
  return read ? read->text() : read.error().description();
}

TEST(Criterion, ReadsBackWhatItWrites) {
  const Calendar calendar(TimeZone::utc());
  for (unsigned seed = 0; seed < 3000; ++seed) {
    const auto criterion = AnyCriterion(seed)();
    const auto text = criterion.text();
    ASSERT_EQ(reread(text), text) << seed;
    ASSERT_TRUE(Criterion::fromText(text) == criterion) << text;
    EXPECT_TRUE(decode<Criterion>(encode(criterion)) == criterion);
    EXPECT_EQ(criterion.description().find('\n'), std::string::npos);
    const auto resolved = criterion.resolved(calendar, sys_days(2026y / 11 / 22));
    EXPECT_EQ(resolved.resolved(calendar), resolved) << criterion.text();
  }
}

TEST(Criterion, ReadsWhatPeopleWrite) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"", "everything"},
      {"  kind  audio,video, file\n", "kind file, video, audio"},
      {"kind video size>1GB", "kind video and size > 1 GB"},
      {"a or b",
       "line 1, column 1: found \"a\", expected a condition: kind extension name iname size created "
       "modified accessed hidden volume everything nothing"},
      {"hidden or kind link hidden", "hidden or kind link and hidden"},
      {"(hidden or kind link) and hidden", "(hidden or kind link) and hidden"},
      {"not (hidden or (kind link))", "not (hidden or kind link)"},
      {"not nothing", "everything"},
      {"extension .MOV,mov , 'a b'", "extension \"a b\", mov"},
      {"iname A*.MOV", "iname a*.mov"},
      {"name 'it''s'", "name \"it's\""},
      {"size = 700MiB", "size = 700 MiB"},
      {"size < 0", "size < 0 B"},
      {"size >= 0.1 KiB", "size >= 103 B"},
      {"size < 0.1 KiB", "size <= 102 B"},
      {"size 1.5 kB to 18446744073709551615", "size >= 1.5 kB"},
      {"modified last-24-hours", "modified last-24-hours"},
      {"modified 2028-02-29", "modified since 2028-02-29 before 2028-03-01"},
      {"created 2026-11-01 to 2026-11-07", "created since 2026-11-01 before 2026-11-08"},
      {"accessed since 2026-11-01T00:30+02:00", "accessed since 2026-10-31T22:30Z"},
      {"modified before 1980-01-01T00:00:02", "modified before 1980-01-01T00:00:02"},
      {"kind video\nand size > 1,5 GB", "line 2, column 13: found \",\", expected a decimal point instead"},
      {"size = 0.1 KiB", "line 1, column 6: found \"= 0.1 KiB\", expected a whole number of bytes"},
      {"size 2 GB to 1 GB hidden",
       "line 1, column 6: found \"2 GB to 1 GB\", expected the smaller size first"},
      {"modified 2026-02-29",
       "line 1, column 10: found \"2026-02-29\", expected a time frame such as today, "
       "this-week or last-7-days, a date, \"since\" or \"before\""},
      {"name \"abc", "line 1, column 6: found \"\"abc\", expected a quote that is closed"},
      {"(hidden", "line 1, column 8: found the end, expected \")\""},
      {"hidden)", "line 1, column 7: found \")\", expected \"and\", \"or\", another condition or the end"},
  };
  for (const auto& [typed, expected] : rows) EXPECT_EQ(reread(typed), expected) << typed;
  EXPECT_EQ(undecodedKey([] { return Criterion::from(CodedValue(std::string("kind"))); }), "");
}

TEST(Criterion, RefusesWhatIsNestedTooDeep) {
  auto criterion = Criterion(HiddenCondition{});
  for (std::size_t i = 0; i < Criterion::greatestDepth; ++i) criterion = Criterion::noneOf({criterion});
  EXPECT_EQ(Criterion::fromText(criterion.text()), criterion);
  EXPECT_THROW(Criterion::noneOf({criterion}), std::length_error);
  for (const std::string_view deep : {"not ", "("}) {
    std::string text;
    for (int i = 0; i < 100'000; ++i) text += deep;
    EXPECT_FALSE(Criterion::fromText(text + "hidden"));
  }
}

TEST(Criterion, DescribesItself) {
  const auto read = Criterion::fromText(
      "(kind video, rawvideo or extension mov) and modified today and not (size >= 1 GiB or iname a*)");
  EXPECT_EQ(read.value().description(),
            "(Kind: Video, Raw video or Extension: .mov) and Modified: Today and "
            "Not (Size: 1 GiB or more or Name in any case: a*)");
}

TEST(ByteSize, IsExact) {
  AnyCriterion any(1);
  for (int i = 0; i < 3000; ++i) {
    const auto size = any.size();
    ASSERT_EQ(byteSizeFromText(byteSizeText(size)), size) << byteSizeText(size);
  }
  const std::pair<std::string_view, std::optional<std::uint64_t>> rows[] = {
      {"1.5 GB", 1'500'000'000},
      {"700MiB", 734'003'200},
      {"0.0000000010 gb", 1},
      {"1.000000000000000 PB", 1'000'000'000'000'000},
      {"18446744073709551615", ~0ULL},
      {"18446.744073709551615 PB", ~0ULL},
      {"18446.744073709551616 PB", {}},
      {"0.0000000001 GB", {}},
      {"1.5", {}},
      {"", {}},
      {"GB", {}},
      {".5 GB", {}},
      {"1. GB", {}},
      {"1 G", {}},
      {"-1 B", {}},
      {"1  B", {}},
      {"1 ", {}},
      {"1e3 B", {}},
      {"1,5 GB", {}}};
  for (const auto& [text, bytes] : rows) EXPECT_EQ(byteSizeFromText(text), bytes) << text;
}

}  // namespace
}  // namespace quillonic::selection
