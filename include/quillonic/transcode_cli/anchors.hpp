/// The anchors of a crop, a burnt-in timecode and an image watermark: one type for each flag.
///
///     auto anchor = WatermarkBurnAnchor::fromRawValue("c");      // nothing for a text that is no anchor
///     anchor->cliFlag();                                         // "-wmf_anchor"
///     settings.setTimecodeBurnAnchor(VAVAnchorBottomCenter);
#pragma once

#include <quillonic/transcode_cli/vocabulary.hpp>

#include <concepts>
#include <optional>
#include <string_view>
#include <utility>

namespace quillonic {

/// An overlay anchor of one flag.
template <class T>
concept TranscodeAnchor = CLIArgumentOption<T> && requires(T& value) {
  { value.anchorArgument } -> std::same_as<VAVTranscodeArgumentOverlayAnchorValue&>;
};

/// An anchor of one flag.
template <const auto& flag> class OverlayAnchor : public ValueOfFlag<flag> {
 public:
  /// Takes any anchor value, listed or unlisted.
  // NOLINTNEXTLINE(google-explicit-constructor): an anchor is the place it names
  constexpr OverlayAnchor(VAVTranscodeArgumentOverlayAnchorValue anchor) noexcept
      : anchorArgument(std::move(anchor)) {}

  /// The anchor with exactly this text; nothing for any text other than the nine.
  static constexpr std::optional<OverlayAnchor> fromRawValue(std::string_view text) {
    const auto anchor = VAVTranscodeArgumentOverlayAnchorValue::fromStringValue(text);
    return anchor ? std::optional<OverlayAnchor>(*anchor) : std::nullopt;
  }

  /// The anchor's text, valid until the anchor changes.
  constexpr std::string_view rawValue() const noexcept { return anchorArgument.rawValue(); }

  friend constexpr std::string_view rawValue(const OverlayAnchor& anchor) noexcept {
    return anchor.rawValue();
  }
  friend constexpr bool operator==(const OverlayAnchor& a, const OverlayAnchor& b) noexcept {
    return a.anchorArgument == b.anchorArgument;
  }

  /// The place in the frame.
  VAVTranscodeArgumentOverlayAnchorValue anchorArgument;
};

/// The part of the picture that a crop keeps.
using VideoCropAnchor = OverlayAnchor<VAVVideoAspectCropAnchorFlag>;
/// The place of the timecode burnt into the picture.
using TimecodeBurnAnchor = OverlayAnchor<VAVTimecodeBurnAnchorFlag>;
/// The place of an image watermark.
using WatermarkBurnAnchor = OverlayAnchor<VAVWatermarkFileBurnAnchorFlag>;

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
