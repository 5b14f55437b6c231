/// Takes a tool's argument list apart: which words are flags, which flags are known, which values belong to
/// them.
///
///     constexpr auto form = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;
///     const CLIArgumentSanitizer sanitizer(sanitizeAllCLIFlags<CLICustodialFlag>(form), form);
///     auto [custodial, rest] = sanitizer.splitByValidity(words);   // the parent's flags, and the tool's own
///     sanitizer.enumerateSanitizedCLIEntries(
///         custodial, [](std::string_view flag) { return CLISanitizationOptions{}; },
///         [&](std::string_view flag, std::optional<std::string_view> value) { ... },    // known
///         [&](std::string_view flag, std::optional<std::string_view> value) { ... });   // unknown
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/tool_cli/argument_words.hpp>
#include <quillonic/tool_cli/sanitization_options.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Groups an argument list by flag and tells known flags from unknown ones. A word is a flag when its
/// sanitized form begins with "-". A flag is valid when one of the valid flags occurs within it, compared
/// without regard to case: "-deepanalysisx" is valid where "-deepAnalysis" is. One thread at a time uses one
/// sanitizer. Only running out of memory, or a block that throws, makes its operations throw; no operation changes it.
class QUILLONIC_EXPORT CLIArgumentSanitizer {
 public:
  /// `validCommandFlags` are the flags that the tool accepts, with their hyphen. None at all makes every flag
  /// invalid, and an empty text among them matches nothing. `flagSanitizationOptions` say how words are
  /// normalised before they are looked at as flags; absent means not at all.
  CLIArgumentSanitizer(std::vector<std::string> validCommandFlags,
                       std::optional<CLISanitizationOptions> flagSanitizationOptions);
  CLIArgumentSanitizer(const CLIArgumentSanitizer&) = delete;
  CLIArgumentSanitizer& operator=(const CLIArgumentSanitizer&) = delete;

  /// The accepted flags as they were given.
  const std::vector<std::string>& validCommandFlags() const noexcept { return validCommandFlags_; }
  /// How words are normalised before they are looked at as flags; absent means not at all.
  std::optional<CLISanitizationOptions> flagSanitizationOptions() const noexcept { return options_; }
  /// Changes that for the walks to come.
  void setFlagSanitizationOptions(std::optional<CLISanitizationOptions> options) noexcept {
    options_ = options;
  }

  /// Receives a flag's sanitized text and one of its values, or no value when none follows the flag. The
  /// texts live until the block returns.
  using PairBlock = FunctionRef<void(std::string_view flag, std::optional<std::string_view> value)>;

  /// Walks the list and reports each flag where it stands, once per value that follows it, or once without a
  /// value. `sanitizationOptionsCallback` is asked once per flag, with its sanitized text, how its values are
  /// normalised. Words before the first flag belong to none and are not reported.
  void enumerateSanitizedCLIEntries(
      ArgumentWords cliArgs,
      FunctionRef<CLISanitizationOptions(std::string_view flag)> sanitizationOptionsCallback,
      PairBlock validPairBlock, PairBlock invalidPairBlock) const;

  /// An argument list taken apart, every word as it stood. The words belong to the list that was given.
  struct Split {
    /// The valid flags, each with the values that follow it.
    std::vector<std::string_view> valid;
    /// All other words, those before the first flag included.
    std::vector<std::string_view> rest;
  };

  /// Separates the words of the valid flags from all others, both in their order: how a tool takes the
  /// custodial flags out of its list before a model reads the rest.
  Split splitByValidity(ArgumentWords cliArgs) const;

 private:
  template <class Visit> void walk(ArgumentWords cliArgs, Visit visit) const;

  std::vector<std::string> validCommandFlags_;
  std::optional<CLISanitizationOptions> options_;
  // The valid flags as they are looked for: lower-cased, without empty ones.
  std::vector<std::string> lowered_;
};

}  // namespace quillonic
