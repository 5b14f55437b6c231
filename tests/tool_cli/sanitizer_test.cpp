#include <gtest/gtest.h>

#include <quillonic/tool_cli.hpp>

namespace quillonic {
namespace {

TEST(Placeholder, Builds) {
  EXPECT_TRUE(CLISanitizationOptions{} == CLISanitizationOptions{});
}

}  // namespace
}  // namespace quillonic
