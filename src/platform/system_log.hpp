// Messages for people that bypass the host's logger.
#pragma once

#include <string_view>

namespace quillonic {

// Sends one line to the system log at the level of a notice, with the name and options that the process has
// chosen for it. Reports nothing when there is no system log. A message ends at its first NUL byte.
void writeToSystemLog(std::string_view message);

// Writes the message and a line break to standard output in one piece. Reports no failure.
void printLine(std::string_view message);

}  // namespace quillonic
