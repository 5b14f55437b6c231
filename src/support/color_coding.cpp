#include <quillonic/support/color_coding.hpp>

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace quillonic {
namespace {

constexpr std::string_view rgbKey = "rgb";
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

}  // namespace

CodedValue Coding<Color>::encode(const Color& color) {
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
  if (const auto c = componentsOf(greyKey, 2)) return Color::grey((*c)[0], (*c)[1]);
  if (const auto c = componentsOf(cmykKey, 5))
    return Color::cmyk((*c)[0], (*c)[1], (*c)[2], (*c)[3], (*c)[4]);
  throw DecodingError(key, "the colour has no known form");
}

}  // namespace quillonic
