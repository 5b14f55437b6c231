#include <quillonic/filesystem/legal_names.hpp>
#include <quillonic/support/coding.hpp>

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillonic {
namespace {

TEST(LegalNames, DropWhatAVolumeDoesNotTake) {
  const std::pair<std::string, const char*> rows[] = {{"a:b/c*d?", "a:b/cd"},
                                                      {"*?<>\"|\\", ""},
                                                      {"e\u0301t\u00E9 \U0001F3AC.mov", "et .mov"},
                                                      {std::string("A\0\t\n\x7F:", 6), "A:"},
                                                      {"\xFFX\xC3/\xE2\x82:", "X/:"}};
  for (const auto& [name, onLtfs] : rows) {
    EXPECT_EQ(removingInvalidLtfsCharacters(name), onLtfs) << name;
    auto onDesktop = name;
    std::erase_if(onDesktop, [](char c) { return c == '/' || c == ':'; });
    EXPECT_EQ(removingDisallowedMacOSFilesystemCharacters(name), onDesktop);
  }
}

// Any set splits a text in two: what one cleaning keeps, the other drops, and a set and its complement swap
// them.
TEST(LegalNames, PartATextByItsScalars) {
  using namespace std::string_view_literals;
  const std::string_view pieces[] = {"a",       "/",          "~",    "\0"sv, "\u00E9",
                                     "e\u0301", "\U0001F3AC", "\xFF", "\xC3", "\xA9"};
  std::mt19937 random(3);
  const auto text = [&] {
    std::string made;
    for (auto n = random() % 12; n > 0; --n) made += pieces[random() % std::size(pieces)];
    return made;
  };
  for (int round = 0; round < 3000; ++round) {
    const auto listed = text();
    const auto set = CharacterSet::of(listed);
    const auto name = text();
    const auto kept = removingAllExcept(name, set);
    const auto dropped = removingDisallowedCharacters(name, set);
    ASSERT_TRUE(isUtf8(kept));
    ASSERT_EQ(removingAllExcept(listed, set) == listed, isUtf8(listed));
    // Loose bytes may become a character, which is then removed too.
    if (isUtf8(name)) {
      ASSERT_EQ(kept.size() + dropped.size(), name.size());
    }
    ASSERT_EQ(removingDisallowedCharacters(dropped, set), dropped);
    ASSERT_EQ(removingAllExcept(kept, set), kept);
    ASSERT_EQ(removingDisallowedCharacters(name, set.inverted()), kept);
    ASSERT_EQ(removingAllExcept(name, set.inverted()), dropped);
    ASSERT_EQ(set.inverted().inverted(), set);
  }
  const auto accents = CharacterSet::of("a\xC3\u00E9");
  EXPECT_EQ(removingDisallowedCharacters("a\u00E9\u00E8\xC3/e\u0301\xC3\xC3", accents),
            "\u00E8\xC3/e\u0301\xC3\xC3");
  EXPECT_EQ(removingDisallowedCharacters("\xC3\xC3\xC3"
                                         "aa\xA9\xA9\xA9\xC3",
                                         accents),
            "\xC3");
}

}  // namespace
}  // namespace quillonic
