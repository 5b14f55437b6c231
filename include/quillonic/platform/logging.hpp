/// The logging service. A host hands the library its own logger once; until then messages go to standard
/// error.
///
///     class HostLogger : public quillonic::Loggable { ... };
///     quillonic::VantiroLogging::setDefaultLogger(std::make_shared<HostLogger>());
#pragma once

#include <quillonic/export.hpp>

#include <memory>
#include <string_view>

namespace quillonic {

/// Receives log messages. Any thread may call any operation at any time, so an implementation keeps itself
/// safe. A message may hold any bytes, line breaks included, and lives until the call returns.
class QUILLONIC_EXPORT Loggable {
 public:
  Loggable() = default;
  Loggable(const Loggable&) = delete;
  Loggable& operator=(const Loggable&) = delete;
  virtual ~Loggable();

  /// Receives what only a developer looks for.
  virtual void logDebug(std::string_view message) = 0;
  /// Receives what happened as it should.
  virtual void logInfo(std::string_view message) = 0;
  /// Receives what was passed over or put right, such as a value that was left out.
  virtual void logWarning(std::string_view message) = 0;
  /// Receives what failed, also where the caller gets no more than an absent result.
  virtual void logError(std::string_view message) = 0;
};

/// Where the library finds its logger.
class QUILLONIC_EXPORT VantiroLogging {
 public:
  VantiroLogging() = delete;

  /// The logger in use, never null. The built-in one writes one line per message to standard error, the level
  /// before the message, with line breaks and other control characters of the message as "\n" or "\x1b", so
  /// that a message is one line whatever file names it holds.
  static std::shared_ptr<Loggable> defaultLogger();

  /// Replaces the logger; null brings the built-in one back. May be called while other threads log: a call
  /// that has begun ends with the logger it began with.
  static void setDefaultLogger(std::shared_ptr<Loggable> logger);
};

}  // namespace quillonic
