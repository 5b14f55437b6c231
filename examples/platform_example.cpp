// A host sets its logger and its translations, and asks which volume holds a file.
#include <quillonic/media.hpp>
#include <quillonic/platform.hpp>
#include <quillonic/transcode_cli.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <string_view>

using namespace quillonic;

namespace {

// Any thread of the host may log, so a real logger locks; here there is only one thread.
class HostLogger final : public Loggable {
  void logDebug(std::string_view) override {}
  void logInfo(std::string_view message) override { std::cout << "info: " << message << '\n'; }
  void logWarning(std::string_view message) override { std::cout << "warning: " << message << '\n'; }
  void logError(std::string_view message) override { std::cout << "error: " << message << '\n'; }
};

class German final : public Localizer {
  std::string localized(std::string_view text) const override {
    if (text == "Custom: {} fps") return "Eigene: {} B/s";
    return std::string(text);
  }
};

}  // namespace

int main() {
  VantiroLogging::setDefaultLogger(std::make_shared<HostLogger>());
  Localization::setLocalizer(std::make_shared<const German>());

  std::cout << FrameRate::custom(12).description() << '\n';
  std::cout << FrameRate::custom(12).tag() << '\n';  // never translated: programs compare it

  const auto orange = Color::cmyk(0, 0.5, 1, 0);
  std::cout << orange.description() << " is " << orange.inGenericRgbSpace()->description() << '\n';
  TranscodeCliArguments settings;
  settings.setTimecodeBurnBoxColor(Color::rgb255(255, 255, 255));  // as a colour picker in bytes has it
  std::cout << "white: " << settings.argumentFlagValue(VAVTimecodeBurnBoxRGB).value_or("") << '\n';
  settings.setTimecodeBurnFontColor(Color::pattern("stripes"));  // has no RGB form
  std::cout << "flags: " << settings.flagValueLookup().size() << '\n';

  // One reading of the mount table serves any number of items.
  const auto mounts = MountTable::current();
  const Mount* mount = mounts.holding("/");
  std::cout << "mounted at " << (mount ? mount->mountPoint.string() : "nowhere") << '\n';
}
