#include <quillonic/time.hpp>

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <string_view>

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
      {std::string(1000, '0') + "1:00:00:00", {1, 0, 0, 0}},
  };
  for (const auto& [text, components] : accepted) {
    EXPECT_EQ(TimecodeComponents::fromTimecode(text), components) << text;
  }
}

TEST(TimecodeComponents, RejectsEverythingElse) {
  const std::string rejected[] = {
      "",
      ":::",
      "00:00:00",
      "00:00:00:",
      ":00:00:00",
      "00::00:00",
      "00;00:00:00",
      "00:00;00:00",
      "0:00:00:00",
      "00:0:00:00",
      "00:00:0:00",
      "00:00:00:0",
      "00:61:00:00",
      "00:00:61:00",
      "  00:00:00:00",
      "00:00:00:00\n",
      "00:00:00:-1",
      "+1:00:00:00",
      "00:00:00.00",
      "aa:00:00:00",
      "00,00,00,00",
      "\u0660\u0660:00:00:00",
      std::string("00:00:00:00\0", 12),
      "00:00:00:00\xff",
      "9223372036854775808:00:00:00",
      "00:00:00:18446744073709551616",
      std::string(1 << 20, '9') + ":00:00:00",
  };
  for (const auto& text : rejected) {
    EXPECT_EQ(TimecodeComponents::fromTimecode(text), std::nullopt) << text.substr(0, 40);
  }
}

TEST(TimecodeComponents, TheFormIsCheckedAsFarAsDemanded) {
  int calls = 0;
  const auto hasForm = [&](std::string_view text, bool length, bool bounds) {
    return TimecodeComponents::timecodeHasProperForm(text, length, bounds,
                                                     [&](const TimecodeComponents&) { ++calls; });
  };
  EXPECT_TRUE(hasForm("0:0:0:0", false, true));
  EXPECT_TRUE(hasForm("00:99:99:00", true, false));
  EXPECT_EQ(calls, 2);
  EXPECT_FALSE(hasForm("0:0:0:0", true, false));
  EXPECT_FALSE(hasForm("0:99:0:0", false, true));
  EXPECT_FALSE(hasForm("0:0:0", false, false));
  EXPECT_EQ(calls, 2) << "the closure must not hear of a text that is turned down";
}

// Every label of a day at 30 frames a second, with both separators, is parsed and written back.
TEST(TimecodeComponents, EveryLabelOfADaySurvivesParseAndText) {
  std::array<char, 12> label{"00:00:00:00"};
  const auto put = [&](std::size_t at, std::int64_t number) {
    label[at] = static_cast<char>('0' + number / 10);
    label[at + 1] = static_cast<char>('0' + number % 10);
  };
  TimecodeComponents expected;
  auto& [h, m, s, f, drop] = expected;
  for (h = 0; h < 24; ++h) {
    put(0, h);
    for (m = 0; m < 60; ++m) {
      put(3, m);
      for (s = 0; s < 60; ++s) {
        put(6, s);
        for (f = 0; f < 30; ++f) {
          put(9, f);
          for (const bool isDrop : {false, true}) {
            drop = isDrop;
            label[8] = isDrop ? ';' : ':';
            const auto read = TimecodeComponents::fromTimecode(label.data());
            if (read != expected || read->timecodeString() != label.data()) FAIL() << label.data();
          }
        }
      }
    }
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
      {"-9223372036854775808:9223372036854775808:-9223372036854775809", {smallest, none, none, none, false}},
  };
  for (const auto& [text, split] : splits) {
    EXPECT_EQ(TimecodeComponents::decomposeTimecodeString(text), split) << text;
  }
}

TEST(TimecodeComponents, SanitisesAnyText) {
  const std::pair<std::string_view, TimecodeComponents> sanitised[] = {
      {"1:2:3;4", {1, 2, 3, 4, true}},  {"00:00:00", {}},
      {"  07:08:09:10", {0, 8, 9, 10}}, {"00:61:00;00", {0, 61, 0, 0, true}},
      {"-1:02:03:04", {-1, 2, 3, 4}},   {"noon", {}},
  };
  for (const auto& [text, components] : sanitised) {
    EXPECT_EQ(TimecodeComponents::sanitizedTimecode(text), components) << text;
  }
}

TEST(TimecodeComponents, WritesItsText) {
  EXPECT_EQ((TimecodeComponents{5, 10, 0, 23}).timecodeString(), "05:10:00:23");
  EXPECT_EQ((TimecodeComponents{123, 4, 5, 6, true}).timecodeString(), "123:04:05;06");
  EXPECT_EQ((TimecodeComponents{-1, -10, 9, 10}).timecodeString(), "0-1:0-10:09:10");
  EXPECT_EQ((TimecodeComponents{smallest, largest, smallest, largest}).timecodeString(),
            "0-9223372036854775808:9223372036854775807:0-9223372036854775808:9223372036854775807");
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
  std::string keys;
  for (const auto& [key, value] : coded.require<CodedRecord>().members()) {
    keys += key + " ";
    CodedRecord without;
    CodedRecord mistyped;
    for (const auto& member : coded.require<CodedRecord>().members()) {
      if (member.key != key) without.add(member.key, member.value);
      mistyped.add(member.key, member.key == key ? CodedValue(std::string("1")) : member.value);
    }
    for (const auto& record : {without, mistyped}) {
      try {
        decode<TimecodeComponents>(record);
        ADD_FAILURE() << key;
      } catch (const DecodingError& error) {
        EXPECT_EQ(error.key(), key);
      }
    }
  }
  EXPECT_EQ(keys, "hours minutes seconds frames isDropFrame ");
}

}  // namespace
}  // namespace quillonic
