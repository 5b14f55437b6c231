/// How the typed options read and write the values of flags.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/text_dictionary.hpp>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillonic {

/// What decimal options take: any number, and of a `float` the one that its shortest text says. Thus 0.1F is
/// 0.1, where a conversion gives 0.10000000149011612.
class DecimalNumber {
 public:
  // NOLINTBEGIN(google-explicit-constructor): numbers are passed as they are
  /// The number itself.
  constexpr DecimalNumber(double value) noexcept : value_(value) {}
  /// The number that the text of a `float` says.
  DecimalNumber(std::same_as<float> auto value) : value_(ofText(value)) {}
  /// The number.
  constexpr operator double() const noexcept { return value_; }
  // NOLINTEND(google-explicit-constructor)

 private:
  QUILLONIC_EXPORT static double ofText(float value);

  double value_;
};

/// The values of a model's flags, as seen by the typed options.
///
/// A switch is on when its flag is present, whatever the value. Any other option is absent when its flag is
/// missing or its value cannot be read as the option's type. Setting no value, or turning a switch off,
/// removes the flag.
///
/// - Numbers are finite and not negative. The whole value, trimmed of white space, must be a number, in every
/// locale alike and without a "+". A number is written as the shortest decimal that reads back, a decimal one
/// with at least one digit after the point. Reading alone changes no text: "24" stays "24". A word with a
/// leading "-" would be the next flag, so setting a negative or non-finite number removes the flag and logs a
/// warning.
/// - A frame size is two such integers separated by an "x".
/// - Fixed values and anchors are read ignoring case, because parsing lower-cases values. Only listed values
/// are read; any value can be set and is stored unchanged.
/// - Texts and paths are read and stored unchanged, neither trimmed nor lower-cased.
/// - A colour is three decimal numbers separated by commas; 255 is full. It reads as the opaque colour
/// `Color::rgb255` of these numbers, and such a colour is written with its numbers: bytes do not change. Of a
/// colour made by `Color::rgb`, a component below 1 is a fraction of 255 and one of 1 or more counts as a
/// value out of 255, so that the RGB colour 1, 1, 1 is written "1,1,1": a fixed contract. Components of greys
/// and inks are always fractions. Written components are truncated toward zero. A negative component is
/// written too, under the same contract; only a negative red does not survive a command line, because its
/// word begins with a hyphen. A colour without an RGB form, or with a component outside 64-bit integers,
/// removes the flag and logs a warning.
class QUILLONIC_EXPORT TranscodeOptionValues {
 protected:
  TranscodeOptionValues() = default;
  TranscodeOptionValues(TranscodeOptionValues&&) noexcept = default;
  TranscodeOptionValues& operator=(TranscodeOptionValues&&) noexcept = default;
  ~TranscodeOptionValues() = default;

  /// Whether the flag is present, whatever its value.
  bool isOn(std::string_view flag) const noexcept;
  /// Stores the flag with the empty text, or removes it.
  void setOn(std::string_view flag, bool value);
  /// Stores a timecode with the separator of the drop-frame switch, if that is set; or removes it.
  void writeTimecode(std::string_view flag, std::optional<std::string_view> value);
  /// Sets or removes a switch and changes the separator of the timecode to match.
  void setDropFrame(std::string_view flag, bool value);

  /// The flag's value as `Value`; nothing when the flag is absent or its value cannot be read.
  template <class Value> QUILLONIC_HIDDEN std::optional<Value> read(std::string_view flag) const;
  /// Stores the value's text. Removes the flag for no value, or one that cannot be written.
  template <class Value>
  QUILLONIC_HIDDEN void write(std::string_view flag, const std::optional<Value>& value);

  /// Numbers that have one flag each, with a common prefix.
  std::vector<std::int64_t> readTracks(std::string_view prefix) const;
  /// Replaces all flags with the prefix by one per number.
  void writeTracks(std::string_view prefix, const std::vector<std::int64_t>& tracks);

  /// Every valid flag of the model and its value.
  TextDictionary flagValueLookup_;
};

}  // namespace quillonic
