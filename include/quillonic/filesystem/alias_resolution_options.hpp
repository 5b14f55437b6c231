/// What the resolution of an alias file may do.
#pragma once

#include <quillonic/requirements.hpp>
#include <quillonic/support/option_set.hpp>

#include <cstdint>

namespace quillonic {

/// A set of restrictions. On Linux all of them always hold: a resolution asks nobody, mounts nothing and
/// wakes no automounter.
class AliasResolutionOptions : public OptionSet<AliasResolutionOptions, std::uint64_t> {
 public:
  using OptionSet::OptionSet;

  /// Never asks the user, for example for a volume or a password.
  static const AliasResolutionOptions withoutUI;
  /// Never mounts the target's volume.
  static const AliasResolutionOptions withoutMounting;
};

inline constexpr AliasResolutionOptions AliasResolutionOptions::withoutUI{1};
inline constexpr AliasResolutionOptions AliasResolutionOptions::withoutMounting{2};

}  // namespace quillonic
