#include <quillonic/filesystem/disk_description.hpp>
#include <quillonic/platform/logging.hpp>

#include "platform/disk_description_keys.hpp"
#include "text/unicode.hpp"

namespace quillonic {
namespace {

namespace keys = disk_description_keys;

bool isNumber(const AnyValue& value) {
  return value.as<double>() || value.as<std::int64_t>() || value.as<std::uint64_t>();
}

}  // namespace

AnyValue DiskDescription::valueOf(std::string_view wanted) const {
  AnyValue found;
  const AnyValue wantedKey(wanted);
  enumerate_(dictionary_, [&](const AnyValue& key, const AnyValue& value, bool& stop) {
    if (!(key == wantedKey)) return;
    found = value;
    stop = true;
  });
  return found;
}

std::optional<std::filesystem::path> DiskDescription::storedDAVolumePath() const {
  return valueOf(keys::volumePath).as<std::filesystem::path>();
}

std::optional<std::string> DiskDescription::storedVolumeKindDescription() const {
  return valueOf(keys::volumeKind).as<std::string>();
}

bool DiskDescription::indicatesVolumeIsNetworkDevice() const {
  const auto value = valueOf(keys::volumeNetwork);
  return value.as<bool>().value_or(isNumber(value) && value != AnyValue(0));
}

bool DiskDescription::indicatesVolumeIsDiskImage() const {
  const auto name = valueOf(keys::mediaName).as<std::string>();
  return name && text::lowerCased(*name).find("disk image") != std::string::npos;
}

bool DiskDescription::indicatesVolumeIsSonyDrive() const {
  const auto log = VantiroLogging::defaultLogger();
  const auto model = valueOf(keys::deviceModel).as<std::string>();
  const auto lowerCasedModel = text::lowerCased(model.value_or(std::string()));
  const auto names = [&](std::string_view maker) { return lowerCasedModel.find(maker) != std::string::npos; };
  if (!names("sony") && !names("axs")) {
    const auto name = valueOf(keys::mediaName).as<std::string>();
    log->logInfo("Device not detected as a SONY drive: (" + model.value_or("NO_MODEL_NAME") + "-" +
                 name.value_or("NO_MEDIA_NAME") + ")");
    return false;
  }
  log->logInfo("SONY Drive detected");
  enumerate_(dictionary_, [&](const AnyValue& key, const AnyValue& value, bool& /*stop*/) {
    log->logInfo(key.description() + ":" + value.description());
  });
  if (valueOf(keys::mediaWritable).as<bool>().value_or(false)) {
    // The two texts are swapped, and must stay so: hosts rely on them.
    log->logInfo("SONY Device determined to be a NON-WRITABLE Sony drive");
    return true;
  }
  log->logInfo("SONY Device determined to be a WRITABLE Sony drive");
  return false;
}

}  // namespace quillonic
