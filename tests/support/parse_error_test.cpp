#include <quillonic/support/parse_error.hpp>

#include <gtest/gtest.h>

namespace quillonic {
namespace {

TEST(ParseError, TellsWhereAndWhatInOneLine) {
  EXPECT_EQ((ParseError{12, 7, "1,\n\x1b", "a number"}.description()),
            "line 12, column 7: found \"1,\\n\\x1b\", expected a number");
  EXPECT_EQ((ParseError{1, 1, "", "a title"}.description()),
            "line 1, column 1: found the end, expected a title");
}

}  // namespace
}  // namespace quillonic
