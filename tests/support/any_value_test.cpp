#include <quillonic/support/any_value.hpp>

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace quillonic {
namespace {

using namespace std::chrono_literals;
using std::filesystem::path;

struct Point {
  int x;
  int y;
  friend bool operator==(const Point&, const Point&) = default;
  friend std::string description(const Point& point) { return "(" + std::to_string(point.x) + ")"; }
};
enum class Kind { soft, hard };

// No two kinds mix, and every value equals its copies.
TEST(AnyValue, KeepsKindsApart) {
  const std::map<std::string, AnyValue> nested{{"a", 1}};
  const std::vector<AnyValue> values{AnyValue(), true,         false,      0,          1,
                                     1.5,        std::nan(""), "",         "1",        path("1"),
                                     Date(),     Point{1, 0},  Kind::soft, Kind::hard, nested};
  for (std::size_t i = 0; i < values.size(); ++i) {
    for (std::size_t j = 0; j < values.size(); ++j)
      EXPECT_EQ(values[i] == AnyValue(values[j]), i == j) << i << j;
  }
  EXPECT_EQ(AnyValue(Point{1, 0}), AnyValue(Point{1, 0}));
  EXPECT_EQ((AnyValue(nested).as<std::map<std::string, AnyValue>>()), nested);
  EXPECT_FALSE(AnyValue(1).as<bool>() || AnyValue(true).as<int>() || AnyValue("a").as<path>() ||
               AnyValue(Kind::hard).as<Point>());
  EXPECT_TRUE(std::isnan(AnyValue(std::nan("")).as<float>().value()) && !AnyValue(std::nan("")).as<int>());
  EXPECT_EQ(AnyValue("a").as<std::string_view>(), "a");
  EXPECT_EQ(AnyValue(std::string("a\0b", 3)).as<std::string>(), std::string("a\0b", 3));
  EXPECT_TRUE(AnyValue(static_cast<const char*>(nullptr)).empty());
  static_assert(!std::constructible_from<AnyValue, int*> && !std::constructible_from<AnyValue, char>);
}

TEST(AnyValue, HoldsDatesOfAnyPrecision) {
  EXPECT_EQ(AnyValue(std::chrono::sys_days(std::chrono::days(1))), AnyValue(Date(24h)));
  EXPECT_EQ(AnyValue(std::chrono::sys_seconds::max()).as<Date>(), Date::max());
  EXPECT_EQ(AnyValue(std::chrono::sys_seconds::min()).as<Date>(), Date::min());
}

TEST(AnyValue, DescribesItself) {
  std::string texts;
  for (const AnyValue& value :
       {AnyValue(), AnyValue(false), AnyValue(INT64_MIN), AnyValue(400.0), AnyValue("\xFF text"),
        AnyValue(path("/media/CARD")), AnyValue(Point{7, 0}), AnyValue(Date(1714982889500ms)),
        AnyValue(Date(-1s)), AnyValue(Date::min())}) {
    texts += value.description() + "\n";
  }
  EXPECT_EQ(texts,
            "\nfalse\n-9223372036854775808\n400.0\n\xFF "
            "text\n/media/"
            "CARD\n(7)\n2024-05-06T08:08:09.5Z\n1969-12-31T23:59:59Z\n1677-09-21T00:12:43.145224192Z\n");
}

}  // namespace
}  // namespace quillonic
