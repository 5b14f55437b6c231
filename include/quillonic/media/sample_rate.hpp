/// Audio sample rates.
///
///     static_assert(SampleRate::hz48000.hertz() == 48000);
///     SampleRate::fromHertz(22050).description();                            // "22.05 kHz"
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

/// The cases of `SampleRate`, in order.
enum class SampleRateKind : std::uint8_t { custom, matchSource, hz44100, hz48000, hz96000 };

namespace detail {

struct SampleRateRow {
  SampleRateKind kind;
  std::int64_t hertz;
  std::string_view text;
};

inline constexpr auto sampleRateRows = std::to_array<SampleRateRow>({
    {SampleRateKind::custom, 0, "custom"},
    {SampleRateKind::matchSource, 0, "Match Source"},
    {SampleRateKind::hz44100, 44100, "44.1 kHz"},
    {SampleRateKind::hz48000, 48000, "48 kHz"},
    {SampleRateKind::hz96000, 96000, "96 kHz"},
});

}  // namespace detail

/// Audio samples per second.
class SampleRate : public CaseWithPayload<SampleRateKind, std::int64_t> {
 public:
  /// The rate of the source.
  static const SampleRate matchSource;
  /// 44100 hertz.
  static const SampleRate hz44100;
  /// 48000 hertz.
  static const SampleRate hz48000;
  /// 96000 hertz.
  static const SampleRate hz96000;
  /// Any rate in hertz, kept as given.
  static constexpr SampleRate custom(std::int64_t hertz) noexcept { return {Kind::custom, hertz}; }

  /// The rate in hertz proposed by a picker: 48000 unless a host sets another.
  QUILLONIC_EXPORT static std::int64_t defaultCustomHz() noexcept;
  /// Sets any number for the whole process; safe while other threads read it. Existing lists keep the earlier
  /// number.
  QUILLONIC_EXPORT static void setDefaultCustomHz(std::int64_t hertz) noexcept;

  /// The case for a stored number: `matchSource` below 1, else the fixed case with exactly this rate, else a
  /// custom one.
  static constexpr SampleRate fromHertz(std::int64_t hertz) noexcept;

  /// Hertz; 0 for `matchSource`.
  constexpr std::int64_t hertz() const noexcept { return isCustom() ? payload() : row().hertz; }

  /// Whether the rate is custom, even with the number of a fixed case.
  constexpr bool isCustom() const noexcept { return kind() == Kind::custom; }

  /// For people, in the user's language: "48 kHz", "22.05 kHz", "1000 Hz". Custom rates are in kilohertz from
  /// 1001 on.
  QUILLONIC_EXPORT std::string description() const;
  /// Like `description`, but "Custom" for any custom rate.
  QUILLONIC_EXPORT std::string pickerDescription() const;
  /// The text that identifies the case in programs: the English description, or "custom".
  constexpr std::string_view tag() const noexcept { return row().text; }

  /// The fixed cases, `matchSource` first.
  static constexpr std::span<const SampleRate> wellDefinedCases() noexcept;

  /// `wellDefinedCases`, then a custom rate with the `defaultCustomHz` of the first call. The list is built
  /// once and lives as long as the program, so a later default does not change it.
  QUILLONIC_EXPORT static std::span<const SampleRate> allCommonCases();

  /// `allCommonCases`: a video codec does not limit the audio.
  static std::span<const SampleRate> allowed(Cloud_ConversionOptions::CodecType /*codec*/) {
    return allCommonCases();
  }

  /// The stored rate; see `fromHertz`.
  static constexpr SampleRate fromProto(
      const Cloud_ConversionOptions::AudioTranscodeOptions& audio) noexcept {
    return fromHertz(audio.sampleRate);
  }
  /// Stores the rate. A custom rate below 1, or with a fixed case's number, reads back as the fixed case.
  constexpr void storeIn(Cloud_ConversionOptions::AudioTranscodeOptions& audio) const noexcept {
    audio.sampleRate = hertz();
  }

 private:
  using CaseWithPayload::CaseWithPayload;

  constexpr const detail::SampleRateRow& row() const noexcept {
    return detail::sampleRateRows[static_cast<std::size_t>(kind())];
  }
};

inline constexpr SampleRate SampleRate::matchSource{SampleRateKind::matchSource};
inline constexpr SampleRate SampleRate::hz44100{SampleRateKind::hz44100};
inline constexpr SampleRate SampleRate::hz48000{SampleRateKind::hz48000};
inline constexpr SampleRate SampleRate::hz96000{SampleRateKind::hz96000};

namespace detail {
inline constexpr auto fixedSampleRates = std::to_array<SampleRate>({
    SampleRate::matchSource,
    SampleRate::hz44100,
    SampleRate::hz48000,
    SampleRate::hz96000,
});
}  // namespace detail

constexpr std::span<const SampleRate> SampleRate::wellDefinedCases() noexcept {
  return detail::fixedSampleRates;
}

constexpr SampleRate SampleRate::fromHertz(std::int64_t hertz) noexcept {
  if (hertz < 1) return matchSource;
  const auto* rate = detail::rowWhere(wellDefinedCases(), &SampleRate::hertz, hertz);
  return rate ? *rate : custom(hertz);
}

}  // namespace quillonic
