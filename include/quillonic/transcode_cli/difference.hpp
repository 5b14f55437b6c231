/// How two command lines differ.
///
///     for (const auto& change : settings.differencesFrom(before)) {
///       std::clog << change.flag << ": " << change.before.value_or("not set") << " -> "
///                 << change.after.value_or("not set") << '\n';
///     }
#pragma once

#include <quillonic/requirements.hpp>

#include <optional>
#include <string>

namespace quillonic {

/// A flag that two models do not have alike.
struct TranscodeDifference {
  /// The flag with its hyphen.
  std::string flag;
  /// The value in the earlier model; absent when the flag is not set there.
  std::optional<std::string> before;
  /// The value in the later model; absent when the flag is not set there.
  std::optional<std::string> after;

  friend bool operator==(const TranscodeDifference&, const TranscodeDifference&) = default;
};

}  // namespace quillonic
