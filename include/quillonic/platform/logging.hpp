/// The logging service. A host sets its own logger once; until then messages go to standard error.
///
///     class HostLogger : public quillonic::Loggable { ... };
///     quillonic::VantiroLogging::setDefaultLogger(std::make_shared<HostLogger>());
#pragma once

#include <quillonic/export.hpp>

#include <memory>
#include <string_view>

namespace quillonic {

/// Receives log messages. Any thread may call any operation at any time: implementations must be thread-safe.
/// A message may have any bytes, line breaks included, and lives until the call returns.
class QUILLONIC_EXPORT Loggable {
 public:
  Loggable() = default;
  Loggable(const Loggable&) = delete;
  Loggable& operator=(const Loggable&) = delete;
  virtual ~Loggable();

  /// Receives details for developers.
  virtual void logDebug(std::string_view message) = 0;
  /// Receives expected events.
  virtual void logInfo(std::string_view message) = 0;
  /// Receives what was skipped or corrected, such as a value that was left out.
  virtual void logWarning(std::string_view message) = 0;
  /// Receives failures, also where the caller only gets an absent result.
  virtual void logError(std::string_view message) = 0;
};

/// Holds the library's logger.
class QUILLONIC_EXPORT VantiroLogging {
 public:
  VantiroLogging() = delete;

  /// The logger in use, never null. The built-in logger writes one line per message to standard error, the
  /// level before the message. It escapes line breaks and other control characters as "\n" or "\x1b", so that
  /// each message is one line whatever file names it has.
  static std::shared_ptr<Loggable> defaultLogger();

  /// Replaces the logger; null restores the built-in one. May be called while other threads log: a running
  /// call finishes with the logger it began with.
  static void setDefaultLogger(std::shared_ptr<Loggable> logger);
};

}  // namespace quillonic
