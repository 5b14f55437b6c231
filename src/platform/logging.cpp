#include <quillonic/platform/logging.hpp>

#include <cstdio>
#include <string>
#include <utility>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic {
namespace {

void appendPrintable(std::string& line, char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (c == '\n') {
    line += "\\n";
  } else if (byte < 0x20 || byte == 0x7F) {
    constexpr std::string_view digits = "0123456789abcdef";
    line.append("\\x").push_back(digits[byte >> 4]);
    line.push_back(digits[byte & 0xF]);
  } else {
    line.push_back(c);
  }
}

class StandardErrorLogger final : public Loggable {
 public:
  void logDebug(std::string_view message) override { write("debug: ", message); }
  void logInfo(std::string_view message) override { write("info: ", message); }
  void logWarning(std::string_view message) override { write("warning: ", message); }
  void logError(std::string_view message) override { write("error: ", message); }

 private:
  static void write(std::string_view level, std::string_view message) {
    std::string line(level);
    line.reserve(level.size() + message.size() + 1);
    for (const char c : message) appendPrintable(line, c);
    line.push_back('\n');
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
  if (!replacement) replacement = std::make_shared<StandardErrorLogger>();
  logger().replace(std::move(replacement));
}

}  // namespace quillonic
