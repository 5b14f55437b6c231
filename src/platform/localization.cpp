#include <quillonic/platform/localization.hpp>

#include <utility>

#include "support/settable.hpp"

namespace quillonic {
namespace {

Settable<std::shared_ptr<const Localizer>>& currentLocalizer() {
  static Settable<std::shared_ptr<const Localizer>> current(nullptr);
  return current;
}

}  // namespace

Localizer::~Localizer() = default;

void Localization::setLocalizer(std::shared_ptr<const Localizer> localizer) {
  currentLocalizer().set(std::move(localizer));
}

std::string Localization::localized(std::string_view text, std::initializer_list<std::string_view> values) {
  constexpr std::string_view mark = "{}";
  const auto localizer = currentLocalizer().get();
  auto filled = localizer ? localizer->localized(text) : std::string(text);
  std::size_t at = 0;
  for (const auto value : values) {
    at = filled.find(mark, at);
    if (at == std::string::npos) break;
    filled.replace(at, mark.size(), value);
    at += value.size();
  }
  return filled;
}

}  // namespace quillonic
