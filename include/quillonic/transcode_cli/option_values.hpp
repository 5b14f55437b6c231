/// How the typed options read and write the values of flags.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/text_dictionary.hpp>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillonic {

/// The values under a model's flags, as the typed options see them.
///
/// A switch is on when its flag is there, whatever stands behind it. Every other option is absent when its
/// flag is not there, or when the value does not read as what the option is. Setting no value removes the
/// flag, and so does switching a switch off.
///
/// - Numbers are zero or more and finite. The whole value has to read once it is trimmed of white space, in
///   every locale alike and without a "+". They are written as the shortest decimal that reads back, a
///   decimal number with at least one digit after its point. What is only read keeps its text: "24" stays
///   "24". A word that begins with "-" would be the next flag, so a negative number cannot travel on a
///   command line: setting one, or one that is not finite, removes the flag and logs a warning.
/// - A frame size is two integers of that kind around an "x".
/// - Fixed values and anchors are read without regard to case, because parsing lower-cases values. Only the
///   listed ones are read; any can be set, and is stored as it is.
/// - Texts and paths are read and stored as they are, neither trimmed nor lower-cased.
/// - A colour is three decimal numbers divided by commas, 255 being full. It reads as an opaque RGB colour.
///   Components are truncated toward zero when they are written. One below 1 is a fraction of 255, and an RGB
///   colour's component of 1 or more is taken to be out of 255 already, so that the RGB colour 1, 1, 1 is
///   written "1,1,1": a fixed contract. Those of greys and inks are fractions always. A colour without an RGB
///   form, or with a component that no 64-bit integer holds, removes the flag and logs a warning.
class QUILLONIC_EXPORT TranscodeOptionValues {
 protected:
  TranscodeOptionValues() = default;
  TranscodeOptionValues(TranscodeOptionValues&&) noexcept = default;
  TranscodeOptionValues& operator=(TranscodeOptionValues&&) noexcept = default;
  ~TranscodeOptionValues() = default;

  /// Whether the flag is there, whatever its value.
  bool isOn(std::string_view flag) const noexcept;
  /// Stores the flag with the empty text, or removes it.
  void setOn(std::string_view flag, bool value);
  /// A switch that the separator of the timecode follows.
  void setDropFrame(std::string_view flag, bool value);

  /// The flag's value as `Value`; nothing when the flag is absent or its value does not read.
  template <class Value> QUILLONIC_HIDDEN std::optional<Value> read(std::string_view flag) const;
  /// Stores the value's text; without a value, and for one that cannot be written, removes the flag.
  template <class Value>
  QUILLONIC_HIDDEN void write(std::string_view flag, const std::optional<Value>& value);

  /// Numbers of which each has a flag of its own behind a common prefix.
  std::vector<std::int64_t> readTracks(std::string_view prefix) const;
  /// Replaces all flags that begin with the prefix by one for each number.
  void writeTracks(std::string_view prefix, const std::vector<std::int64_t>& tracks);

  /// Every valid flag of the model with its value.
  TextDictionary flagValueLookup_;
};

}  // namespace quillonic
