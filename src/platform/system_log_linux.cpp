#include <cstdio>
#include <string>
#include <syslog.h>

#include "platform/system_log.hpp"

namespace quillonic {

void writeToSystemLog(std::string_view message) {
  syslog(LOG_NOTICE, "%s", std::string(message).c_str());
}

void printLine(std::string_view message) {
  const auto line = std::string(message) + '\n';
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stdout));
}

}  // namespace quillonic
