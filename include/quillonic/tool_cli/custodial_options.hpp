/// The flags that a parent adds to every child's command line, as a record.
///
///     auto words = settings.launchArguments();                                  // a parent
///     CLICustodialOptions(getpid(), 7).appendTo(words);
///
///     const auto words = ArgumentWords::fromMain(argc, argv);                   // a tool
///     const auto [parent, rest] = CLICustodialOptions::read(words);
///     const TranscodeCliArguments settings(rest);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/text_dictionary.hpp>
#include <quillonic/tool_cli/argument_store.hpp>
#include <quillonic/tool_cli/argument_words.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// The process that starts a tool, any tool: "-parentPid", then "-parentAppNumber" if present.
struct QUILLONIC_EXPORT CLICustodialOptions final : CliArgumentStore {
  /// The process identifier of the parent application. A negative number, here and below, is written but not
  /// read, because its word begins with a hyphen.
  std::int32_t parentProcessId = 0;
  /// The number that identifies the parent application; absent until the parent sets it.
  std::optional<std::int64_t> parentAppNumber;

  /// Process 0, without a number.
  CLICustodialOptions() = default;
  /// The parent's record.
  explicit CLICustodialOptions(std::int32_t processId,
                               std::optional<std::int64_t> appNumber = std::nullopt) noexcept
      : parentProcessId(processId), parentAppNumber(appNumber) {}

  struct Read;
  /// Takes the parent's flags out of a tool's list, wherever they are in it. Letter case does not matter, and
  /// the last of repeated flags counts.
  static Read read(ArgumentWords cliArgs);

  /// The words of a child, in a fixed order.
  std::vector<std::string> orderedCLITexts() const override;
  /// The same flags and values.
  TextDictionary argumentLookup() const override;
  /// The words of `orderedCLITexts`.
  std::vector<std::string> launchArguments() const override { return orderedCLITexts(); }

  /// Compares field by field.
  bool operator==(const CLICustodialOptions& other) const noexcept {
    return parentProcessId == other.parentProcessId && parentAppNumber == other.parentAppNumber;
  }
};

/// An argument list without its parent's flags.
struct CLICustodialOptions::Read {
  /// The parent's flags; absent when the list has no process identifier, or a value that is not a number.
  std::optional<CLICustodialOptions> parent;
  /// All other words, unchanged; they belong to the given list. Without a `parent` these are all words, so
  /// that a tool reports flags that cannot be read as unknown.
  std::vector<std::string_view> rest;
};

}  // namespace quillonic
