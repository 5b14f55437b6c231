/// The types of the transcoder's flags, and the properties of each flag. The flags are constants in
/// flags_table.hpp; vocabulary.hpp includes both.
///
///     static_assert(VAVVideoFormatFlag.valueKind() == FlagValueKind::listed);
///     for (const auto& flag : allCases<VAVTranscodeVideoArgumentFlag>()) {
///       std::cout << flag << ' ' << rawValue(flag.valueKind()) << "  " << flag.meaning() << '\n';
///       for (const auto value : flag.fixedValues()) std::cout << "  " << value << '\n';
///     }
///     if (const auto* row = transcodeFlagRow("-vr")) std::cout << row->meaning;    // a flag of any family
#pragma once

#include <quillonic/support/enumeration.hpp>
#include <quillonic/support/text_backed.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillonic {

/// What follows a flag on the command line. The raw value is a short English name for help texts.
enum class FlagValueKind : std::uint8_t {
  /// Nothing: the flag is a switch.
  none,
  /// A path.
  path,
  /// Any text.
  text,
  /// A timecode, as in "01:00:00:00".
  timecode,
  /// A whole number.
  integer,
  /// A decimal number.
  decimal,
  /// A frame size, as in "960x540".
  size,
  /// Red, green and blue, 0 to 255 each, as in "255,0,0".
  color,
  /// One of the flag's fixed values.
  listed,
};

/// The kinds and their names.
template <> struct CaseTable<FlagValueKind> {
  static constexpr auto rows = std::to_array<CaseRow<FlagValueKind>>({
      {FlagValueKind::none, ""},
      {FlagValueKind::path, "path"},
      {FlagValueKind::text, "text"},
      {FlagValueKind::timecode, "timecode"},
      {FlagValueKind::integer, "integer"},
      {FlagValueKind::decimal, "number"},
      {FlagValueKind::size, "size"},
      {FlagValueKind::color, "color"},
      {FlagValueKind::listed, "name"},
  });
};

/// One flag, its kind of value, its sentence and its fixed values.
struct TranscodeFlagRow {
  /// The flag with its hyphen.
  std::string_view text;
  /// An English name for people, with the unit of a number: "Frame rate (fps)". Display code looks it up in
  /// the user's language.
  std::string_view label;
  /// What follows the flag.
  FlagValueKind valueKind;
  /// An English sentence for help texts.
  std::string_view meaning;
  /// The listed values, in order; none for a flag that takes anything else.
  std::span<const std::string_view> fixedValues{};
  /// For each listed value an English name for people, "ProRes 422 HQ".
  std::span<const std::string_view> fixedValueNames{};
};

/// The families of flags.
enum class TranscodeFlagFamily : std::uint8_t {
  command,
  general,
  video,
  audio,
  timecode,
  watermarkFile,
  watermarkText,
  arriLook,
};

/// A flag of one family.
template <TranscodeFlagFamily family> class TranscodeFlag : public TextBacked<TranscodeFlag<family>> {
 public:
  using TextBacked<TranscodeFlag>::TextBacked;

  /// The flag as written on a command line, which is its text.
  constexpr std::string_view cliFlag() const noexcept { return this->rawValue(); }

  /// What follows the flag: nothing for any command, a text for any other flag without a constant.
  constexpr FlagValueKind valueKind() const noexcept {
    if constexpr (family == TranscodeFlagFamily::command) return FlagValueKind::none;
    const auto* row = this->row();
    return row ? row->valueKind : FlagValueKind::text;
  }

  /// Whether a value follows the flag: true for every kind but `none`.
  constexpr bool acceptsArguments() const noexcept { return valueKind() != FlagValueKind::none; }

  /// An English name for people, with the unit of a number; empty for a text without a constant.
  constexpr std::string_view label() const noexcept {
    const auto* row = this->row();
    return row ? row->label : std::string_view{};
  }

  /// An English sentence for help texts; empty for a text without a constant.
  constexpr std::string_view meaning() const noexcept {
    const auto* row = this->row();
    return row ? row->meaning : std::string_view{};
  }

  /// The values that can follow, in their fixed order; none for a flag that takes anything else, and for a
  /// text without a constant.
  constexpr std::span<const std::string_view> fixedValues() const noexcept {
    const auto* row = this->row();
    return row ? row->fixedValues : std::span<const std::string_view>{};
  }

  friend constexpr std::string_view cliFlag(const TranscodeFlag& flag) noexcept { return flag.cliFlag(); }
  friend constexpr bool acceptsArguments(const TranscodeFlag& flag) noexcept {
    return flag.acceptsArguments();
  }

 private:
  constexpr const TranscodeFlagRow* row() const noexcept {
    return detail::rowWhere(CaseTable<TranscodeFlag>::flags, &TranscodeFlagRow::text, this->rawValue());
  }
};

/// Stand-alone commands: each prints something and ends the tool.
using VAVTranscodeCliCommand = TranscodeFlag<TranscodeFlagFamily::command>;
/// General flags: files, file format, preset.
using VAVTranscodeArgumentFlag = TranscodeFlag<TranscodeFlagFamily::general>;
/// Video flags.
using VAVTranscodeVideoArgumentFlag = TranscodeFlag<TranscodeFlagFamily::video>;
/// Audio flags.
using VAVTranscodeAudioArgumentFlag = TranscodeFlag<TranscodeFlagFamily::audio>;
/// Flags of the timecode track and of the timecode burnt into the picture.
using VAVTranscodeTimecodeArgumentFlag = TranscodeFlag<TranscodeFlagFamily::timecode>;
/// Flags of the image watermark.
using VAVTranscodeWatermarkFileArgumentFlag = TranscodeFlag<TranscodeFlagFamily::watermarkFile>;
/// Flags of the text watermark.
using VAVTranscodeWatermarkTextArgumentFlag = TranscodeFlag<TranscodeFlagFamily::watermarkText>;
/// Look settings for ARRI camera sources.
using VAVTranscodeArriLookArgumentFlag = TranscodeFlag<TranscodeFlagFamily::arriLook>;

}  // namespace quillonic
