#include <quillonic/platform/color.hpp>

#include <cmath>
#include <utility>

#include "support/overloaded.hpp"

namespace quillonic {
Color::Color(Form form) noexcept : form_(std::move(form)) {}

Color Color::rgb(double red, double green, double blue, double alpha) {
  return Color(Rgb{red, green, blue, alpha});
}

Color Color::rgb255(double red, double green, double blue, double alpha) {
  constexpr double full = 255;
  Color color(Rgb{red / full, green / full, blue / full, alpha});
  color.outOf255_ = {red, green, blue};
  return color;
}

Color Color::grey(double white, double alpha) {
  return Color(Grey{white, alpha});
}

Color Color::cmyk(double cyan, double magenta, double yellow, double black, double alpha) {
  return Color(Cmyk{cyan, magenta, yellow, black, alpha});
}

Color Color::pattern(std::string_view name) {
  return Color(Pattern{std::string(name)});
}

std::optional<Color::RgbComponents> Color::rgbComponents() const noexcept {
  const auto* color = std::get_if<Rgb>(&form_);
  if (!color) return std::nullopt;
  return RgbComponents{color->red, color->green, color->blue, color->alpha};
}

std::optional<Color> Color::inGenericRgbSpace() const noexcept {
  const auto converted = std::visit(Overloaded{
                                        [](const Rgb& color) -> std::optional<Rgb> { return color; },
                                        [](const Grey& color) -> std::optional<Rgb> {
                                          return Rgb{color.white, color.white, color.white, color.alpha};
                                        },
                                        [](const Cmyk& color) -> std::optional<Rgb> {
                                          const double light = 1 - color.black;
                                          return Rgb{(1 - color.cyan) * light, (1 - color.magenta) * light,
                                                     (1 - color.yellow) * light, color.alpha};
                                        },
                                        [](const Pattern&) -> std::optional<Rgb> { return std::nullopt; },
                                    },
                                    form_);
  const bool hasNumbers = converted && std::isfinite(converted->red) && std::isfinite(converted->green) &&
                          std::isfinite(converted->blue) && std::isfinite(converted->alpha);
  if (!hasNumbers) return std::nullopt;
  Color color(*converted);
  color.outOf255_ = outOf255_;
  return color;
}

std::optional<Color::RgbComponents> Color::outOf255() const noexcept {
  const auto generic = inGenericRgbSpace();
  if (!generic) return std::nullopt;
  const auto [red, green, blue, alpha] = *generic->rgbComponents();
  constexpr double full = 255;
  if (!outOf255_) return RgbComponents{full * red, full * green, full * blue, alpha};
  return RgbComponents{(*outOf255_)[0], (*outOf255_)[1], (*outOf255_)[2], alpha};
}

}  // namespace quillonic
