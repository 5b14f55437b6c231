/// Colours as hosts hold them, and their way to red, green and blue.
///
///     settings.setTimecodeBurnFontColor(Color::rgb(0.9, 0.5, 0));
///     settings.setTimecodeBurnBoxColor(Color::grey(0.1));
#pragma once

#include <quillonic/export.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace quillonic {

/// A colour in one of four forms. Components are usually 0 to 1, but any number is kept as it is given.
/// Colours are equal when their forms and components are.
class QUILLONIC_EXPORT Color {
 public:
  /// A colour of the generic RGB space.
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
  /// A colour of four printing inks.
  struct Cmyk {
    /// Cyan ink, which takes red away, from 0 for none to 1 for all of it.
    double cyan;
    /// Magenta ink, which takes green away.
    double magenta;
    /// Yellow ink, which takes blue away.
    double yellow;
    /// Black ink.
    double black;
    /// From 0 for transparent to 1 for opaque.
    double alpha;
    friend bool operator==(const Cmyk&, const Cmyk&) = default;
  };
  /// A pattern that is painted with.
  struct Pattern {
    /// For people; nothing looks a pattern up by it.
    std::string name;
    friend bool operator==(const Pattern&, const Pattern&) = default;
  };
  /// A colour as it was made, in one of its four forms.
  using Form = std::variant<Rgb, Grey, Cmyk, Pattern>;

  /// A colour of the generic RGB space. An alpha of 1 is opaque.
  static Color rgb(double red, double green, double blue, double alpha = 1);
  /// A grey: 0 is black, 1 is white.
  static Color grey(double white, double alpha = 1);
  /// A colour of four printing inks: 0 is none of an ink, 1 is all of it.
  static Color cmyk(double cyan, double magenta, double yellow, double black, double alpha = 1);
  /// A pattern that is painted with. It has no RGB form. The name is for people.
  static Color pattern(std::string_view name);

  /// The parts of a colour in the generic RGB space.
  struct RgbComponents {
    /// Red light, from 0 for none to 1 for full; a colour that was made of other numbers has those.
    double red = 0;
    /// Green light.
    double green = 0;
    /// Blue light.
    double blue = 0;
    /// Absent where the colour does not say how opaque it is; every colour made here does.
    std::optional<double> alpha;

    friend bool operator==(const RgbComponents&, const RgbComponents&) = default;
  };

  /// The components of a colour that already is RGB; nothing for the other forms, which have to be converted.
  std::optional<RgbComponents> rgbComponents() const noexcept;

  /// The colour in the generic RGB space; nothing for a pattern, and for any colour of which a component,
  /// once converted, is infinite or not a number. Grey becomes equal parts, inks are taken off white.
  std::optional<Color> inGenericRgbSpace() const noexcept;

  /// The colour as it was made, for `std::visit`.
  const Form& form() const noexcept { return form_; }

  /// The colour for people and logs: "RGB 1.0 0.5 0.0 alpha 1.0", "grey 0.5 alpha 1.0",
  /// "CMYK 0.0 1.0 1.0 0.0 alpha 1.0" or "pattern stripes".
  std::string description() const;

  friend bool operator==(const Color&, const Color&) = default;

 private:
  explicit Color(Form form) noexcept;

  Form form_;
};

}  // namespace quillonic
