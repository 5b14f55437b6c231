#include "platform/color_text.hpp"

#include <quillonic/platform/color_coding.hpp>

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "support/overloaded.hpp"
#include "text/number_text.hpp"

// The texts of a colour: for people, for archives and for the command line.
namespace quillonic {
namespace {

constexpr std::string_view rgbKey = "rgb";
constexpr std::string_view rgb255Key = "rgb255";
constexpr std::string_view greyKey = "grey";
constexpr std::string_view cmykKey = "cmyk";
constexpr std::string_view patternKey = "pattern";

using Components = std::vector<double>;

CodedValue formed(std::string_view form, CodedValue components) {
  CodedRecord record;
  record.add(form, std::move(components));
  return record;
}

struct Encoder {
  CodedValue operator()(const Color::Rgb& c) const {
    return formed(rgbKey, quillonic::encode(Components{c.red, c.green, c.blue, c.alpha}));
  }
  CodedValue operator()(const Color::Grey& c) const {
    return formed(greyKey, quillonic::encode(Components{c.white, c.alpha}));
  }
  CodedValue operator()(const Color::Cmyk& c) const {
    return formed(cmykKey, quillonic::encode(Components{c.cyan, c.magenta, c.yellow, c.black, c.alpha}));
  }
  CodedValue operator()(const Color::Pattern& c) const { return formed(patternKey, c.name); }
};

template <class... Numbers> std::string listed(std::string_view form, Numbers... numbers) {
  std::string text(form);
  (text.append(" ").append(number_text::shortest(numbers)), ...);
  return text;
}

std::string withAlpha(std::string text, double alpha) {
  return text.append(" alpha ").append(number_text::shortest(alpha));
}

// Red, green and blue; 255 is full.
std::optional<Color::RgbComponents> components(const Color& color) noexcept {
  const auto rgb = color.rgbComponents();
  if (rgb && !color.isOutOf255()) {
    const auto scaled = [](double component) { return component < 1 ? 255 * component : component; };
    return Color::RgbComponents{scaled(rgb->red), scaled(rgb->green), scaled(rgb->blue), rgb->alpha};
  }
  return color.outOf255();
}

}  // namespace

std::string Color::description() const {
  return std::visit(Overloaded{
                        [](const Rgb& color) {
                          return withAlpha(listed("RGB", color.red, color.green, color.blue), color.alpha);
                        },
                        [](const Grey& color) { return withAlpha(listed("grey", color.white), color.alpha); },
                        [](const Cmyk& color) {
                          return withAlpha(
                              listed("CMYK", color.cyan, color.magenta, color.yellow, color.black),
                              color.alpha);
                        },
                        [](const Pattern& color) { return "pattern " + color.name; },
                    },
                    form_);
}

CodedValue Coding<Color>::encode(const Color& color) {
  if (color.isOutOf255()) {
    if (const auto c = color.outOf255()) {
      return formed(rgb255Key, quillonic::encode(Components{c->red, c->green, c->blue, *c->alpha}));
    }
  }
  return std::visit(Encoder{}, color.form());
}

Color Coding<Color>::decode(const CodedValue& coded, std::string_view key) {
  const auto& record = coded.require<CodedRecord>(key);
  if (record.members().size() > 1) throw DecodingError(key, "the colour has several forms");
  if (const auto* name = record.optional<std::string>(patternKey)) return Color::pattern(*name);
  const auto componentsOf = [&](std::string_view form, std::size_t count) -> std::optional<Components> {
    const auto* list = record.find(form);
    if (!list) return std::nullopt;
    auto components = Coding<Components>::decode(*list, form);
    if (components.size() != count)
      throw DecodingError(form, "the colour has too few or too many components");
    return components;
  };
  if (const auto c = componentsOf(rgbKey, 4)) return Color::rgb((*c)[0], (*c)[1], (*c)[2], (*c)[3]);
  if (const auto c = componentsOf(rgb255Key, 4)) return Color::rgb255((*c)[0], (*c)[1], (*c)[2], (*c)[3]);
  if (const auto c = componentsOf(greyKey, 2)) return Color::grey((*c)[0], (*c)[1]);
  if (const auto c = componentsOf(cmykKey, 5))
    return Color::cmyk((*c)[0], (*c)[1], (*c)[2], (*c)[3], (*c)[4]);
  throw DecodingError(key, "the colour has no known form");
}

namespace color_text {

std::optional<Color> fromOutOf255(std::string_view text) {
  std::array<double, 3> components;
  for (std::size_t i = 0; i < components.size(); ++i) {
    const bool isLast = i + 1 == components.size();
    const auto divide = text.find(',');
    if (isLast != (divide == std::string_view::npos)) return std::nullopt;
    const auto component = number_text::read<double>(text.substr(0, divide));
    if (!component || !std::isfinite(*component)) return std::nullopt;
    components[i] = *component;
    if (!isLast) text.remove_prefix(divide + 1);
  }
  return Color::rgb255(components[0], components[1], components[2]);
}

std::optional<std::string> outOf255(const Color& color) {
  const auto numbers = components(color);
  if (!numbers) return std::nullopt;
  std::string text;
  for (const double number : {numbers->red, numbers->green, numbers->blue}) {
    // Also rejects NaN.
    if (!(number >= -0x1p63 && number < 0x1p63)) return std::nullopt;
    text.append(text.empty() ? "" : ",").append(std::to_string(static_cast<std::int64_t>(number)));
  }
  return text;
}

}  // namespace color_text

}  // namespace quillonic
