/// Where a crop, a burnt-in timecode and an image watermark are anchored: one value type for each, all of the
/// same shape, which differ by the flag they belong to.
///
///     auto anchor = WatermarkBurnAnchor::fromRawValue("c");      // nothing for a text that is no anchor
///     anchor->cliFlag();                                         // "-wmf_anchor"
///     settings.setTimecodeBurnAnchor(VAVAnchorBottomCenter);
#pragma once

#include <quillonic/support/coding.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <concepts>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace quillonic {

/// An overlay anchor that belongs to one flag.
template <class T>
concept TranscodeAnchor = CLIArgumentOption<T> && requires(T& value) {
  { value.anchorArgument } -> std::same_as<VAVTranscodeArgumentOverlayAnchorValue&>;
};

/// Base of the anchors.
template <class Self, const auto& flag> class OverlayAnchor {
 public:
  /// Takes any anchor value; one that is not listed is not checked.
  // NOLINTNEXTLINE(google-explicit-constructor): an anchor is the place it names
  constexpr OverlayAnchor(VAVTranscodeArgumentOverlayAnchorValue anchor) noexcept
      : anchorArgument(std::move(anchor)) {}

  /// The anchor whose text is exactly `text`; nothing for a text that is not one of the nine.
  static constexpr std::optional<Self> fromRawValue(std::string_view text) {
    const auto anchor = VAVTranscodeArgumentOverlayAnchorValue::fromStringValue(text);
    return anchor ? std::optional<Self>(*anchor) : std::nullopt;
  }

  /// The text of the anchor, valid until the anchor changes.
  constexpr std::string_view rawValue() const noexcept { return anchorArgument.rawValue(); }

  /// The text of the flag that the anchor belongs to.
  static constexpr std::string_view cliFlag() noexcept { return flag.cliFlag(); }

  friend constexpr std::string_view rawValue(const Self& anchor) noexcept { return anchor.rawValue(); }
  friend constexpr std::string_view cliFlag(const Self&) noexcept { return flag.cliFlag(); }
  friend constexpr bool operator==(const Self& a, const Self& b) noexcept {
    return a.anchorArgument == b.anchorArgument;
  }

  /// The place in the frame.
  VAVTranscodeArgumentOverlayAnchorValue anchorArgument;
};

/// The part of the picture that a crop keeps.
class VideoCropAnchor : public OverlayAnchor<VideoCropAnchor, VAVVideoAspectCropAnchorFlag> {
 public:
  using OverlayAnchor::OverlayAnchor;

  /// The flag that the anchor belongs to.
  static constexpr const VAVTranscodeVideoArgumentFlag& videoFlag() noexcept {
    return VAVVideoAspectCropAnchorFlag;
  }

  friend constexpr const VAVTranscodeVideoArgumentFlag& videoFlag(const VideoCropAnchor&) noexcept {
    return VideoCropAnchor::videoFlag();
  }
};

/// Where the timecode is burnt into the picture.
class TimecodeBurnAnchor : public OverlayAnchor<TimecodeBurnAnchor, VAVTimecodeBurnAnchorFlag> {
 public:
  using OverlayAnchor::OverlayAnchor;

  /// The flag that the anchor belongs to.
  static constexpr const VAVTranscodeTimecodeArgumentFlag& tcFlag() noexcept {
    return VAVTimecodeBurnAnchorFlag;
  }

  friend constexpr const VAVTranscodeTimecodeArgumentFlag& tcFlag(const TimecodeBurnAnchor&) noexcept {
    return TimecodeBurnAnchor::tcFlag();
  }
};

/// Where an image watermark is placed.
class WatermarkBurnAnchor : public OverlayAnchor<WatermarkBurnAnchor, VAVWatermarkFileBurnAnchorFlag> {
 public:
  using OverlayAnchor::OverlayAnchor;

  /// The flag that the anchor belongs to. The property is called `tcFlag` here too; the name is a fixed contract.
  static constexpr const VAVTranscodeWatermarkFileArgumentFlag& tcFlag() noexcept {
    return VAVWatermarkFileBurnAnchorFlag;
  }

  friend constexpr const VAVTranscodeWatermarkFileArgumentFlag& tcFlag(const WatermarkBurnAnchor&) noexcept {
    return WatermarkBurnAnchor::tcFlag();
  }
};

static_assert(TranscodeAnchor<VideoCropAnchor> && VideoCLIArgumentOption<VideoCropAnchor> &&
              CodableRawHashCase<VideoCropAnchor>);
static_assert(TranscodeAnchor<TimecodeBurnAnchor> && TimecodeCLIArgumentOption<TimecodeBurnAnchor> &&
              CodableRawHashCase<TimecodeBurnAnchor>);
static_assert(TranscodeAnchor<WatermarkBurnAnchor> && WatermarkFileCLIArgumentOption<WatermarkBurnAnchor> &&
              CodableRawHashCase<WatermarkBurnAnchor>);

}  // namespace quillonic

template <quillonic::TranscodeAnchor T> struct std::hash<T> {
  std::size_t operator()(const T& anchor) const noexcept {
    return std::hash<std::string_view>{}(anchor.rawValue());
  }
};
