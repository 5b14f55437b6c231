/// What a copy lacks of its source.
///
///     if (copy.unheld.contains(Unheld::owner)) tell("the copy belongs to you");
#pragma once

#include <quillonic/requirements.hpp>
#include <quillonic/support/option_set.hpp>

#include <cstdint>

namespace quillonic {

/// What an item has and its copy lacks, because the copy's volume or the user's rights cannot hold it.
class Unheld : public OptionSet<Unheld, std::uint32_t> {
 public:
  using OptionSet::OptionSet;

  /// Parts without data take up space in the copy. The bytes are the same.
  static const Unheld holes;
  /// The permission bits.
  static const Unheld permissions;
  /// The owner or the group.
  static const Unheld owner;
  /// The modification date, by the grain of the volume's dates or more.
  static const Unheld date;
  /// At least one extended attribute; access control lists are such attributes.
  static const Unheld extendedAttributes;
  /// The volume holds no such link.
  static const Unheld link;
  /// The file is larger than the volume's kind allows.
  static const Unheld size;
};

inline constexpr Unheld Unheld::holes{1};
inline constexpr Unheld Unheld::permissions{2};
inline constexpr Unheld Unheld::owner{4};
inline constexpr Unheld Unheld::date{8};
inline constexpr Unheld Unheld::extendedAttributes{16};
inline constexpr Unheld Unheld::link{32};
inline constexpr Unheld Unheld::size{64};

}  // namespace quillonic
