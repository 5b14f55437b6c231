#include <quillonic/tool_cli.hpp>

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillonic {
namespace {

using Line = ProgressLine;

TEST(ProgressLine, IsReadAsItWasWritten) {
  std::mt19937_64 random(7);
  const auto pick = [&](auto value) { return random() % 3 == 0 ? std::nullopt : std::optional(value); };
  for (int i = 0; i < 5000; ++i) {
    const Line line{.fraction = pick(static_cast<double>(random() % 10'001) / 10'000),
                    .frame = pick(static_cast<std::int64_t>(random() >> (1 + random() % 63))),
                    .speed = pick(std::ldexp(static_cast<double>(random() % 1000), -5)),
                    .secondsLeft = pick(static_cast<std::int64_t>(random() >> (1 + random() % 63))),
                    .message = random() % 2 == 0 ? "" : "50% of frame=1  message=x"};
    const auto text = line.text("Progress: ");
    const bool hasParts = line != Line();
    EXPECT_EQ(Line::fromText(text + "\r\n", " Progress:"), hasParts ? std::optional(line) : std::nullopt)
        << text;
    EXPECT_EQ(Line::fromText("progress:" + text.substr(10), "Progress: ").has_value(), hasParts);
    EXPECT_EQ(Line::fromText(text, "other"), std::nullopt);
  }
}

TEST(ProgressLine, IsReadLenientlyAndWrittenInOneForm) {
  const std::pair<std::string, std::string> rows[] = {
      {"42.5% frame=1020 speed=2.5x left=00:01:30 message=Audio",
       "42.5% frame=1020 speed=2.5x left=00:01:30 message=Audio"},
      {"  40.0%  fps=25 what frame=  12 speed= 1.5 left=75", "40% frame=12 speed=1.5x left=00:01:15"},
      {"140% frame=x speed=nanx left=1:x", "100%"},
      {"frame=-1 speed=x left=9223372036854775807:00 nan%", "none"},
      {"copying files", "none"}};
  for (const auto& [text, line] : rows) {
    const auto read = Line::fromText(text);
    EXPECT_EQ(read ? read->text() : "none", line);
  }
  EXPECT_EQ((Line{.fraction = 0.999999, .speed = 1, .message = " a\nb "}).text(),
            "99.99% speed=1x message=a b");
  EXPECT_EQ((Line{.fraction = NAN, .frame = -1, .speed = HUGE_VAL, .secondsLeft = -1}).text(), "");
}

}  // namespace
}  // namespace quillonic
