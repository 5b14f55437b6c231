/// The error that ends a tool.
#pragma once

#include <quillonic/export.hpp>

#include <stdexcept>
#include <string>

namespace quillonic {

/// Thrown by a tool that must end with a given exit status. Each tool defines its own statuses.
class QUILLONIC_EXPORT CLIExitCodeError : public std::runtime_error {
 public:
  /// `exitStatus` is kept as given, but the system passes on only its low eight bits. `message` is for
  /// people.
  explicit CLIExitCodeError(int exitStatus, const std::string& message = "the tool must end");
  /// Copies status and message, for exceptions caught by value or passed between threads.
  CLIExitCodeError(const CLIExitCodeError&);
  /// Copies status and message.
  CLIExitCodeError& operator=(const CLIExitCodeError&);
  ~CLIExitCodeError() override;

  /// The status to return from `main`, as given.
  int exitStatus() const noexcept { return exitStatus_; }

 private:
  int exitStatus_;
};

}  // namespace quillonic
