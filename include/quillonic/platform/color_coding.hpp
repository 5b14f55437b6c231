/// How colours are encoded: a record with one member, whose key is the form and whose value is the list of
/// components in order, or the name of a pattern.
///
///     encode(Color::grey(0.5));                 // {"grey": [0.5, 1.0]}
///     encode(Color::rgb255(255, 255, 255));     // {"rgb255": [255.0, 255.0, 255.0, 1.0]}
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/color.hpp>
#include <quillonic/support/coding.hpp>

#include <string_view>

namespace quillonic {

template <> struct QUILLONIC_EXPORT Coding<Color> {
  static CodedValue encode(const Color& color);
  /// Throws a `DecodingError` when the form is unknown, has the wrong number of components, or is not the
  /// only member.
  static Color decode(const CodedValue& coded, std::string_view key);
};

}  // namespace quillonic
