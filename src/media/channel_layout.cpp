#include <quillonic/media/channel_layout.hpp>
#include <quillonic/platform/localization.hpp>

namespace quillonic {

std::string ChannelLayout::description() const {
  if (kind() != Kind::custom) return pickerDescription();
  return Localization::localized("{} Channels", {std::to_string(channelCount())});
}

std::string ChannelLayout::pickerDescription() const {
  return Localization::localized(kind() == Kind::custom ? "Custom" : row().text);
}

}  // namespace quillonic
