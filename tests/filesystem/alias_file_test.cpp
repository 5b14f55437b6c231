#include <quillonic/filesystem/alias_file.hpp>

#include <chrono>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillonic {
namespace {

using testing::ElementsAre;

std::string bytesOfHex(std::string_view hex) {
  std::string digits;
  for (const char c : hex) {
    if (c != ' ' && c != '\n') digits.push_back(c);
  }
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    bytes.push_back(static_cast<char>(std::strtol(digits.substr(i, 2).c_str(), nullptr, 16)));
  }
  return bytes;
}

// Volumes/CARD/A.MXF as a desktop writes it.
std::string exampleData() {
  return bytesOfHex(R"(
    74000000 0c000000 01060000 18000000 28000000 34000000 07000000 01010000
    566f6c75 6d657300 04000000 01010000 43415244 05000000 01010000 412e4d58
    46000000 0d000000 01010000 2f566f6c 756d6573 2f434152 44000000 04000000
    01010000 43415244 04000000 03030000 00040000 3c000000 feffffff 01000000
    00000000 04000000 04100000 04000000 00000000 02200000 44000000 00000000
    10200000 5c000000 00000000 10d00000 68000000 00000000)");
}

std::string exampleFile() {
  return bytesOfHex(R"(626f6f6b 00000000 6d61726b 00000000 38000000 38000000 b8000000 00000410
                       00000000 00000000 00000000 84d7c741 00000000 00000000)") +
         exampleData();
}

std::string exampleBookmark() {
  return bytesOfHex(R"(626f6f6b e8000000 00000410 30000000 00000000 00000000 00000000 00000000
                       00000000 00000000 00000000 00000000)") +
         exampleData();
}

void put(std::string& bytes, std::size_t at, std::uint32_t number) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(number >> (8 * i));
}

TEST(AliasFile, ReadsBothForms) {
  EXPECT_TRUE(AliasFile::isAliasFile(exampleFile().substr(0, 16)));
  EXPECT_FALSE(AliasFile::isAliasFile(exampleBookmark()));
  for (const auto& bytes : {exampleFile(), exampleBookmark()}) {
    const auto alias = AliasFile::fromBytes(bytes);
    ASSERT_TRUE(alias);
    EXPECT_THAT(alias->pathComponents, ElementsAre("Volumes", "CARD", "A.MXF"));
    EXPECT_EQ(alias->volumePath, "/Volumes/CARD");
    EXPECT_EQ(alias->volumeName, "CARD");
    EXPECT_EQ(alias->creationOptions, 1024);
    EXPECT_EQ(alias->relativeDirsUp, std::nullopt);
  }
}

AliasFile fullAlias() {
  return {
      .pathComponents = {"Volumes", "CARD e\u0301", std::string(255, 'x'), "\xff"},
      .targetProperties = AliasFile::Properties{AliasFile::regularFile, 0x21F},
      .targetCreationDate = AnyValue::Date(std::chrono::seconds(1700000000) + std::chrono::milliseconds(500)),
      .relativeDirsUp = 1,
      .relativeDirsDown = 2,
      .volumePath = "/Volumes/CARD e\u0301",
      .volumeName = "CARD e\u0301",
      .volumeUUID = "0A81F3B1-51D9-3335-B3E3-169C3640360D",
      .volumeProperties = AliasFile::Properties{AliasFile::local | AliasFile::external, 0x100013EF},
      .componentsBelowHome = INT64_MIN,
      .userName = "",
      .userID = 501,
      .creationOptions = 1024,
      .displayName = "A.MXF"};
}

TEST(AliasFile, ReadsWhatItWrote) {
  for (const auto& alias : {fullAlias(), AliasFile{}, AliasFile{.pathComponents = {"a"}}}) {
    const auto bytes = alias.bytes(AnyValue::Date::max());
    EXPECT_EQ(bytes.size() % 4, 0U);
    EXPECT_EQ(AliasFile::fromBytes(bytes), alias);
  }
}

