/// Video frame rates.
///
///     static_assert(FrameRate::fps25.value() == 25.0);
///     static_assert(FrameRate::fromRawValue(12.0) == FrameRate::custom(12.0));
///     FrameRate::custom(12.0).description();                                 // "Custom: 12.0 fps"
///     for (const FrameRate& rate : FrameRate::allowed(preset.codecType)) { ... }
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/case_with_payload.hpp>
#include <quillonic/media/codec.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// The cases of `FrameRate`, in order.
enum class FrameRateKind : std::uint8_t {
  custom,
  match,
  halfstep,
  fps23_98,
  fps24,
  fps25,
  fps29_97,
  fps30,
  fps50,
  fps59_94,
  fps60,
};

namespace detail {

struct FrameRateRow {
  FrameRateKind kind;
  double value;
  std::string_view text;
};

inline constexpr auto frameRateRows = std::to_array<FrameRateRow>({
    {FrameRateKind::custom, 0.0, "custom"},
    {FrameRateKind::match, 0.0, "Match"},
    {FrameRateKind::halfstep, 0.5, "Half Step"},
    // Not 23.976: stored presets have this number, so it must not change.
    {FrameRateKind::fps23_98, 23.967, "23.97 fps"},
    {FrameRateKind::fps24, 24.0, "24 fps"},
    {FrameRateKind::fps25, 25.0, "25 fps"},
    {FrameRateKind::fps29_97, 29.97, "29.97 fps"},
    {FrameRateKind::fps30, 30.0, "30 fps"},
    {FrameRateKind::fps50, 50.0, "50 fps"},
    {FrameRateKind::fps59_94, 59.94, "59.94 fps"},
    {FrameRateKind::fps60, 60.0, "60 fps"},
});

QUILLONIC_EXPORT void reportUnknownFrameRate(double rawValue);

}  // namespace detail

/// Frames per second: the source's rate, half of it, a broadcast rate, or any other.
class FrameRate : public CaseWithPayload<FrameRateKind, double> {
 public:
  /// The rate of the source.
  static const FrameRate match;
  /// Half the rate of the source.
  static const FrameRate halfstep;
  /// Its value is 23.967, which is not the broadcast rate of 23.976: a fixed contract with stored presets.
  static const FrameRate fps23_98;
  /// 24 frames per second.
  static const FrameRate fps24;
  /// 25 frames per second.
  static const FrameRate fps25;
  /// 29.97 frames per second.
  static const FrameRate fps29_97;
  /// 30 frames per second.
  static const FrameRate fps30;
  /// 50 frames per second.
  static const FrameRate fps50;
  /// 59.94 frames per second.
  static const FrameRate fps59_94;
  /// 60 frames per second.
  static const FrameRate fps60;
  /// Any rate, kept as given. 0, a negative rate and NaN mean that no rate has been typed yet.
  static constexpr FrameRate custom(double value) noexcept { return {Kind::custom, value}; }

  /// The rate proposed by a picker.
  static constexpr double defaultCustomFrameRate = 1.0;

  /// The case for a stored number: the fixed case with exactly this value (0 and -0.0 are `match`), else a
  /// custom rate for a number above 0, including infinity. For any other number, including NaN, gives nothing
  /// and writes one line to the system log.
  static constexpr std::optional<FrameRate> fromRawValue(double rawValue);

  /// Frames per second; 0 for `match`, and the factor 0.5 for `halfstep`.
  constexpr double value() const noexcept { return kind() == Kind::custom ? payload() : row().value; }
  /// The value, which stored presets have.
  constexpr double frameRateForProto() const noexcept { return value(); }

  /// For people, in the user's language: "25 fps", "Custom: 12.0 fps"; only "Custom" for a custom rate that
  /// is not above 0.
  QUILLONIC_EXPORT std::string description() const;
  /// Like `description`, but "Custom" for any custom rate.
  QUILLONIC_EXPORT std::string pickerDescription() const;
  /// The text that identifies the case in programs: the English description, or "custom".
  constexpr std::string_view tag() const noexcept { return row().text; }

  /// Every case, with the custom rate 0 last. All spans stay valid for the life of the program.
  static constexpr std::span<const FrameRate> allCases() noexcept;
  /// The fixed cases.
  static constexpr std::span<const FrameRate> wellDefinedCases() noexcept;
  /// The cases that follow the source: `match` and `halfstep`.
  static constexpr std::span<const FrameRate> scaleOptions() noexcept;
  /// The fixed rates and the custom rate 0.
  static constexpr std::span<const FrameRate> exactFrameRateOptions() noexcept;

