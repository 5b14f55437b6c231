#include <quillonic/filesystem/alias_file.hpp>

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "temporary_folder.hpp"

namespace quillonic {
namespace {

// Volumes/CARD/A.MXF as a desktop writes it, as a file and as plain bookmark data.
const auto exampleFile = contentOf(ALIAS_FILES "/example");
const auto exampleBookmark = contentOf(ALIAS_FILES "/example_bookmark");
constexpr std::size_t header = 56;
constexpr std::size_t table = header + 0x74;

void put(std::string& bytes, std::size_t at, std::uint32_t number) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(number >> (8 * i));
}

std::string changed(std::string bytes, std::size_t at, std::uint32_t number) {
  put(bytes, at, number);
  return bytes;
}

TEST(AliasFile, ReadsBothFormsAsOtherWritersLeaveThem) {
  ASSERT_EQ(exampleFile.size(), 240U);
  EXPECT_TRUE(AliasFile::isAliasFile(exampleFile.substr(0, 16)));
  EXPECT_FALSE(AliasFile::isAliasFile(exampleBookmark));
  const AliasFile expected{.pathComponents = {"Volumes", "CARD", "A.MXF"},
                           .volumePath = "/Volumes/CARD",
                           .volumeName = "CARD",
                           .creationOptions = 1024};
  auto longerHeader = changed(exampleFile, 16, header + 8);
  longerHeader.insert(header, 8, '\0');
  const auto shorterTable = changed(exampleFile, table, 12 * 4 - 8);
  for (const auto& bytes :
       {exampleFile, exampleBookmark, exampleFile + "padding", longerHeader, shorterTable})
    EXPECT_EQ(AliasFile::fromBytes(bytes), expected);
  const auto unknownKey = changed(exampleFile, table + 20 + 36, 0x80000018);
  EXPECT_EQ(AliasFile::fromBytes(unknownKey)->creationOptions, std::nullopt);
}

AliasFile fullAlias() {
  return {.pathComponents = {"Volumes", "CARD e\u0301", std::string(255, 'x'), "\xff"},
          .targetProperties = AliasFile::Properties{AliasFile::regularFile, 0x21F},
          .targetCreationDate = Date(std::chrono::milliseconds(1700000000500)),
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
    for (const auto madeAt : {Date::min(), Date::max()})
      EXPECT_EQ(AliasFile::fromBytes(alias.bytes(madeAt)), alias);
  }
}

TEST(AliasFile, RejectsNamesThatAreNotPlain) {
  for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                  std::string("a\0b", 3), std::string(1025, 'a')}) {
    EXPECT_EQ(AliasFile::fromBytes(AliasFile{.pathComponents = {"a", name}}.bytes()), std::nullopt) << name;
  }
  const AliasFile tooMany{.pathComponents = std::vector<std::string>(513, "a")};
  EXPECT_EQ(AliasFile::fromBytes(tooMany.bytes()), std::nullopt);
}

// Whatever is damaged, reading ends with a value or with none, and what is read can be written. The bytes end
// with their block, so that reading past their end is detected.
bool isRead(const std::vector<char>& bytes, bool writes) {
  const auto alias = AliasFile::fromBytes({bytes.data(), bytes.size()});
  if (alias && writes) {
    EXPECT_EQ(AliasFile::fromBytes(alias->bytes())->pathComponents, alias->pathComponents);
  }
  return alias.has_value();
}

TEST(AliasFile, TakesAnyDamage) {
  for (const auto& whole : {exampleFile, exampleBookmark}) {
    std::size_t values = 0;
    std::vector<char> damaged(whole.begin(), whole.end());
    for (std::size_t at = 0; at < whole.size(); ++at) {
      EXPECT_FALSE(isRead({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(at)}, true)) << at;
      for (int value = 0; value < 256; ++value) {
        damaged[at] = static_cast<char>(value);
        values += isRead(damaged, value % 51 == 0) ? 1U : 0U;
      }
      damaged[at] = whole[at];
    }
    EXPECT_GT(values, whole.size());
  }
  const auto circle = changed(changed(exampleFile, table + 12, table - header), table + 16, 0);
  EXPECT_FALSE(isRead({circle.begin(), circle.end()}, false));
  std::mt19937 random(3);
  const auto full = fullAlias().bytes();
  for (int round = 0; round < 10000; ++round) {
    auto bytes = full;
    for (auto n = 1 + random() % 4; n > 0; --n) {
      // Offsets within the file, and some that wrap around.
      put(bytes, random() % (bytes.size() / 4) * 4, static_cast<std::uint32_t>(random() % 0x440) - 0x40);
    }
    isRead({bytes.begin(), bytes.end()}, round % 8 == 0);
  }
}

}  // namespace
}  // namespace quillonic
