/// The anchors of a crop, a burnt-in timecode and an image watermark: one type for each flag.
///
///     auto anchor = WatermarkBurnAnchor::fromRawValue("c");      // nothing for a text that is no anchor
///     anchor->cliFlag();                                         // "-wmf_anchor"
///     settings.setTimecodeBurnAnchor(VAVAnchorBottomCenter);
///
///     if (const auto row = anchorRow(VAVAnchorBottomCenter)) {           // AnchorRow::bottom
///       y = (height - imageHeight) * static_cast<int>(*row) / 2;
///     }
#pragma once

#include <quillonic/support/coding.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <array>
#include <concepts>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string_view>
#include <utility>

namespace quillonic {

/// The columns of anchors, numbered from 0 at the left.
enum class AnchorColumn : std::uint8_t { left, center, right };
/// The rows of anchors, numbered from 0 at the top.
enum class AnchorRow : std::uint8_t { top, center, bottom };

/// The columns in order, by the names of their cases.
template <> struct CaseTable<AnchorColumn> {
  static constexpr auto rows = std::to_array<CaseRow<AnchorColumn>>({
      {AnchorColumn::left, "left"},
      {AnchorColumn::center, "center"},
      {AnchorColumn::right, "right"},
  });
};

/// The rows in order, by the names of their cases.
template <> struct CaseTable<AnchorRow> {
  static constexpr auto rows = std::to_array<CaseRow<AnchorRow>>({
      {AnchorRow::top, "top"},
      {AnchorRow::center, "center"},
      {AnchorRow::bottom, "bottom"},
  });
};

/// The column of an anchor; nothing for an unlisted one. The nine anchors are listed row by row.
constexpr std::optional<AnchorColumn> anchorColumn(
    const VAVTranscodeArgumentOverlayAnchorValue& anchor) noexcept {
  const auto listed = anchor.listedCase();
  return listed ? std::optional(static_cast<AnchorColumn>(static_cast<int>(*listed) % 3)) : std::nullopt;
}

/// The row of an anchor; nothing for an unlisted one.
constexpr std::optional<AnchorRow> anchorRow(const VAVTranscodeArgumentOverlayAnchorValue& anchor) noexcept {
  const auto listed = anchor.listedCase();
  return listed ? std::optional(static_cast<AnchorRow>(static_cast<int>(*listed) / 3)) : std::nullopt;
}

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

  /// The column of the place; nothing for an unlisted one.
  constexpr std::optional<AnchorColumn> column() const noexcept { return anchorColumn(anchorArgument); }
  /// The row of the place; nothing for an unlisted one.
  constexpr std::optional<AnchorRow> row() const noexcept { return anchorRow(anchorArgument); }

  /// Prints the anchor's text.
  template <class Traits>
  friend std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                                      const OverlayAnchor& anchor) {
    return out << anchor.rawValue();
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

}  // namespace quillonic

template <const auto& flag> struct std::hash<quillonic::OverlayAnchor<flag>> {
  std::size_t operator()(const quillonic::OverlayAnchor<flag>& anchor) const noexcept {
    return std::hash<std::string_view>{}(anchor.rawValue());
  }
};

namespace quillonic {

static_assert(TranscodeAnchor<VideoCropAnchor> && VideoCLIArgumentOption<VideoCropAnchor> &&
              CodableRawHashCase<VideoCropAnchor>);
static_assert(TranscodeAnchor<TimecodeBurnAnchor> && TimecodeCLIArgumentOption<TimecodeBurnAnchor> &&
              CodableRawHashCase<TimecodeBurnAnchor>);
static_assert(TranscodeAnchor<WatermarkBurnAnchor> && WatermarkFileCLIArgumentOption<WatermarkBurnAnchor> &&
              CodableRawHashCase<WatermarkBurnAnchor>);

}  // namespace quillonic
