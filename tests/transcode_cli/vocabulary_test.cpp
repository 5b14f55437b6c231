#include <gtest/gtest.h>

#include <quillonic/transcode_cli.hpp>

namespace quillonic {
namespace {

TEST(Placeholder, Builds) {
  EXPECT_EQ(TranscodeCliArguments::allKnownCommandFlags().size(), 68U);
}

}  // namespace
}  // namespace quillonic
