#include <quillonic/platform.hpp>
#include <quillonic/platform/color_coding.hpp>

#include <gtest/gtest.h>

namespace quillonic {
namespace {

using Components = Color::RgbComponents;

TEST(Color, KeepsItsNumbersOutOf255) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto color = Color::rgb255(byte, 255 - byte, 7, 0.5);
    EXPECT_EQ(color, Color::rgb(byte / 255.0, (255 - byte) / 255.0, 7 / 255.0, 0.5));
    for (const auto& copy : {color, decode<Color>(encode(color)), color.inGenericRgbSpace().value()}) {
      EXPECT_TRUE(copy.isOutOf255());
      EXPECT_EQ(copy.outOf255(), (Components{double(byte), 255.0 - byte, 7, 0.5}));
    }
  }
  EXPECT_EQ(Color::rgb(1, 0, 2).outOf255(), (Components{255, 0, 510, 1}));
  EXPECT_EQ(Color::cmyk(0, 1, 1, 0).outOf255(), (Components{255, 0, 0, 1}));
  EXPECT_EQ(Color::pattern("stripes").outOf255(), std::nullopt);
}

}  // namespace
}  // namespace quillonic
