#include <quillonic/platform.hpp>
#include <quillonic/platform/color_coding.hpp>

#include <gtest/gtest.h>
#include <limits>

namespace quillonic {
namespace {

TEST(Color, KeepsEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto color = Color::rgb255(byte, 255 - byte, 7, 0.5);
    const auto components = Color::RgbComponents{double(byte), 255.0 - byte, 7, 0.5};
    EXPECT_EQ(color.outOf255(), components);
    EXPECT_EQ(color, Color::rgb(byte / 255.0, (255 - byte) / 255.0, 7 / 255.0, 0.5));
    for (const auto& copy : {decode<Color>(encode(color)), color.inGenericRgbSpace().value()}) {
      EXPECT_TRUE(copy.isOutOf255());
      EXPECT_EQ(copy.outOf255(), components);
    }
  }
}

TEST(Color, IsReadOutOf255InEveryFormThatHasRgb) {
  using Components = Color::RgbComponents;
  EXPECT_EQ(Color::rgb(1, 0, 2).outOf255(), (Components{255, 0, 510, 1}));
  EXPECT_EQ(Color::grey(1, 0).outOf255(), (Components{255, 255, 255, 0}));
  EXPECT_EQ(Color::cmyk(0, 1, 1, 0).outOf255(), (Components{255, 0, 0, 1}));
  EXPECT_EQ(Color::pattern("stripes").outOf255(), std::nullopt);
  EXPECT_EQ(Color::rgb255(0, 0, std::numeric_limits<double>::quiet_NaN()).outOf255(), std::nullopt);
  EXPECT_FALSE(Color::rgb(1, 1, 1).isOutOf255());
}

}  // namespace
}  // namespace quillonic
