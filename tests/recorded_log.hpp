// Records what the library logs during its lifetime.
#pragma once

#include <quillonic/platform/logging.hpp>

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

class RecordedLog {
 public:
  RecordedLog() : logger_(std::make_shared<Logger>()) { VantiroLogging::setDefaultLogger(logger_); }
  RecordedLog(const RecordedLog&) = delete;
  RecordedLog& operator=(const RecordedLog&) = delete;
  ~RecordedLog() { VantiroLogging::setDefaultLogger(nullptr); }

  // Every message after its level: "warning: ...".
  std::vector<std::string> lines() const { return logger_->lines(); }
  // All of them, each with a line break after it.
  std::string text() const {
    std::string text;
    for (const auto& line : lines()) text.append(line).append("\n");
    return text;
  }

 private:
  class Logger final : public Loggable {
   public:
    void logDebug(std::string_view message) override { add("debug: ", message); }
    void logInfo(std::string_view message) override { add("info: ", message); }
    void logWarning(std::string_view message) override { add("warning: ", message); }
    void logError(std::string_view message) override { add("error: ", message); }

    std::vector<std::string> lines() const {
      const std::lock_guard lock(mutex_);
      return lines_;
    }

   private:
    void add(std::string_view level, std::string_view message) {
      const std::lock_guard lock(mutex_);
      lines_.push_back(std::string(level).append(message));
    }

    mutable std::mutex mutex_;
    std::vector<std::string> lines_;
  };

  std::shared_ptr<Logger> logger_;
};

}  // namespace quillonic
