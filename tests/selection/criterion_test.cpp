#include <quillonic/selection.hpp>

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

#include "error_of.hpp"

namespace quillonic::selection {
namespace {

std::string reread(std::string_view text) {
  const auto read = Criterion::fromText(text);
  return read ? read->text() : read.error().description();
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
      {"size <= 999999999 B", "size < 1 GB"},
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
      {"name \"a\n\x1b", "line 1, column 6: found \"\"a\\n\\x1b\", expected a quote that is closed"},
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
