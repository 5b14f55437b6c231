// Messages that go past the host's logger to where a person already looks.
#pragma once

#include <string_view>

namespace quillonic {

// Sends one line to the log of the system at the level of a notice, under the name and with the options that
// the process itself has chosen for it. Nothing is reported when the system keeps no log. A message ends at
// its first NUL byte.
void writeToSystemLog(std::string_view message);

// Writes the message and a line break to standard output in one piece. Nothing is reported when that fails.
void printLine(std::string_view message);

}  // namespace quillonic
