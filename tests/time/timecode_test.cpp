#include <quillonic/time.hpp>

#include <array>
#include <cinttypes>
#include <cstddef>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <string_view>

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
    int calls = 0;
    const auto count = [&](const TimecodeComponents&) { ++calls; };
    EXPECT_EQ(TimecodeComponents::timecodeHasProperForm(text, length, bounds, count), isProper) << text;
    EXPECT_EQ(calls, isProper ? 1 : 0) << "the closure hears of proper texts only";
  }
}

// Numbers of all orders of magnitude, to cover every length.
TEST(TimecodeComponents, PositiveNumbersSurviveTextAndCode) {
  std::mt19937_64 random(4);
  const auto number = [&] { return static_cast<std::int64_t>(random() >> (1 + random() % 63)); };
  for (int i = 0; i < 100000; ++i) {
    const TimecodeComponents components{number(), number(), number(), number(), random() % 2 == 0};
    const auto& [hours, minutes, seconds, frames, isDropFrame] = components;
    std::array<char, 100> label{};
    std::snprintf(label.data(), label.size(), "%02" PRId64 ":%02" PRId64 ":%02" PRId64 "%c%02" PRId64, hours,
                  minutes, seconds, isDropFrame ? ';' : ':', frames);
    ASSERT_EQ(components.timecodeString(), label.data());
    ASSERT_EQ(TimecodeComponents::sanitizedTimecode(label.data()), components);
    const bool isInBounds = minutes <= 60 && seconds <= 60;
    ASSERT_EQ(TimecodeComponents::fromTimecode(label.data()).has_value(), isInBounds) << label.data();
    ASSERT_EQ(decode<TimecodeComponents>(encode(components)), components);
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
  for (std::size_t broken = 0; broken < 2 * members.size(); ++broken) {
    const auto& key = members[broken / 2].key;
    CodedRecord record;
    for (const auto& member : members) {
      if (member.key != key) record.add(member.key, member.value);
    }
    if (broken % 2 == 1) record.add(key, std::string("1"));
    try {
      decode<TimecodeComponents>(record);
      ADD_FAILURE() << key;
    } catch (const DecodingError& error) {
      EXPECT_EQ(error.key(), key);
    }
  }
}

}  // namespace
}  // namespace quillonic
