/// Base of option sets.
///
///     class Restrictions : public OptionSet<Restrictions, std::uint64_t> {
///      public:
///       using OptionSet::OptionSet;
///       static const Restrictions withoutNetwork;
///     };
///     inline constexpr Restrictions Restrictions::withoutNetwork{1};
///
///     restrictions |= Restrictions::withoutNetwork;
///     restrictions &= ~Restrictions::withoutNetwork;
#pragma once

#include <quillonic/requirements.hpp>

#include <concepts>

namespace quillonic {

/// A set of options, one per bit, with the operators of a set: union `|`, intersection `&`, symmetric
/// difference `^`, complement `~`. Bits without an option are kept and have no effect.
template <class Options, std::integral RawValue> class OptionSet {
 public:
  /// The empty set.
  constexpr OptionSet() noexcept = default;
  /// The options whose bits are set.
  constexpr explicit OptionSet(RawValue rawValue) noexcept : rawValue_(rawValue) {}

  /// All bits, even those without an option.
  constexpr RawValue rawValue() const noexcept { return rawValue_; }
  /// Whether no bit is set.
  constexpr bool empty() const noexcept { return rawValue_ == 0; }
  /// Whether this set has every option of the other.
  constexpr bool contains(Options other) const noexcept {
    return (rawValue_ & other.rawValue()) == other.rawValue();
  }

  friend constexpr Options operator|(Options a, Options b) noexcept {
    return Options(static_cast<RawValue>(a.rawValue() | b.rawValue()));
  }
  friend constexpr Options operator&(Options a, Options b) noexcept {
    return Options(static_cast<RawValue>(a.rawValue() & b.rawValue()));
  }
  friend constexpr Options operator^(Options a, Options b) noexcept {
    return Options(static_cast<RawValue>(a.rawValue() ^ b.rawValue()));
  }
  friend constexpr Options operator~(Options a) noexcept {
    return Options(static_cast<RawValue>(~a.rawValue()));
  }
  friend constexpr Options& operator|=(Options& a, Options b) noexcept { return a = a | b; }
  friend constexpr Options& operator&=(Options& a, Options b) noexcept { return a = a & b; }
  friend constexpr Options& operator^=(Options& a, Options b) noexcept { return a = a ^ b; }
  friend constexpr bool operator==(Options a, Options b) noexcept { return a.rawValue() == b.rawValue(); }

 private:
  RawValue rawValue_ = 0;
};

}  // namespace quillonic
