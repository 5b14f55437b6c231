/// The words of a command line, seen without a copy.
///
///     int main(int argc, char** argv) {
///       TranscodeCliArguments settings(ArgumentWords::fromMain(argc, argv));
///     }
#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillonic {

/// A view of an argument list: the words that follow a tool's name. The words belong to the caller and must
/// stay for as long as the view is used; every operation of this library that takes one is done with it on
/// return.
class ArgumentWords {
 public:
  constexpr ArgumentWords() noexcept = default;

  // A list of words in any of its usual forms reads as itself.
  // NOLINTBEGIN(google-explicit-constructor)
  constexpr ArgumentWords(std::span<const std::string> words) noexcept : words_(words) {}
  constexpr ArgumentWords(std::span<const std::string_view> words) noexcept : words_(words) {}
  constexpr ArgumentWords(std::span<const char* const> words) noexcept : words_(words) {}
  constexpr ArgumentWords(const std::vector<std::string>& words) noexcept
      : words_(std::span<const std::string>(words)) {}
  constexpr ArgumentWords(const std::vector<std::string_view>& words) noexcept
      : words_(std::span<const std::string_view>(words)) {}
  constexpr ArgumentWords(std::initializer_list<std::string_view> words) noexcept
      : words_(std::span<const std::string_view>(words.begin(), words.size())) {}
  // NOLINTEND(google-explicit-constructor)

  /// The words behind the program's name, as `main` receives them. A null `argv` or an empty list gives no
  /// words.
  static constexpr ArgumentWords fromMain(int argc, const char* const* argv) noexcept {
    if (argc < 2 || !argv) return {};
    return std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc) - 1);
  }

  constexpr std::size_t size() const noexcept {
    return std::visit([](auto words) { return words.size(); }, words_);
  }
  constexpr bool empty() const noexcept { return size() == 0; }

  /// The word at a position below `size()`.
  constexpr std::string_view operator[](std::size_t position) const noexcept {
    return std::visit([=](auto words) { return std::string_view(words[position]); }, words_);
  }

 private:
  std::variant<std::span<const std::string_view>, std::span<const std::string>, std::span<const char* const>>
      words_;
};

}  // namespace quillonic
