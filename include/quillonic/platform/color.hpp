/// Colours as hosts hold them, and their conversion to red, green and blue.
///
///     settings.setTimecodeBurnFontColor(Color::rgb255(255, 255, 255));    // a picker in bytes
///     settings.setTimecodeBurnBoxColor(Color::grey(0.1));
///     if (auto bytes = picked.outOf255()) show(bytes->red, bytes->green, bytes->blue);
#pragma once

#include <quillonic/export.hpp>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace quillonic {

/// A colour in one of four forms. Components are usually 0 to 1, but any number is kept as given. Colours are
/// equal when their forms and components are; the scale on which a colour was given does not count.
class QUILLONIC_EXPORT Color {
 public:
  /// A colour in the generic RGB space.
  struct Rgb {
    /// Red light, from 0 for none to 1 for full.
    double red;
    /// Green light.
    double green;
    /// Blue light.
    double blue;
    /// From 0 for transparent to 1 for opaque.
    double alpha;
    friend bool operator==(const Rgb&, const Rgb&) = default;
  };
  /// A grey.
  struct Grey {
    /// From 0 for black to 1 for white.
    double white;
    /// From 0 for transparent to 1 for opaque.
    double alpha;
    friend bool operator==(const Grey&, const Grey&) = default;
  };
  /// A colour made of four printing inks.
  struct Cmyk {
    /// Cyan ink, which absorbs red, from 0 for none to 1 for full.
    double cyan;
    /// Magenta ink, which absorbs green.
    double magenta;
    /// Yellow ink, which absorbs blue.
    double yellow;
    /// Black ink.
    double black;
    /// From 0 for transparent to 1 for opaque.
    double alpha;
    friend bool operator==(const Cmyk&, const Cmyk&) = default;
  };
  /// A pattern to paint with.
  struct Pattern {
    /// For people; nothing looks up a pattern by its name.
    std::string name;
    friend bool operator==(const Pattern&, const Pattern&) = default;
  };
  /// A colour in one of its four forms.
  using Form = std::variant<Rgb, Grey, Cmyk, Pattern>;

  /// A colour in the generic RGB space, as fractions. An alpha of 1 is opaque. The transcoder's command line
  /// has a fixed rule for fractions: a component of 1 or more counts as already out of 255, so that white
  /// given as 1, 1, 1 is written "1,1,1", almost black. Give full components with `rgb255`.
  static Color rgb(double red, double green, double blue, double alpha = 1);
  /// A colour in the generic RGB space, as numbers from 0 for none to 255 for full; alpha is 0 to 1. Equal to
  /// `rgb` of the same fractions, but written as given: every byte travels unchanged, 255 included.
  static Color rgb255(double red, double green, double blue, double alpha = 1);
  /// A grey: 0 is black, 1 is white.
  static Color grey(double white, double alpha = 1);
  /// A colour made of four printing inks: 0 is none of an ink, 1 is full.
  static Color cmyk(double cyan, double magenta, double yellow, double black, double alpha = 1);
  /// A pattern to paint with. It has no RGB form. The name is for people.
  static Color pattern(std::string_view name);

  /// The components of a colour in the generic RGB space.
  struct RgbComponents {
    /// Red light, from 0 for none to 1 for full; other numbers are kept as given.
    double red = 0;
    /// Green light.
    double green = 0;
    /// Blue light.
    double blue = 0;
    /// Absent where the opacity is unknown; every colour made here has one.
    std::optional<double> alpha;

    friend bool operator==(const RgbComponents&, const RgbComponents&) = default;
  };

  /// The components of an RGB colour; nothing for the other forms, which must be converted first.
  std::optional<RgbComponents> rgbComponents() const noexcept;

  /// Red, green and blue of any form that has them, from 0 for none to 255 for full: those given to `rgb255`,
  /// else 255 times the components in the generic RGB space, neither rounded nor limited. Alpha is 0 to 1.
  /// `rgb255` of a fraction's result makes a full component travel. Nothing when `inGenericRgbSpace` gives
  /// nothing.
  std::optional<RgbComponents> outOf255() const noexcept;
  /// Whether the colour was made by `rgb255` or read from a command line.
  bool isOutOf255() const noexcept { return outOf255_.has_value(); }

  /// The colour in the generic RGB space; nothing for a pattern, or when a converted component is infinite or
  /// NaN. Grey becomes equal parts; inks are subtracted from white.
  std::optional<Color> inGenericRgbSpace() const noexcept;

  /// The colour in its own form, for `std::visit`.
  const Form& form() const noexcept { return form_; }

  /// The colour for people and logs: "RGB 1.0 0.5 0.0 alpha 1.0", "grey 0.5 alpha 1.0",
  /// "CMYK 0.0 1.0 1.0 0.0 alpha 1.0" or "pattern stripes".
  std::string description() const;

  friend bool operator==(const Color& a, const Color& b) { return a.form_ == b.form_; }

 private:
  explicit Color(Form form) noexcept;

  Form form_;
  // Red, green and blue as given to `rgb255`, because a fraction times 255 need not give the number back.
  std::optional<std::array<double, 3>> outOf255_;
};

}  // namespace quillonic
