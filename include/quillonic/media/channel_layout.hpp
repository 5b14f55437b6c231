/// Audio channel layouts.
///
///     static_assert(ChannelLayout::fromChannelCount(6) == ChannelLayout::hexagonal);
///     ChannelLayout::custom(12).description();                               // "12 Channels"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/case_with_payload.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// The cases of `ChannelLayout`, in order.
enum class ChannelLayoutKind : std::uint8_t {
  custom,
  matchSource,
  mono,
  stereo,
  quadrophonic,
  pentagonal,
  hexagonal,
  octagonal,
};

namespace detail {

struct ChannelLayoutRow {
  ChannelLayoutKind kind;
  std::int64_t channelCount;
  std::string_view text;
};

inline constexpr auto channelLayoutRows = std::to_array<ChannelLayoutRow>({
    {ChannelLayoutKind::custom, 0, "custom"},
    {ChannelLayoutKind::matchSource, 0, "Match Source"},
    {ChannelLayoutKind::mono, 1, "Mono"},
    {ChannelLayoutKind::stereo, 2, "Stereo"},
    {ChannelLayoutKind::quadrophonic, 4, "Quadrophonic"},
    {ChannelLayoutKind::pentagonal, 5, "Pentagonal"},
    {ChannelLayoutKind::hexagonal, 6, "Hexagonal"},
    {ChannelLayoutKind::octagonal, 8, "Octagonal"},
});

}  // namespace detail

/// The layout of audio channels, identified by their number.
class ChannelLayout : public CaseWithPayload<ChannelLayoutKind, std::int64_t> {
 public:
  /// The channels of the source.
  static const ChannelLayout matchSource;
  /// One channel.
  static const ChannelLayout mono;
  /// Two channels.
  static const ChannelLayout stereo;
  /// Four channels.
  static const ChannelLayout quadrophonic;
  /// Five channels.
  static const ChannelLayout pentagonal;
  /// Six channels.
  static const ChannelLayout hexagonal;
  /// Eight channels.
  static const ChannelLayout octagonal;
  /// Any number of channels, kept as given.
  static constexpr ChannelLayout custom(std::int64_t channelCount) noexcept {
    return {Kind::custom, channelCount};
  }

  /// The number of channels proposed by a picker.
  static constexpr std::int64_t defaultCustomChannelCount = 12;

  /// The case for a stored number: the fixed case with exactly this count, else a custom one, even below 0.
  static constexpr ChannelLayout fromChannelCount(std::int64_t channelCount) noexcept;

  /// 0 for `matchSource`.
  constexpr std::int64_t channelCount() const noexcept {
    return kind() == Kind::custom ? payload() : row().channelCount;
  }

  /// For people, in the user's language: "Stereo", "3 Channels"; also "1 Channels", a fixed text.
  QUILLONIC_EXPORT std::string description() const;
  /// Like `description`, but "Custom" for any custom number.
  QUILLONIC_EXPORT std::string pickerDescription() const;
  /// The text that identifies the case in programs: the English description, or "custom".
  constexpr std::string_view tag() const noexcept { return row().text; }

  /// `matchSource`, `wellDefinedCases`, then a custom layout of `defaultCustomChannelCount` channels. All
  /// spans stay valid for the life of the program.
  static constexpr std::span<const ChannelLayout> allCommonCases() noexcept;
  /// `mono` to `octagonal`.
  static constexpr std::span<const ChannelLayout> wellDefinedCases() noexcept;
  /// `allCommonCases`: a video codec does not limit the audio.
  static constexpr std::span<const ChannelLayout> allowed(
      Cloud_ConversionOptions::CodecType /*codec*/) noexcept {
    return allCommonCases();
  }

  /// The stored layout; see `fromChannelCount`.
  static constexpr ChannelLayout fromProto(
      const Cloud_ConversionOptions::AudioTranscodeOptions& audio) noexcept {
    return fromChannelCount(audio.channelCount);
  }
  /// Stores the number of channels. A custom layout with a fixed case's number reads back as that case.
  constexpr void storeIn(Cloud_ConversionOptions::AudioTranscodeOptions& audio) const noexcept {
    audio.channelCount = channelCount();
  }

 private:
  using CaseWithPayload::CaseWithPayload;

  constexpr const detail::ChannelLayoutRow& row() const noexcept {
    return detail::channelLayoutRows[static_cast<std::size_t>(kind())];
  }
};

inline constexpr ChannelLayout ChannelLayout::matchSource{ChannelLayoutKind::matchSource};
inline constexpr ChannelLayout ChannelLayout::mono{ChannelLayoutKind::mono};
inline constexpr ChannelLayout ChannelLayout::stereo{ChannelLayoutKind::stereo};
inline constexpr ChannelLayout ChannelLayout::quadrophonic{ChannelLayoutKind::quadrophonic};
inline constexpr ChannelLayout ChannelLayout::pentagonal{ChannelLayoutKind::pentagonal};
inline constexpr ChannelLayout ChannelLayout::hexagonal{ChannelLayoutKind::hexagonal};
inline constexpr ChannelLayout ChannelLayout::octagonal{ChannelLayoutKind::octagonal};

namespace detail {
inline constexpr auto channelLayouts = std::to_array<ChannelLayout>({
    ChannelLayout::matchSource,
    ChannelLayout::mono,
    ChannelLayout::stereo,
    ChannelLayout::quadrophonic,
    ChannelLayout::pentagonal,
    ChannelLayout::hexagonal,
    ChannelLayout::octagonal,
    ChannelLayout::custom(ChannelLayout::defaultCustomChannelCount),
});
}  // namespace detail

constexpr std::span<const ChannelLayout> ChannelLayout::allCommonCases() noexcept {
  return detail::channelLayouts;
}

constexpr std::span<const ChannelLayout> ChannelLayout::wellDefinedCases() noexcept {
  return allCommonCases().subspan(1, allCommonCases().size() - 2);
}

constexpr ChannelLayout ChannelLayout::fromChannelCount(std::int64_t channelCount) noexcept {
  const auto* layout = detail::rowWhere(allCommonCases(), &ChannelLayout::channelCount, channelCount);
  return layout ? *layout : custom(channelCount);
}

}  // namespace quillonic
