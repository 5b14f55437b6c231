// The error that an operation throws.
#pragma once

#include <functional>
#include <system_error>

namespace quillonic {

template <class Operation, class... Arguments>
std::error_code errorOf(Operation operation, const Arguments&... arguments) {
  try {
    static_cast<void>(std::invoke(operation, arguments...));
  } catch (const std::system_error& error) {
    return error.code();
  }
  return {};
}

}  // namespace quillonic
