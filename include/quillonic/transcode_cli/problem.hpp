/// What can be wrong with the settings of a command line, before a tool uses them or a parent sends them.
///
///     for (const auto& problem : settings.problems()) std::cerr << problem.description() << '\n';
///     // -vr: found "24fps", expected a decimal number
///     // --help: no flag of the transcoder, although it contains -h
///     // -wmt_text: "For Review" arrives as "for review"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quillonic {

/// The kinds of problems.
enum class TranscodeProblemKind : std::uint8_t {
  /// The flag is set aside, because it contains no known flag.
  unknownFlag,
  /// The flag is valid, but only because it contains a known one, which it does not set.
  containedFlag,
  /// The flag does not take the value: it is not of the flag's kind, is not one of its fixed values, or
  /// follows a switch.
  unreadableValue,
  /// A tool that is started with the settings reads another value, or no such flag.
  changedOnArrival,
};

/// The kinds in order, by the names of their cases.
template <> struct CaseTable<TranscodeProblemKind> {
  static constexpr auto rows = std::to_array<CaseRow<TranscodeProblemKind>>({
      {TranscodeProblemKind::unknownFlag, "unknownFlag"},
      {TranscodeProblemKind::containedFlag, "containedFlag"},
      {TranscodeProblemKind::unreadableValue, "unreadableValue"},
      {TranscodeProblemKind::changedOnArrival, "changedOnArrival"},
  });
};

/// One thing that is wrong with one flag. A flag can have several problems.
struct TranscodeProblem {
  /// What is wrong.
  TranscodeProblemKind kind = TranscodeProblemKind::unknownFlag;
  /// The flag, as the model has it.
  std::string flag;
  /// Its value, as the model has it.
  std::string value;
  /// For `unreadableValue`, what was expected, for people: "a decimal number". For `containedFlag`, the known
  /// flag. Empty for the other kinds.
  std::string expected;
  /// For `changedOnArrival`, the value that the tool reads instead; absent when the tool does not read the
  /// flag. Absent for the other kinds.
  std::optional<std::string> arrivesAs;

  /// An English line for logs and users, with control characters as "\n" and "\x1b".
  QUILLONIC_EXPORT std::string description() const;

  friend bool operator==(const TranscodeProblem&, const TranscodeProblem&) = default;
};

}  // namespace quillonic
