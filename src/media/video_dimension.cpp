#include <quillonic/media/video_dimension.hpp>
#include <quillonic/platform/localization.hpp>

#include "platform/system_log.hpp"
#include "text/number_text.hpp"

namespace quillonic {

// The text is fixed, including its spelling and the unclosed bracket: hosts search their output for it.
void detail::reportUnfitDimension(double width, double height) {
  printLine("Proto failed to parse VideoDimension from Proto. Will reset to match orignal! (pWidth:" +
            number_text::shortest(width) + " - pHeight: " + number_text::shortest(height));
}

std::string VideoDimension::description() const {
  const auto [width, height] = size();
  if (isCustomScale()) return Localization::localized("Custom: {}%", {number_text::rounded(width * 100, 1)});
  if (!isCustom() || !(width > 0 && height > 0)) return pickerDescription();
  return Localization::localized("Custom: {} x {}",
                                 {number_text::shortest(width), number_text::shortest(height)});
}

std::string VideoDimension::pickerDescription() const {
  if (isCustom()) return Localization::localized("Custom Dimensions");
  if (isCustomScale()) return Localization::localized("Custom Scale");
  return Localization::localized(row().text);
}

}  // namespace quillonic
