// The error that an operation throws.
#pragma once

#include <quillonic/support/coding.hpp>

#include <functional>
#include <optional>
#include <string>
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

// The key that cannot be decoded, which the message names too; nothing where all can.
template <class Operation> std::optional<std::string> undecodedKey(Operation decoding) {
  try {
    static_cast<void>(decoding());
  } catch (const DecodingError& error) {
    return std::string(error.what()).find(error.key()) == std::string::npos ? "not told" : error.key();
  }
  return std::nullopt;
}

}  // namespace quillonic
