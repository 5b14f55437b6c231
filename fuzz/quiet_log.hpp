// A logger that drops everything: a fuzz run would print millions of messages about odd input.
#pragma once

#include <quillonic/platform/logging.hpp>

#include <memory>
#include <string_view>

namespace quillonic::fuzz {

class QuietLog final : public Loggable {
 public:
  static void install() { VantiroLogging::setDefaultLogger(std::make_shared<QuietLog>()); }

  void logDebug(std::string_view /*message*/) override {}
  void logInfo(std::string_view /*message*/) override {}
  void logWarning(std::string_view /*message*/) override {}
  void logError(std::string_view /*message*/) override {}
};

}  // namespace quillonic::fuzz
