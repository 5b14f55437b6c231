#include <quillonic/filesystem/legal_names.hpp>

#include <gtest/gtest.h>
#include <string>
#include <tuple>

namespace quillonic {
namespace {

TEST(LegalNames, DropWhatAVolumeDoesNotTake) {
  // A name, and what a tape, a desktop and a set of two characters and a loose byte leave of it.
  const std::tuple<std::string, std::string, std::string, std::string> rows[] = {
      {"a:b/c*d?", "a:b/cd", "abc*d?", ":b/c*d?"},
      {"*?<>\"|\\", "", "*?<>\"|\\", "*?<>\"|\\"},
      {"e\u0301t\u00E9 \U0001F3AC.mov", "et .mov", "e\u0301t\u00E9 \U0001F3AC.mov",
       "e\u0301t \U0001F3AC.mov"},
      {std::string("A\0\t\n\x7F:", 6), "A:", std::string("A\0\t\n\x7F", 5), std::string("A\0\t\n\x7F:", 6)},
      {"\xFFX\xC3/\xE2\x82:", "X/:", "\xFFX\xC3\xE2\x82", "\xFFX\xC3/\xE2\x82:"},
      {"\xC3\xC3\xC3"
       "aa\xA9\xA9\xA9\xC3",
       "aa",
       "\xC3\xC3\xC3"
       "aa\xA9\xA9\xA9\xC3",
       "\xC3"}};
  const auto set = CharacterSet::of("a\xC3\u00E9");
  for (const auto& [name, onTape, onDesktop, outside] : rows) {
    EXPECT_EQ(removingInvalidLtfsCharacters(name), onTape) << name;
    EXPECT_EQ(removingDisallowedMacOSFilesystemCharacters(name), onDesktop);
    EXPECT_EQ(removingDisallowedCharacters(name, set), outside);
  }
}

}  // namespace
}  // namespace quillonic
