/// The error with which a tool ends.
#pragma once

#include <quillonic/export.hpp>

#include <stdexcept>
#include <string>

namespace quillonic {

/// Raised by a tool that must end with a given exit status. Which statuses there are is the tool's choice.
class QUILLONIC_EXPORT CLIExitCodeError : public std::runtime_error {
 public:
  /// `exitStatus` is kept as given; a system passes on its low eight bits only. `message` is for people.
  explicit CLIExitCodeError(int exitStatus, const std::string& message = "the tool must end");
  /// Exceptions are copied when they are caught by value and passed between threads.
  CLIExitCodeError(const CLIExitCodeError&);
  /// Takes over status and message of the other.
  CLIExitCodeError& operator=(const CLIExitCodeError&);
  ~CLIExitCodeError() override;

  /// The status for `main` to return, as it was given.
  int exitStatus() const noexcept { return exitStatus_; }

 private:
  int exitStatus_;
};

}  // namespace quillonic
