#include <quillonic/media/video_data_rate.hpp>
#include <quillonic/platform/localization.hpp>

#include "text/number_text.hpp"

namespace quillonic {

std::string VideoDataRate::description() const {
  if (!isRestrict() || !(payload() > 1.0)) return pickerDescription();
  // The misspelling is the text that hosts look up.
  return Localization::localized("Retrict to {} mbps", {number_text::shortest(payload())});
}

std::string VideoDataRate::pickerDescription() const {
  return Localization::localized(isRestrict() ? "Restrict" : "Auto");
}

}  // namespace quillonic
