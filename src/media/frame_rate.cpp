#include <quillonic/media/frame_rate.hpp>
#include <quillonic/platform/localization.hpp>

#include "platform/system_log.hpp"
#include "text/number_text.hpp"

namespace quillonic {

void detail::reportUnknownFrameRate(double rawValue) {
  writeToSystemLog("Could not convert raw value to frame rate: " + number_text::shortest(rawValue));
}

std::string FrameRate::description() const {
  if (kind() != Kind::custom || !(value() > 0)) return pickerDescription();
  return Localization::localized("Custom: {} fps", {number_text::shortest(value())});
}

std::string FrameRate::pickerDescription() const {
  return Localization::localized(kind() == Kind::custom ? "Custom" : row().text);
}

}  // namespace quillonic
