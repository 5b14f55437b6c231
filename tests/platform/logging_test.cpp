#include <quillonic/platform/logging.hpp>

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "recorded_log.hpp"

namespace quillonic {
namespace {

TEST(VantiroLogging, TheHostReplacesTheLoggerAndBringsTheBuiltInOneBack) {
  RecordedLog log;
  VantiroLogging::defaultLogger()->logWarning("one");
  VantiroLogging::setDefaultLogger(nullptr);
  testing::internal::CaptureStderr();
  VantiroLogging::defaultLogger()->logError("a\nb\x1b[0m \xff");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "error: a\\nb\\x1b[0m \xff\n");
  EXPECT_EQ(log.lines(), std::vector<std::string>{"warning: one"});
}

}  // namespace
}  // namespace quillonic
