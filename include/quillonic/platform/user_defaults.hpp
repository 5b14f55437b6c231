/// The settings that host applications keep and share. A host makes its own readable:
///
///     class HostDefaults : public quillonic::UserDefaults { ... };
///     quillonic::UserDefaults::replace(std::make_shared<const HostDefaults>());
///
///     if (settings::useGPUAcceleration.read()) ...       // true where nothing is set
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/any_value.hpp>
#include <quillonic/support/host_keys.hpp>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

namespace quillonic {

/// Looks up settings. Any thread may call it at any time: implementations must be thread-safe.
class QUILLONIC_EXPORT UserDefaults {
 public:
  UserDefaults() = default;
  UserDefaults(const UserDefaults&) = delete;
  UserDefaults& operator=(const UserDefaults&) = delete;
  virtual ~UserDefaults();

  /// The value under a key of `user_default_keys`; an empty one when it is not set.
  virtual AnyValue value(std::string_view key) const = 0;

  /// The settings in use, never null. Nothing is set in the built-in ones.
  static std::shared_ptr<const UserDefaults> current();
  /// Replaces the settings; null restores the built-in ones. May be called while other threads read.
  static void replace(std::shared_ptr<const UserDefaults> defaults);
};

/// A setting that is on or off.
struct BooleanSetting {
  /// Where it is kept.
  std::string_view key;
  /// What holds where it is not set, or set to anything but a Boolean.
  bool initial = false;

  /// The value in use.
  bool read(const UserDefaults& defaults = *UserDefaults::current()) const {
    return defaults.value(key).as<bool>().value_or(initial);
  }
};

/// A setting that is a whole number within limits.
struct NumberSetting {
  /// Where it is kept.
  std::string_view key;
  /// What holds where it is not set, or set to anything but a whole number.
  std::int64_t initial = 0;
  /// A lower number reads as this one.
  std::int64_t least = 0;
  /// A greater number reads as this one.
  std::int64_t greatest = 0;

  /// The value in use.
  std::int64_t read(const UserDefaults& defaults = *UserDefaults::current()) const {
    return std::clamp(defaults.value(key).as<std::int64_t>().value_or(initial), least, greatest);
  }
};

/// The settings that hosts share.
namespace settings {

/// Whether a transcode may use graphics acceleration.
inline constexpr BooleanSetting useGPUAcceleration{user_default_keys::kUseGPUAcceleration, true};
/// How many transcodes may run at once; 0 for as many as suit the machine.
inline constexpr NumberSetting explicitNumberOfConcurrentTranscodes{
    user_default_keys::kExplicitNumberOfConcurrentTranscodes, 0, 0, 64};
/// Whether a failed transcode is attempted again without asking.
inline constexpr BooleanSetting permitAutoReattemptOfFailedTranscodes{
    user_default_keys::kPermitAutoReattemptOfFailedTranscodes, false};
/// How often a failed transcode is attempted again at most.
inline constexpr NumberSetting numberOfReattemptsPerFailedTranscode{
    user_default_keys::kNumberOfReattemptsPerFailedTranscode, 1, 0, 10};

}  // namespace settings

}  // namespace quillonic
