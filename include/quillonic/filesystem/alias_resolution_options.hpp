/// What the resolution of an alias file may do.
#pragma once

#include <cstdint>

namespace quillonic {

/// A set of restrictions. On Linux all of them hold whether they are set or not: nobody is ever asked, nothing
/// is ever mounted, and no automounter is woken. Bits that name no option are kept and do nothing.
class AliasResolutionOptions {
 public:
  constexpr AliasResolutionOptions() noexcept = default;
  /// The set of those options whose bits are set.
  constexpr explicit AliasResolutionOptions(std::uint64_t rawValue) noexcept : rawValue_(rawValue) {}

  /// Never asks the user, for a volume or a password for example.
  static const AliasResolutionOptions withoutUI;
  /// Never mounts the target's volume.
  static const AliasResolutionOptions withoutMounting;

  /// The bits, those included that name no option.
  constexpr std::uint64_t rawValue() const noexcept { return rawValue_; }
  /// Whether every option of the other set is in this one.
  constexpr bool contains(AliasResolutionOptions other) const noexcept {
    return (rawValue_ & other.rawValue_) == other.rawValue_;
  }

  friend constexpr AliasResolutionOptions operator|(AliasResolutionOptions a,
                                                    AliasResolutionOptions b) noexcept {
    return AliasResolutionOptions(a.rawValue_ | b.rawValue_);
  }
  friend constexpr bool operator==(AliasResolutionOptions, AliasResolutionOptions) = default;

 private:
  std::uint64_t rawValue_ = 0;
};

inline constexpr AliasResolutionOptions AliasResolutionOptions::withoutUI{1};
inline constexpr AliasResolutionOptions AliasResolutionOptions::withoutMounting{2};

}  // namespace quillonic
