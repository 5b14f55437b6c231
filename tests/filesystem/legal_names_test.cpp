#include <quillonic/filesystem/legal_names.hpp>

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillonic {
namespace {

TEST(LegalNames, DropWhatAVolumeDoesNotTake) {
  const std::pair<std::string, const char*> rows[] = {{"a:b/c*d?", "a:b/cd"},
                                                      {"*?<>\"|\\", ""},
                                                      {"e\u0301t\u00E9 \U0001F3AC.mov", "et .mov"},
                                                      {"\u65E5\u672C", ""},
                                                      {std::string("A\0\t\n\x7F:", 6), "A:"},
                                                      {"\xFFX\xC3/\xE2\x82:", "X/:"}};
  for (const auto& [name, onLtfs] : rows) {
    EXPECT_EQ(removingInvalidLtfsCharacters(name), onLtfs) << name;
    auto onDesktop = name;
    std::erase_if(onDesktop, [](char c) { return c == '/' || c == ':'; });
    EXPECT_EQ(removingDisallowedMacOSFilesystemCharacters(name), onDesktop);
  }
}

// Whatever the set, it parts a text in two: what one cleaning keeps, the other drops, and a set and its
// complement swap them.
TEST(LegalNames, PartATextByItsScalars) {
  const char* const pieces[] = {"a",          "/",    "*",        "\u00E9", "e\u0301",
                                "\U0001F3AC", "\xFF", "\xE2\x82", "\x80",   "~"};
  std::mt19937 random(3);
  const auto text = [&] {
    std::string made;
    for (auto n = random() % 9; n > 0; --n) made += pieces[random() % std::size(pieces)];
    return made;
  };
  for (int round = 0; round < 3000; ++round) {
    const auto set = CharacterSet::of(text());
    const auto name = text();
    const auto kept = removingAllExcept(name, set);
    const auto dropped = removingDisallowedCharacters(name, set);
    // Loose bytes may become a character, which then goes too.
    if (name.find('\x80') == std::string::npos) {
      ASSERT_EQ(kept.size() + dropped.size(), name.size());
    }
    ASSERT_EQ(removingDisallowedCharacters(dropped, set), dropped);
    ASSERT_EQ(removingAllExcept(kept, set), kept);
    ASSERT_EQ(removingDisallowedCharacters(name, set.inverted()), kept);
    ASSERT_EQ(removingAllExcept(name, set.inverted()), dropped);
    ASSERT_EQ(set.inverted().inverted(), set);
  }
  const auto accents = CharacterSet::of("a\xC3\u00E9");
  EXPECT_EQ(removingDisallowedCharacters("a\u00E9\u00E8\xC3/e\u0301", accents), "\u00E8\xC3/e\u0301");
  EXPECT_EQ(removingAllExcept("a\u00E9\u00E8\xC3/", accents), "a\u00E9");
  EXPECT_EQ(removingDisallowedCharacters("\xC3\xC3/\xC3"
                                         "aa\xA9\xA9\xA9",
                                         accents),
            "\xC3\xC3/\xA9\xA9");
  EXPECT_EQ(removingDisallowedCharacters("\xC3\xC3\xC3"
                                         "aa\xA9\xA9\xA9\xC3",
                                         accents),
            "\xC3");
}

}  // namespace
}  // namespace quillonic
