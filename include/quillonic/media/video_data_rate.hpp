/// Video data rates.
///
///     static_assert(VideoDataRate::fromRawValue(1.5) == VideoDataRate::restrict(1.5));
///     VideoDataRate::auto_.description();                                    // "Auto"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/case_with_payload.hpp>
#include <quillonic/media/codec.hpp>
#include <quillonic/media/conversion_options.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// The cases of `VideoDataRate`, in order. `auto_` has an underscore because `auto` is a keyword.
enum class VideoDataRateKind : std::uint8_t { restrict, auto_ };

/// The data per second of video: the encoder's choice, or at most a number of megabits.
class VideoDataRate : public CaseWithPayload<VideoDataRateKind, double> {
 public:
  /// The encoder chooses.
  static const VideoDataRate auto_;
  /// At most this many megabits per second, kept as given. 0, a negative rate and NaN mean that no rate has
  /// been typed yet.
  static constexpr VideoDataRate restrict(double rate) noexcept { return {Kind::restrict, rate}; }

  /// The rate proposed by a picker, in megabits per second.
  static constexpr double defaultCustomDataRate = 2.0;

  /// The case for a stored number: a restriction for a number above 0, including infinity, else `auto_`.
  static constexpr VideoDataRate fromRawValue(double rawValue) noexcept {
    return rawValue > 0 ? restrict(rawValue) : VideoDataRate(Kind::auto_);
  }

  /// Whether the rate has a number, even one that has not been typed yet.
  constexpr bool isRestrict() const noexcept { return kind() == Kind::restrict; }

  /// Megabits per second for stored presets; 0.0 for `auto_`.
  constexpr double doubleForProto() const noexcept { return isRestrict() ? payload() : 0.0; }

  /// For people, in the user's language: "Auto", "Retrict to 1.5 mbps" for a rate above 1.0, else "Restrict".
  /// The spelling is fixed because hosts look these texts up.
  QUILLONIC_EXPORT std::string description() const;
  /// "Auto" or "Restrict".
  QUILLONIC_EXPORT std::string pickerDescription() const;
  /// The text that identifies the case in programs: "auto" or "restrict".
  constexpr std::string_view tag() const noexcept { return isRestrict() ? "restrict" : "auto"; }
  /// The tag.
  constexpr std::string_view id() const noexcept { return tag(); }

  /// `auto_`, then a restriction to `defaultCustomDataRate`. All spans stay valid for the life of the
  /// program.
  static constexpr std::span<const VideoDataRate> allCommonCases() noexcept;

  /// The members of `allCommonCases` that a codec accepts: only `auto_` if its data rate follows from other
  /// settings.
  static constexpr std::span<const VideoDataRate> allowed(Cloud_ConversionOptions::CodecType codec) noexcept;

  /// The stored data rate; see `fromRawValue`.
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
