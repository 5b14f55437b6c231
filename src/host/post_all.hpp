// Posting what a look has found.
#pragma once

#include <quillonic/host/notification_center.hpp>

#include <exception>
#include <vector>

namespace quillonic::host {

// Posts all even if observers throw; then throws the first exception.
inline void postAll(NotificationCenter& center, const std::vector<Notification>& notifications) {
  std::exception_ptr first;
  for (const auto& notification : notifications) {
    try {
      center.post(notification);
    } catch (...) {
      if (!first) first = std::current_exception();
    }
  }
  if (first) std::rethrow_exception(first);
}

}  // namespace quillonic::host