TEST(AliasFile, RejectsNamesThatAreNotPlain) {
  for (const std::string name : {"", ".", "..", "a/b", "/"}) {
    EXPECT_EQ(AliasFile::fromBytes(AliasFile{.pathComponents = {"a", name}}.bytes()), std::nullopt) << name;
  }
  EXPECT_EQ(AliasFile::fromBytes(AliasFile{.pathComponents = {std::string("a\0b", 3)}}.bytes()),
            std::nullopt);
  const AliasFile tooMany{.pathComponents = std::vector<std::string>(513, "a")};
  EXPECT_EQ(AliasFile::fromBytes(tooMany.bytes()), std::nullopt);
  const AliasFile tooLong{.pathComponents = {std::string(1025, 'a')}};
  EXPECT_EQ(AliasFile::fromBytes(tooLong.bytes()), std::nullopt);
}

TEST(AliasFile, AcceptsWhatOtherWritersDo) {
  constexpr std::size_t header = 56;
  constexpr std::size_t table = header + 0x74;
  auto shorterLength = exampleFile();
  put(shorterLength, table, 12 * 4 - 8);
  EXPECT_TRUE(AliasFile::fromBytes(shorterLength));
  auto unknownKey = exampleFile();
  put(unknownKey, table + 20 + 36, 0x80000018);
  EXPECT_EQ(AliasFile::fromBytes(unknownKey)->creationOptions, std::nullopt);
  EXPECT_TRUE(AliasFile::fromBytes(exampleFile() + "padding"));
  auto longerHeader = exampleFile();
  longerHeader.insert(header, 8, '\0');
  put(longerHeader, 16, header + 8);
  EXPECT_EQ(AliasFile::fromBytes(longerHeader), AliasFile::fromBytes(exampleFile()));
}

TEST(AliasFile, EndsAtCirclesAndAtFiguresOutOfBounds) {
  constexpr std::size_t table = 56 + 0x74;
  struct Row {
    std::size_t at;
    std::uint32_t number;
  };
  const Row rows[] = {{table + 12, 0x74},
                      {56, 0xFFFFFFFC},
                      {56, 0xFFFFFFFF},
                      {table + 16, 0x15555555},
                      {table + 16, 0xFFFFFFFF},
                      {table + 12, 0xFFFFFFF0},
                      {table + 20 + 4, 0x74},
                      {16, 0xFFFFFFFF},
                      {24, 0xFFFFFFFF},
                      {56 + 4, 0xFFFFFFFF},
                      {56 + 12, 4},
                      {56 + 4, 13},
                      {table + 20 + 4, 0xFFFFFFF8}};
  for (const auto& [at, number] : rows) {
    auto bytes = exampleFile();
    put(bytes, at, number);
    EXPECT_EQ(AliasFile::fromBytes(bytes), std::nullopt) << at << " " << number;
  }
}

// Whatever is damaged, reading ends with a value or with none, and what is read can be written.
TEST(AliasFile, TakesAnyDamage) {
  for (const auto& whole : {exampleFile(), exampleBookmark()}) {
    for (std::size_t length = 0; length < whole.size(); ++length) {
      // A copy of exactly this length, so that a read behind its end is seen.
      const std::vector<char> prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_EQ(AliasFile::fromBytes({prefix.data(), prefix.size()}), std::nullopt) << length;
    }
    std::size_t values = 0;
    std::vector<char> changed(whole.begin(), whole.end());
    for (auto& byte : changed) {
      const char intact = byte;
      for (int value = 0; value < 256; ++value) {
        byte = static_cast<char>(value);
        const auto alias = AliasFile::fromBytes({changed.data(), changed.size()});
        values += alias ? 1U : 0U;
        if (value % 51 != 0 || !alias) continue;
        ASSERT_EQ(AliasFile::fromBytes(alias->bytes())->pathComponents, alias->pathComponents);
      }
      byte = intact;
    }
    EXPECT_GT(values, whole.size());
  }
}

TEST(AliasFile, TakesDamageInSeveralPlaces) {
  const auto whole = fullAlias().bytes();
  std::mt19937 random(3);
  for (int round = 0; round < 10000; ++round) {
    auto bytes = whole;
    for (auto n = 1 + random() % 4; n > 0; --n) {
      put(bytes, random() % (bytes.size() / 4) * 4, random() % 0x400);
    }
    if (const auto alias = AliasFile::fromBytes(bytes)) {
      ASSERT_EQ(AliasFile::fromBytes(alias->bytes())->pathComponents, alias->pathComponents);
    }
  }
}

}  // namespace
}  // namespace quillonic
