#include <quillonic/tool_cli/sanitization_options.hpp>

#include <clocale>
#include <cwctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "texts.hpp"

namespace quillonic {
namespace {

constexpr auto lowercase = CLISanitizationOptions::lowercase;
constexpr auto trim = CLISanitizationOptions::trimWhiteSpace;

TEST(CLISanitizationOptions, AppliesWhatIsInTheSet) {
  const std::string text = " \u00a0\u0130\u00c9COLE\n\u3000";
  EXPECT_EQ(CLISanitizationOptions{}.sanitize(text), text);
  EXPECT_EQ(trim.sanitize(text), "\u0130\u00c9COLE");
  EXPECT_EQ(lowercase.sanitize(text), " \u00a0i\u0307\u00e9cole\n\u3000");
  EXPECT_EQ((lowercase | trim).sanitize(text), "i\u0307\u00e9cole");
  EXPECT_EQ((lowercase | trim).rawValue(), 3);
  EXPECT_EQ(CLISanitizationOptions(7).sanitize(" A "), "a");
  auto options = (lowercase | trim) & ~lowercase;
  EXPECT_TRUE(options == trim && (options ^= trim).empty() && (options |= lowercase).contains(lowercase));
}

// Every scalar: lower-cased like in the C library's table of the same Unicode version, and trimmed if it is
// white space.
TEST(CLISanitizationOptions, KnowsEveryScalar) {
  const std::u32string white =
      U"\t\n\v\f\r \u0085\u00a0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200a\u2028"
      U"\u2029\u202f\u205f\u3000";
  const auto utf8 = [](char32_t c) { return std::filesystem::path(std::u32string(1, c)).native(); };
  const auto locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  ASSERT_NE(locale, nullptr);
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const auto text = utf8(c);
    const auto lowered = lowercase.sanitize(text);
    const auto expected = utf8(static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), locale)));
    ASSERT_EQ(lowered, c == 0x130 ? "i\u0307" : expected) << text;
    ASSERT_EQ(lowercase.sanitize(lowered), lowered) << text;
    const bool isWhite = white.find(c) != std::u32string::npos;
    ASSERT_EQ(trim.sanitize(text + "a b" + text), isWhite ? "a b" : text + "a b" + text) << text;
  }
  freelocale(locale);
}

TEST(CLISanitizationOptions, KeepsBytesThatAreNotUtf8) {
  for (const auto& bytes :
       split("\xff|\xc3|\xe3\x80|\x80\xa0|\xa0|\x85|\xc0\xa0|\xed\xa0\x80|\xf4\x90\x80\x80|\xe0\x80\xa0",
             '|')) {
    EXPECT_EQ((lowercase | trim).sanitize(" A" + bytes + "\u3000"), "a" + bytes);
    EXPECT_EQ((lowercase | trim).sanitize(bytes + "\u00c9"), bytes + "\u00e9");
  }
}

}  // namespace
}  // namespace quillonic
