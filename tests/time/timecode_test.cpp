#include <quillonic/time.hpp>

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>

#include "error_of.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(TimecodeComponents, ReadsStrictlyAndNothingElse) {
  const std::pair<std::string, TimecodeComponents> accepted[] = {
      {"00:00:00:00", TimecodeComponents::defaultNonDropTimecodeComponents},
      {"00:00:00;00", TimecodeComponents::defaultDropFrameTimecodeComponents},
      {"00:60:60:00", {0, 60, 60, 0}},
      {"123:45:06:0789", {123, 45, 6, 789}},
      {"01:02:03:04:05", {1, 2, 3, 405}},
      {"01:02:03:04;05;", {1, 2, 3, 405}},
      {"01:02:03;:4:5", {1, 2, 3, 45, true}},
      {"9223372036854775807:00:00:9223372036854775807", {largest, 0, 0, largest}},
      {std::string(1000, '0') + "1:00:00:" + std::string(1000, '0') + ":2", {1, 0, 0, 2}}};
  for (const auto& [text, components] : accepted) {
    EXPECT_EQ(TimecodeComponents::fromTimecode(text), components) << text;
  }
  auto rejected = split(
      "|:::|00:00:00|00:00:00:|:00:00:00|00::00:00|00;00:00:00|00:00;00:00|0:00:00:00|00:0:00:00|00:00:0:00|"
      "00:00:00:0|00:61:00:00|00:00:61:00|  00:00:00:00|00:00:00:00\n|00:00:00:-1|+1:00:00:00|00:00:00.00|"
      "aa:00:00:00|00,00,00,00|\u0660\u0660:00:00:00|00:00:00:00\xff|9223372036854775808:00:00:00|"
      "00:00:00:18446744073709551616",
      '|');
  rejected.emplace_back("00:00:00:00\0", 12);
  rejected.push_back(std::string(1 << 20, '9') + ":00:00:00");
  for (const auto& text : rejected) {
    EXPECT_EQ(TimecodeComponents::fromTimecode(text), std::nullopt) << text.substr(0, 40);
  }
}

TEST(TimecodeComponents, TheFormIsCheckedAsFarAsDemanded) {
  const std::tuple<std::string_view, bool, bool, bool> rows[] = {{"0:0:0:0", false, true, true},
                                                                 {"00:99:99:00", true, false, true},
                                                                 {"0:0:0:0", true, false, false},
                                                                 {"0:99:0:0", false, true, false},
                                                                 {"0:0:0", false, false, false}};
  for (const auto& [text, length, bounds, isProper] : rows) {
    EXPECT_EQ(TimecodeComponents::timecodeHasProperForm(text, length, bounds), isProper) << text;
  }
}

// The text, the result of a lenient split, and the sanitised text.
TEST(TimecodeComponents, SplitsAndSanitisesAnyText) {
  const auto none = std::nullopt;
  const std::tuple<std::string_view, TimecodeComponents::Decomposed, std::string_view> rows[] = {
      {"", {none, none, none, none, false}, "00:00:00:00"},
      {"00;00:00:00", {0, 0, 0, 0, false}, "00:00:00:00"},
      {"00:00;00;00", {0, 0, 0, 0, true}, "00:00:00;00"},
      {"00:00;00", {0, 0, 0, none, false}, "00:00:00:00"},
      {"1:2:3;4", {1, 2, 3, 4, true}, "01:02:03;04"},
      {"  07:08:09:10", {none, 8, 9, 10, false}, "00:08:09:10"},
      {"+1:-2:+-3;--4", {1, -2, none, none, true}, "01:0-2:00;00"},
      {"-:+:x:1.5", {none, none, none, none, false}, "00:00:00:00"},
      {"1:2:3;-:4:;5", {1, 2, 3, -45, true}, "01:02:03;0-45"},
      {"1:2:3:4-5", {1, 2, 3, none, false}, "01:02:03:00"},
      {"123:61:-10:9223372036854775807", {123, 61, -10, largest, false}, "123:61:0-10:9223372036854775807"},
      {"-9223372036854775808:9223372036854775808:-9223372036854775809",
       {smallest, none, none, none, false},
       "0-9223372036854775808:00:00:00"}};
  for (const auto& [text, split, sanitised] : rows) {
    EXPECT_EQ(TimecodeComponents::decomposeTimecodeString(text), split) << text;
    EXPECT_EQ(TimecodeComponents::sanitizedTimecode(text).timecodeString(), sanitised);
  }
}

TEST(TimecodeComponents, IsCodedUnderFixedKeysThatAreAllRequired) {
  const auto coded = encode(TimecodeComponents{1, 2, 3, 4, true});
  const auto& members = coded.require<CodedRecord>().members();
  EXPECT_EQ(joined(members, ' ', [](auto& member) { return member.key; }),
            "hours minutes seconds frames isDropFrame");
  for (const auto& [key, ignored] : members) {
    CodedRecord without;
    for (const auto& member : members) {
      if (member.key != key) without.add(member.key, member.value);
    }
    auto mistyped = without;
    mistyped.add(key, std::string("1"));
    EXPECT_EQ(undecodedKey([&] { return decode<TimecodeComponents>(without); }), key);
    EXPECT_EQ(undecodedKey([&] { return decode<TimecodeComponents>(mistyped); }), key);
  }
}

}  // namespace
}  // namespace quillonic
