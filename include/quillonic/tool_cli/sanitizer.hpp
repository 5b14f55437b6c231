/// Splits a tool's argument list: which words are flags, which flags are known, and which values belong to
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

/// Groups an argument list by flag and separates known flags from unknown ones. A word is a flag when its
/// sanitized form begins with "-". A flag is valid when it contains one of the valid flags, ignoring case:
/// "-deepanalysisx" is valid because of "-deepAnalysis". Only one thread at a time may use a sanitizer. Its
/// operations throw only when memory runs out or a block throws; none changes it.
class QUILLONIC_EXPORT CLIArgumentSanitizer {
 public:
  /// `validCommandFlags` are the flags that the tool accepts, with their hyphen. An empty list makes every
  /// flag invalid, and an empty text in it matches nothing. `flagSanitizationOptions` normalise words before
  /// they are examined as flags; absent means no normalisation.
  CLIArgumentSanitizer(std::vector<std::string> validCommandFlags,
                       std::optional<CLISanitizationOptions> flagSanitizationOptions);
  CLIArgumentSanitizer(const CLIArgumentSanitizer&) = delete;
  CLIArgumentSanitizer& operator=(const CLIArgumentSanitizer&) = delete;

  /// The accepted flags, as given.
  const std::vector<std::string>& validCommandFlags() const noexcept { return validCommandFlags_; }
  /// How words are normalised before they are examined as flags; absent means not at all.
  std::optional<CLISanitizationOptions> flagSanitizationOptions() const noexcept { return options_; }
  /// Takes effect for later walks.
  void setFlagSanitizationOptions(std::optional<CLISanitizationOptions> options) noexcept {
    options_ = options;
  }

  /// Receives a flag's sanitized text and one of its values, or nothing when it has none. The texts live
  /// until the block returns.
  using PairBlock = FunctionRef<void(std::string_view flag, std::optional<std::string_view> value)>;

  /// Walks the list and reports each flag in its place, once per value after it, or once without a value.
  /// Asks `sanitizationOptionsCallback` once per flag, with its sanitized text, how to normalise its values.
  /// Words before the first flag belong to none and are not reported.
  void enumerateSanitizedCLIEntries(
      ArgumentWords cliArgs,
      FunctionRef<CLISanitizationOptions(std::string_view flag)> sanitizationOptionsCallback,
      PairBlock validPairBlock, PairBlock invalidPairBlock) const;

  /// A split argument list, every word unchanged. The words belong to the given list.
  struct Split {
    /// The valid flags, each with its values.
    std::vector<std::string_view> valid;
    /// All other words, including those before the first flag.
    std::vector<std::string_view> rest;
  };

  /// Separates the words of the valid flags from all others, each in list order. So a tool takes the
  /// custodial flags out of its list before a model reads the rest.
  Split splitByValidity(ArgumentWords cliArgs) const;

 private:
  template <class Visit> void walk(ArgumentWords cliArgs, Visit visit) const;

  std::vector<std::string> validCommandFlags_;
  std::optional<CLISanitizationOptions> options_;
  // The valid flags, lower-cased, without empty ones.
  std::vector<std::string> lowered_;
};

}  // namespace quillonic
