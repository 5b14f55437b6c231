/// What the flags of all tools have in common, and the flags that a parent adds to each child's command line;
/// `CLICustodialOptions` writes and reads those.
///
///     static_assert(cliFlag(CLICustodialFlag::parentPid) == "-parentPid");
///     static_assert(acceptsArguments(CLICustodialFlag::parentPid));
#pragma once

#include <quillonic/support/enumeration.hpp>
#include <quillonic/tool_cli/sanitization_options.hpp>

#include <array>
#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// A command-line flag: its text with the leading hyphen, and whether a value follows it.
template <class T>
concept CliFlag = RawHashCase<T> && requires(const T& flag) {
  { cliFlag(flag) } -> std::convertible_to<std::string_view>;
  { acceptsArguments(flag) } -> std::same_as<bool>;
  { allCases<T>() } -> std::same_as<std::span<const T>>;
};

/// Every flag's text with the options applied, in case order: the `validCommandFlags` of a sanitizer.
template <CliFlag Flag> std::vector<std::string> sanitizeAllCLIFlags(CLISanitizationOptions options) {
  std::vector<std::string> texts;
  for (const Flag& flag : allCases<Flag>()) texts.push_back(options.sanitize(cliFlag(flag)));
  return texts;
}

/// One case of a closed flag enumeration. Its text is the flag without the hyphen.
template <class Flag> struct FlagRow : CaseRow<Flag> {
  /// `text` is the flag with its hyphen, a literal.
  consteval FlagRow(Flag flag, std::string_view text, bool takesValue)
      : CaseRow<Flag>{flag, text.substr(1)}, cliFlag(text), acceptsArguments(takesValue) {}

  /// The flag as written on a command line, hyphen included.
  std::string_view cliFlag;
  /// Whether a value follows the flag.
  bool acceptsArguments;
};

/// An `enum class` whose table consists of flag rows.
template <class T>
concept ClosedFlagEnumeration = ClosedEnumeration<T> && std::same_as < const FlagRow<T>
&, decltype(CaseTable<T>::rows[0]) > ;

/// The flag as written on a command line, a hyphen and the raw value; empty for an unlisted value.
template <ClosedFlagEnumeration Flag> constexpr std::string_view cliFlag(Flag flag) noexcept {
  const auto* row = detail::rowOf(flag);
  return row ? row->cliFlag : std::string_view{};
}

/// Whether a value follows the flag; false for an unlisted value.
template <ClosedFlagEnumeration Flag> constexpr bool acceptsArguments(Flag flag) noexcept {
  const auto* row = detail::rowOf(flag);
  return row && row->acceptsArguments;
}

/// The flags that a parent application adds to every child tool's command line.
enum class CLICustodialFlag : std::uint8_t {
  /// The process identifier of the parent application.
  parentPid,
  /// The number that identifies the parent application.
  parentAppNumber,
};

/// The custodial flags in case order.
template <> struct CaseTable<CLICustodialFlag> {
  static constexpr auto rows = std::to_array<FlagRow<CLICustodialFlag>>({
      {CLICustodialFlag::parentPid, "-parentPid", true},
      {CLICustodialFlag::parentAppNumber, "-parentAppNumber", true},
  });
};

static_assert(CliFlag<CLICustodialFlag>);

}  // namespace quillonic
