/// Data rates of a video.
///
///     static_assert(VideoDataRate::fromRawValue(1.5) == VideoDataRate::restrict(1.5));
///     VideoDataRate::auto_.description();                                    // "Auto"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/case_with_payload.hpp>
#include <quillonic/media/codec_limits.hpp>
#include <quillonic/platform/conversion_options.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// The cases of `VideoDataRate`, in order. `auto_` ends in an underscore because the language keeps the bare
/// word to itself.
enum class VideoDataRateKind : std::uint8_t { restrict, auto_ };

/// How much data a second of video takes: what the encoder chooses, or at most a number of megabits.
class VideoDataRate : public CaseWithPayload<VideoDataRateKind, double> {
 public:
  /// The encoder chooses.
  static const VideoDataRate auto_;
  /// At most this many megabits per second, taken as it is. A rate of 0 or below, or NaN, stands for one that
  /// is yet to be typed.
  static constexpr VideoDataRate restrict(double rate) noexcept { return {Kind::restrict, rate}; }

  /// The rate that a picker proposes, in megabits per second.
  static constexpr double defaultCustomDataRate = 2.0;

  /// The case of a stored number: a restriction for one above 0, infinity included, else `auto_`.
  static constexpr VideoDataRate fromRawValue(double rawValue) noexcept {
    return rawValue > 0 ? restrict(rawValue) : VideoDataRate(Kind::auto_);
  }

  /// Whether the rate carries a number, also one that is yet to be typed.
  constexpr bool isRestrict() const noexcept { return kind() == Kind::restrict; }

  /// What stored presets carry: megabits per second, 0.0 for `auto_`.
  constexpr double doubleForProto() const noexcept { return isRestrict() ? payload() : 0.0; }

  /// For people, in the user's language: "Auto", and "Retrict to 1.5 mbps" for a rate above 1.0, with that
  /// spelling; "Restrict" for any other rate. These are fixed texts, which hosts look up.
  QUILLONIC_EXPORT std::string description() const;
  /// "Auto" or "Restrict".
  QUILLONIC_EXPORT std::string pickerDescription() const;
  /// The text by which a program tells the cases apart: "auto" or "restrict".
  constexpr std::string_view tag() const noexcept { return isRestrict() ? "restrict" : "auto"; }
  /// The tag.
  constexpr std::string_view id() const noexcept { return tag(); }

  /// `auto_`, and a restriction to `defaultCustomDataRate`. The span stays valid for the life of the program.
  static constexpr std::span<const VideoDataRate> allCommonCases() noexcept;

  /// Those of `allCommonCases` that a codec accepts: `auto_` alone when its data rate follows from its other
  /// settings.
  static constexpr std::span<const VideoDataRate> allowed(Cloud_ConversionOptions::CodecType codec) noexcept;

  /// The stored data rate; as `fromRawValue`.
  static constexpr VideoDataRate fromProto(
      const Cloud_ConversionOptions::VideoTranscodeOptions& video) noexcept {
    return fromRawValue(video.dataRate);
  }
  /// Stores the data rate. A restriction that is not above 0 reads back as `auto_`.
  constexpr void storeIn(Cloud_ConversionOptions::VideoTranscodeOptions& video) const noexcept {
    video.dataRate = doubleForProto();
  }

 private:
  using CaseWithPayload::CaseWithPayload;
};

inline constexpr VideoDataRate VideoDataRate::auto_{VideoDataRateKind::auto_};

namespace detail {
inline constexpr auto videoDataRates = std::to_array<VideoDataRate>({
    VideoDataRate::auto_,
    VideoDataRate::restrict(VideoDataRate::defaultCustomDataRate),
});
}  // namespace detail

constexpr std::span<const VideoDataRate> VideoDataRate::allCommonCases() noexcept {
  return detail::videoDataRates;
}

constexpr std::span<const VideoDataRate> VideoDataRate::allowed(
    Cloud_ConversionOptions::CodecType codec) noexcept {
  return allCommonCases().first(codecLimits(codec).restrictableDataRate ? 2 : 1);
}

}  // namespace quillonic
