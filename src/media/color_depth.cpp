#include <quillonic/media/color_depth.hpp>
#include <quillonic/platform/localization.hpp>

namespace quillonic {

std::string description(ColorDepth depth) {
  return Localization::localized(tag(depth));
}

std::string pickerDescription(ColorDepth depth) {
  return description(depth);
}

}  // namespace quillonic
