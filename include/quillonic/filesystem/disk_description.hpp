/// What a disk's description says about its volume.
///
///     const auto dictionary = diskDescriptionOfVolume("/media/CARD");   // platform/disk_descriptions.hpp
///     if (dictionary && DiskDescription(*dictionary).indicatesVolumeIsNetworkDevice()) ...
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/any_value.hpp>
#include <quillonic/support/function_ref.hpp>

#include <concepts>
#include <filesystem>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>

namespace quillonic {

/// A map, or a list of pairs, from keys of any type that converts to `AnyValue` to values.
template <class T>
concept DescriptionDictionary = std::ranges::forward_range<const T> &&
    requires(std::ranges::range_reference_t<const T> entry) {
  {AnyValue(entry.first)};
  { entry.second } -> std::convertible_to<AnyValue>;
};

/// Reads a disk description in a dictionary that the caller keeps alive. A missing key and a value of an
/// unexpected kind both read as absent or false. Keys are texts; entries under other keys are only logged.
class QUILLONIC_EXPORT DiskDescription {
 public:
  /// Refers to the dictionary without a copy. A temporary one does not compile.
  template <DescriptionDictionary Dictionary>
  explicit DiskDescription(const Dictionary& dictionary) noexcept
      : dictionary_(&dictionary), enumerate_([](const void* entries, EntryBlock block) {
          bool stop = false;
          for (const auto& entry : *static_cast<const Dictionary*>(entries)) {
            block(AnyValue(entry.first), entry.second, stop);
            if (stop) return;
          }
        }) {}
  template <DescriptionDictionary Dictionary> explicit DiskDescription(const Dictionary&&) = delete;

  /// The mount point: the path under "DAVolumePath".
  std::optional<std::filesystem::path> storedDAVolumePath() const;
  /// The kind of file system: the text under "DAVolumeKind".
  std::optional<std::string> storedVolumeKindDescription() const;
  /// Whether "DAVolumeNetwork" is true or a number other than 0.
  bool indicatesVolumeIsNetworkDevice() const;
  /// Whether the text under "DAMediaName" contains "disk image", in any case.
  bool indicatesVolumeIsDiskImage() const;

  /// True for a device whose "DADeviceModel" contains "sony" or "axs", in any case, and whose
  /// "DAMediaWritable" is true. Logs the decision and, for such a device, every entry. Logging writable media
  /// as non-writable, and the reverse, is a fixed contract.
  bool indicatesVolumeIsSonyDrive() const;

 private:
  using EntryBlock = FunctionRef<void(const AnyValue& key, const AnyValue& value, bool& stop)>;

  // Copies the value, because a dictionary may compute its values when read.
  AnyValue valueOf(std::string_view key) const;

  const void* dictionary_;
  void (*enumerate_)(const void* entries, EntryBlock block);
};

}  // namespace quillonic