  /// The members of a list that are in `exactFrameRateOptions`, in list order. The only custom rate among
  /// them is 0.
  static std::vector<FrameRate> filterExactFrameRateOptions(std::span<const FrameRate> from);
  /// The members of a list that are in `scaleOptions`, in list order.
  static std::vector<FrameRate> filterScaleOptions(std::span<const FrameRate> from);

  /// The members of `allCases` that a codec accepts, in that order. A codec with a closed list of rates takes
  /// `match`, because the source may have one of them, but neither half a rate nor a custom one.
  static constexpr std::span<const FrameRate> allowed(Cloud_ConversionOptions::CodecType codec) noexcept;

  /// The stored rate; see `fromRawValue`.
  static constexpr std::optional<FrameRate> fromProto(
      const Cloud_ConversionOptions::VideoTranscodeOptions& video) {
    return fromRawValue(video.frameRate);
  }
  /// Stores the rate. A custom rate with a fixed case's value reads back as that case.
  constexpr void storeIn(Cloud_ConversionOptions::VideoTranscodeOptions& video) const noexcept {
    video.frameRate = frameRateForProto();
  }

 private:
  using CaseWithPayload::CaseWithPayload;

  constexpr const detail::FrameRateRow& row() const noexcept {
    return detail::frameRateRows[static_cast<std::size_t>(kind())];
  }
};

inline constexpr FrameRate FrameRate::match{FrameRateKind::match};
inline constexpr FrameRate FrameRate::halfstep{FrameRateKind::halfstep};
inline constexpr FrameRate FrameRate::fps23_98{FrameRateKind::fps23_98};
inline constexpr FrameRate FrameRate::fps24{FrameRateKind::fps24};
inline constexpr FrameRate FrameRate::fps25{FrameRateKind::fps25};
inline constexpr FrameRate FrameRate::fps29_97{FrameRateKind::fps29_97};
inline constexpr FrameRate FrameRate::fps30{FrameRateKind::fps30};
inline constexpr FrameRate FrameRate::fps50{FrameRateKind::fps50};
inline constexpr FrameRate FrameRate::fps59_94{FrameRateKind::fps59_94};
inline constexpr FrameRate FrameRate::fps60{FrameRateKind::fps60};

namespace detail {

// Every list of frame rates is a part of this one.
inline constexpr auto frameRates = std::to_array<FrameRate>({
    FrameRate::match,
    FrameRate::halfstep,
    FrameRate::fps23_98,
    FrameRate::fps24,
    FrameRate::fps25,
    FrameRate::fps29_97,
    FrameRate::fps30,
    FrameRate::fps50,
    FrameRate::fps59_94,
    FrameRate::fps60,
    FrameRate::custom(0.0),
});

// The progressive rates of high-definition VC-3.
inline constexpr auto highDefinitionFrameRates = std::to_array<FrameRate>({
    FrameRate::match,
    FrameRate::fps23_98,
    FrameRate::fps24,
    FrameRate::fps25,
    FrameRate::fps29_97,
    FrameRate::fps50,
    FrameRate::fps59_94,
});

}  // namespace detail

constexpr std::span<const FrameRate> FrameRate::allCases() noexcept {
  return detail::frameRates;
}

constexpr std::span<const FrameRate> FrameRate::wellDefinedCases() noexcept {
  return allCases().first(allCases().size() - 1);
}

constexpr std::span<const FrameRate> FrameRate::scaleOptions() noexcept {
  return allCases().first(2);
}

constexpr std::span<const FrameRate> FrameRate::exactFrameRateOptions() noexcept {
  return allCases().subspan(scaleOptions().size());
}

inline std::vector<FrameRate> FrameRate::filterExactFrameRateOptions(std::span<const FrameRate> from) {
  return detail::membersAmong(from, exactFrameRateOptions());
}

inline std::vector<FrameRate> FrameRate::filterScaleOptions(std::span<const FrameRate> from) {
  return detail::membersAmong(from, scaleOptions());
}

constexpr std::span<const FrameRate> FrameRate::allowed(Cloud_ConversionOptions::CodecType codec) noexcept {
  if (codecLimits(codec).anyFrameRate) return allCases();
  return detail::highDefinitionFrameRates;
}

constexpr std::optional<FrameRate> FrameRate::fromRawValue(double rawValue) {
  if (const auto* rate = detail::rowWhere(wellDefinedCases(), &FrameRate::value, rawValue)) return *rate;
  if (rawValue > 0) return custom(rawValue);
  detail::reportUnknownFrameRate(rawValue);
  return std::nullopt;
}

}  // namespace quillonic
