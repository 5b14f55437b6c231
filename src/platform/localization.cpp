#include <quillonic/platform/localization.hpp>

#include <utility>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic {
namespace {

Service<std::shared_ptr<const Localizer>>& localizer() {
  static const NeverDestroyed<Service<std::shared_ptr<const Localizer>>> service(nullptr);
  return *service;
}

}  // namespace

Localizer::~Localizer() = default;

void Localization::setLocalizer(std::shared_ptr<const Localizer> localizer) {
  quillonic::localizer().replace(std::move(localizer));
}

std::string Localization::localized(std::string_view text, std::initializer_list<std::string_view> values) {
  constexpr std::string_view mark = "{}";
  const auto current = localizer().current();
  auto filled = current ? current->localized(text) : std::string(text);
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
