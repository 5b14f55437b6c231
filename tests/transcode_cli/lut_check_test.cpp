#include <quillonic/transcode_cli.hpp>
#include <quillonic/transcode_cli/lut_check.hpp>

#include <gtest/gtest.h>

#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

TEST(LutCheck, TellsBeforeAChildIsStarted) {
  const TemporaryFolder folder;
  const RecordedLog log;
  TranscodeCliArguments settings;
  EXPECT_FALSE(colorLutOf(settings));
  settings.setArgumentFlagValue(VAVColorLutFileFlag,
                                folder.file("a.cube", "LUT_1D_SIZE 2\n0 0 0\n1 1 1\n").native());
  EXPECT_EQ(colorLutOf(settings).value()->size1D, 2U);
  settings.setArgumentFlagValue(VAVColorLutFileFlag,
                                folder.file("b.cube", "LUT_1D_SIZE 2\n0 0 0\n").native());
  EXPECT_EQ(colorLutOf(settings)->error().where.expected, "2 rows");
  settings.setArgumentFlagValue(VAVColorLutFileFlag, (folder / "none.cube").native());
  EXPECT_EQ(colorLutOf(settings)->error().reason, lut::Failure::Reason::cannotOpen);
  EXPECT_EQ(log.lines().size(), 1U);
}

}  // namespace
}  // namespace quillonic
