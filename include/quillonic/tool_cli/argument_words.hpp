/// A view of the words of a command line.
///
///     int main(int argc, char** argv) {
///       const auto [parent, words] = CLICustodialOptions::read(ArgumentWords::fromMain(argc, argv));
///       TranscodeCliArguments settings(words);
///     }
#pragma once

#include <quillonic/requirements.hpp>

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <ranges>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace quillonic {

/// A view of an argument list: the words after a tool's name. The words belong to the caller and must outlive
/// the view. Operations of this library use a view only until they return.
class ArgumentWords {
  template <class Word>
  static constexpr bool isText = std::same_as<Word, std::string> || std::same_as<Word, std::string_view> ||
                                 std::same_as<Word, const char*> || std::same_as<Word, char*>;
  template <class Word>
  using View = std::span<std::conditional_t<std::is_pointer_v<Word>, const char* const, const Word>>;

 public:
  constexpr ArgumentWords() noexcept = default;

  /// Any contiguous list of words: a vector, array or span of `std::string`, `std::string_view` or
  /// NUL-terminated texts. Callers must not store a view of a temporary list.
  // NOLINTBEGIN(google-explicit-constructor): a list of words reads as itself
  template <std::ranges::contiguous_range Words>
  requires(!std::same_as<std::remove_cvref_t<Words>, ArgumentWords> && std::ranges::sized_range<Words> &&
           isText<std::ranges::range_value_t<Words>>) constexpr ArgumentWords(Words&& words) noexcept
      : words_(View<std::ranges::range_value_t<Words>>(std::ranges::data(words), std::ranges::size(words))) {}
  /// Words listed in braces as an argument; they live until the call returns.
  constexpr ArgumentWords(std::initializer_list<std::string_view> words) noexcept
      : words_(std::span<const std::string_view>(words.begin(), words.size())) {}
  // NOLINTEND(google-explicit-constructor)

  /// The words after the program's name, as `main` receives them. No words for a null `argv` or an empty
  /// list.
  static constexpr ArgumentWords fromMain(int argc, const char* const* argv) noexcept {
    if (argc < 2 || !argv) return {};
    return std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc) - 1);
  }

  /// The number of words.
  constexpr std::size_t size() const noexcept {
    return std::visit([](auto words) { return words.size(); }, words_);
  }
  /// Whether there are no words.
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
