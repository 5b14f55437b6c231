#include <quillonic/time.hpp>

#include <cstddef>
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

TEST(TimecodeComponents, AcceptsStrictTimecodes) {
  const std::pair<std::string, TimecodeComponents> accepted[] = {
      {"00:00:00:00", TimecodeComponents::defaultNonDropTimecodeComponents},
      {"00:00:00;00", TimecodeComponents::defaultDropFrameTimecodeComponents},
      {"00:60:60:00", {0, 60, 60, 0}},
      {"123:45:06:0789", {123, 45, 6, 789}},
      {"01:02:03:04:05", {1, 2, 3, 405}},
      {"01:02:03:04;05;", {1, 2, 3, 405}},
      {"01:02:03;:4:5", {1, 2, 3, 45, true}},
      {"9223372036854775807:00:00:9223372036854775807", {largest, 0, 0, largest}},
      {std::string(1000, '0') + "1:00:00:00", {1, 0, 0, 0}}};
  for (const auto& [text, components] : accepted) {
    EXPECT_EQ(TimecodeComponents::fromTimecode(text), components) << text;
  }
}

TEST(TimecodeComponents, RejectsEverythingElse) {
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

// Every label of a day at 30 frames a second, with both separators, is parsed and written back.
TEST(TimecodeComponents, EveryLabelOfADaySurvivesParseAndText) {
  std::string label = "00:00:00:00";
  const auto put = [&](std::size_t at, std::int64_t number) {
    label[at] = static_cast<char>('0' + number / 10);
    label[at + 1] = static_cast<char>('0' + number % 10);
  };
  for (std::int64_t n = 0; n < std::int64_t{24} * 60 * 60 * 30 * 2; ++n) {
    const auto seconds = n / 60;
    const TimecodeComponents expected{seconds / 3600, seconds / 60 % 60, seconds % 60, n / 2 % 30,
                                      n % 2 == 1};
    put(0, expected.hours);
    put(3, expected.minutes);
    put(6, expected.seconds);
    put(9, expected.frames);
    label[8] = expected.isDropFrame ? ';' : ':';
    const auto read = TimecodeComponents::fromTimecode(label);
    if (read != expected || read->timecodeString() != label) FAIL() << label;
  }
}

TEST(TimecodeComponents, SplitsLeniently) {
  using Decomposed = TimecodeComponents::Decomposed;
  const auto none = std::nullopt;
  const std::pair<std::string_view, Decomposed> splits[] = {
      {"", {none, none, none, none, false}},
      {"00;00:00:00", {0, 0, 0, 0, false}},
      {"00:00;00;00", {0, 0, 0, 0, true}},
      {"00:00:00", {0, 0, 0, none, false}},
      {"00:00;00", {0, 0, 0, none, false}},
      {"  00:00:00:00", {none, 0, 0, 0, false}},
      {"+1:-2:+-3;--4", {1, -2, none, none, true}},
      {"-:+:x:1.5", {none, none, none, none, false}},
      {"1:2:3;-:4:;5", {1, 2, 3, -45, true}},
      {"1:2:3:4-5", {1, 2, 3, none, false}},
      {"-9223372036854775808:9223372036854775808:-9223372036854775809", {smallest, none, none, none, false}}};
  for (const auto& [text, split] : splits) {
    EXPECT_EQ(TimecodeComponents::decomposeTimecodeString(text), split) << text;
  }
}

TEST(TimecodeComponents, SanitisesAnyText) {
  // The text, and what it is written as once it is sanitised.
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"1:2:3;4", "01:02:03;04"},
      {"00:00:00", "00:00:00:00"},
      {"  07:08:09:10", "00:08:09:10"},
      {"00:61:00;00", "00:61:00;00"},
      {"-1:02:-10:04", "0-1:02:0-10:04"},
      {"noon", "00:00:00:00"},
      {"123:4:5:6", "123:04:05:06"},
      {"-9223372036854775808:9223372036854775807:0:0", "0-9223372036854775808:9223372036854775807:00:00"}};
  for (const auto& [text, sanitised] : rows) {
    EXPECT_EQ(TimecodeComponents::sanitizedTimecode(text).timecodeString(), sanitised);
  }
}

// Sizes of all orders, so that every length of number is met.
TEST(TimecodeComponents, ATextOfPositiveNumbersIsSanitisedToTheSameNumbers) {
  std::mt19937_64 random(4);
  const auto number = [&] { return static_cast<std::int64_t>(random() >> (1 + random() % 63)); };
  for (int i = 0; i < 10000; ++i) {
    const TimecodeComponents components{number(), number(), number(), number(), random() % 2 == 0};
    EXPECT_EQ(TimecodeComponents::sanitizedTimecode(components.timecodeString()), components);
    EXPECT_EQ(decode<TimecodeComponents>(encode(components)), components);
  }
}

TEST(TimecodeComponents, IsCodedUnderFixedKeysThatAreAllRequired) {
  const auto coded = encode(TimecodeComponents{1, 2, 3, 4, true});
  const auto& members = coded.require<CodedRecord>().members();
  EXPECT_EQ(joined(members, ' ', [](auto& member) { return member.key; }),
            "hours minutes seconds frames isDropFrame");
  for (const auto& broken : members) {
    for (const bool mistyped : {false, true}) {
      CodedRecord record;
      for (const auto& member : members) {
        if (member.key != broken.key) record.add(member.key, member.value);
      }
      if (mistyped) record.add(broken.key, std::string("1"));
      try {
        decode<TimecodeComponents>(record);
        ADD_FAILURE() << broken.key;
      } catch (const DecodingError& error) {
        EXPECT_EQ(error.key(), broken.key);
      }
    }
  }
}

}  // namespace
}  // namespace quillonic
