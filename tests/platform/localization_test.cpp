#include <quillonic/platform/localization.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace quillonic {
namespace {

class Reversed final : public Localizer {
 public:
  std::string localized(std::string_view text) const override { return {text.rbegin(), text.rend()}; }
};

TEST(Localization, PutsValuesInThePlacesOfTheMarksOfATextLookedUp) {
  EXPECT_EQ(Localization::localized("Custom: {} x {}", {"{}", "2.0"}), "Custom: {} x 2.0");
  EXPECT_EQ(Localization::localized("one {}", {"1", "2"}), "one 1");
  EXPECT_EQ(Localization::localized("{}{}", {"1"}), "1{}");
  Localization::setLocalizer(std::make_shared<const Reversed>());
  EXPECT_EQ(Localization::localized("spf }{", {"12.0"}), "12.0 fps");
  Localization::setLocalizer(nullptr);
  EXPECT_EQ(Localization::localized("{} fps", {"12.0"}), "12.0 fps");
}

}  // namespace
}  // namespace quillonic
