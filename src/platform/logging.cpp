#include <quillonic/platform/logging.hpp>

#include <cstdio>
#include <string>
#include <utility>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"
#include "text/pieces.hpp"

namespace quillonic {
namespace {

class StandardErrorLogger final : public Loggable {
 public:
  void logDebug(std::string_view message) override { write("debug: ", message); }
  void logInfo(std::string_view message) override { write("info: ", message); }
  void logWarning(std::string_view message) override { write("warning: ", message); }
  void logError(std::string_view message) override { write("error: ", message); }

 private:
  static void write(std::string_view level, std::string_view message) {
    const auto line = std::string(level) + text::printable(message) + '\n';
    // One call, so that lines of several threads do not mix.
    static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
  }
};

Service<std::shared_ptr<Loggable>>& logger() {
  static const NeverDestroyed<Service<std::shared_ptr<Loggable>>> service(
      std::make_shared<StandardErrorLogger>());
  return *service;
}

}  // namespace

Loggable::~Loggable() = default;

std::shared_ptr<Loggable> VantiroLogging::defaultLogger() {
  return logger().current();
}

void VantiroLogging::setDefaultLogger(std::shared_ptr<Loggable> replacement) {
  logger().replace(std::move(replacement));
}

}  // namespace quillonic
