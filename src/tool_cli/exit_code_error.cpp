#include <quillonic/tool_cli/exit_code_error.hpp>

namespace quillonic {

CLIExitCodeError::CLIExitCodeError(int exitStatus, const std::string& message)
    : std::runtime_error(message), exitStatus_(exitStatus) {}

// Not in the header, so that the exception has one type across library borders.
CLIExitCodeError::CLIExitCodeError(const CLIExitCodeError&) = default;
CLIExitCodeError& CLIExitCodeError::operator=(const CLIExitCodeError&) = default;
CLIExitCodeError::~CLIExitCodeError() = default;

}  // namespace quillonic
