#include <quillonic/filesystem/alias_file.hpp>

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

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

TEST(AliasFile, HoldsEveryValue) {
  const AliasFile expected{.pathComponents = {"Volumes", "CARD", "A.MXF"},
                           .targetProperties = AliasFile::Properties{AliasFile::regularFile, 0x21F},
                           .targetCreationDate = Date(std::chrono::milliseconds(1700000000500)),
                           .relativeDirsUp = 1,
                           .relativeDirsDown = 1,
                           .volumePath = "/Volumes/CARD",
                           .volumeName = "CARD e\u0301",
                           .volumeUUID = "0A81F3B1-51D9-3335-B3E3-169C3640360D",
                           .volumeProperties = AliasFile::Properties{0x101, 0x21F},
                           .componentsBelowHome = 2,
                           .userName = "user",
                           .userID = 501,
                           .creationOptions = 1024,
                           .displayName = "A.MXF"};
  EXPECT_EQ(AliasFile::fromBytes(contentOf(ALIAS_FILES "/every_value")), expected);
}

TEST(AliasFile, RejectsNamesThatAreNotPlain) {
  for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                  std::string("a\0b", 3), std::string(1025, 'a')}) {
    EXPECT_EQ(AliasFile::fromBytes(AliasFile{.pathComponents = {"a", name}}.bytes()), std::nullopt) << name;
  }
  const AliasFile tooMany{.pathComponents = std::vector<std::string>(513, "a")};
  EXPECT_EQ(AliasFile::fromBytes(tooMany.bytes()), std::nullopt);
}

// Whatever is damaged, reading ends with a value or with none, and what is read can be written. The bytes
// have nothing behind them, so that a read behind their end is seen.
TEST(AliasFile, TakesAnyDamage) {
  std::mt19937 random(3);
  std::size_t values = 0;
  for (const auto& whole : {exampleFile, exampleBookmark, contentOf(ALIAS_FILES "/every_value")}) {
    const auto alias = AliasFile::fromBytes(whole).value();
    for (const auto madeAt : {Date::min(), Date::max()})
      EXPECT_EQ(AliasFile::fromBytes(alias.bytes(madeAt)), alias);
    for (std::size_t size = 0; size < whole.size(); ++size)
      EXPECT_EQ(AliasFile::fromBytes(std::string_view(whole).substr(0, size)), std::nullopt) << size;
    for (int round = 0; round < 10000; ++round) {
      auto bytes = whole;
      for (auto n = 1 + random() % 4; n > 0; --n) {
        // Offsets within the file and such as wrap round.
        put(bytes, random() % (bytes.size() / 4) * 4, static_cast<std::uint32_t>(random() % 0x440) - 0x40);
      }
      const std::vector<char> block(bytes.begin(), bytes.end());
      const auto read = AliasFile::fromBytes({block.data(), block.size()});
      if (!read) continue;
      ++values;
      ASSERT_EQ(AliasFile::fromBytes(read->bytes()), read);
    }
  }
  EXPECT_GT(values, 10000U);
}

}  // namespace
}  // namespace quillonic
