#include "transcode_cli/displayed_option.hpp"

#include <quillonic/platform/localization.hpp>

#include "text/pieces.hpp"
#include "text/unicode.hpp"

namespace quillonic {
namespace {

std::string textOf(const TranscodeFlagRow& row, std::optional<std::string_view> text) {
  const bool isSwitch = row.valueKind == FlagValueKind::none;
  if (!text) return Localization::localized(isSwitch ? "Off" : "Not set");
  if (isSwitch) return Localization::localized("On");
  if (!row.fixedValues.empty()) {
    const auto wanted = text::lowerCased(text::trimmed(*text));
    for (std::size_t i = 0; i < row.fixedValues.size(); ++i) {
      if (text::lowerCased(row.fixedValues[i]) == wanted) {
        return Localization::localized(row.fixedValueNames[i]);
      }
    }
  }
  return text::printable(*text);
}

}  // namespace

DisplayedOption displayed(const TranscodeFlagRow& row, std::optional<std::string_view> text) {
  return {std::string(row.text), Localization::localized(row.label), textOf(row, text)};
}

}  // namespace quillonic
