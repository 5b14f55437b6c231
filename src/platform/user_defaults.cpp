#include <quillonic/platform/user_defaults.hpp>

#include <utility>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic {
namespace {

class NothingSet final : public UserDefaults {
 public:
  AnyValue value(std::string_view /*key*/) const override { return {}; }
};

using Defaults = Service<std::shared_ptr<const UserDefaults>>;

Defaults& service() {
  static const NeverDestroyed<Defaults> defaults(std::make_shared<const NothingSet>());
  return *defaults;
}

}  // namespace

UserDefaults::~UserDefaults() = default;

std::shared_ptr<const UserDefaults> UserDefaults::current() {
  return service().current();
}

void UserDefaults::replace(std::shared_ptr<const UserDefaults> defaults) {
  service().replace(std::move(defaults));
}

}  // namespace quillonic
