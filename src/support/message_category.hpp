// Categories of errors whose messages are a table.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic {

// Messages by number, from 1.
class MessageCategory final : public std::error_category {
 public:
  constexpr MessageCategory(const char* name, std::span<const std::string_view> messages) noexcept
      : name_(name), messages_(messages) {}

  const char* name() const noexcept override { return name_; }

  std::string message(int error) const override {
    const bool isListed = error >= 1 && static_cast<std::size_t>(error) <= messages_.size();
    return std::string(isListed ? messages_[static_cast<std::size_t>(error) - 1] : "unknown error");
  }

 private:
  const char* name_;
  std::span<const std::string_view> messages_;
};

}  // namespace quillonic
