/// What can be asked about one item: each condition is a plain value.
///
///     KindCondition{{FileKind::video, FileKind::audio}};
///     DateCondition{FileDate::modified, TimeFrame::current(CalendarUnit::week)};
///     SizeCondition{.least = 1'000'000'000};
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/media_format.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/time/calendar.hpp>
#include <quillonic/time/date_range.hpp>
#include <quillonic/time/time_frame.hpp>

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quillonic::selection {

/// What an item is, whatever its format.
enum class ItemKind : std::uint8_t {
  /// A regular file, alias files included.
  file,
  folder,
  /// A symbolic link.
  link,
  /// A socket, pipe or device.
  special,
  /// A regular file whose extension is not in the catalogue, or that has none.
  unlisted,
};

/// A kind of item, or what regular files of an extension are for.
using Kind = std::variant<ItemKind, FileKind>;

/// Whether an item is of any of the kinds. The catalogue tells by the name alone, in any ASCII case; an
/// extension can serve as several kinds.
struct KindCondition {
  /// In case order, each once.
  std::vector<Kind> kinds;

  friend bool operator==(const KindCondition&, const KindCondition&) = default;
};

/// Whether a name ends with any of the extensions, in any ASCII case. Asks about the name alone, be it that
/// of a file or of a folder.
struct ExtensionCondition {
  /// In byte order, each once, in small letters and without leading full stops; "" is a name without an
  /// extension, and one with a full stop ("tar.gz") the end of the name.
  std::vector<std::string> extensions;

  friend bool operator==(const ExtensionCondition&, const ExtensionCondition&) = default;
};

/// Whether a whole name matches a pattern: "*" is any text, "?" one character, "[a-z]" one of a set, "[!a-z]"
/// one outside it, and "\" takes away a special meaning. Nothing is special about a leading full stop: walks
/// leave hidden items out. Takes time in proportion to the name's length times the pattern's at most.
struct NameCondition {
  /// The pattern.
  std::string pattern;
  /// Whether "a" equals "A", by Unicode's simple mapping. Such a pattern is kept in small letters.
  bool ignoresCase = false;

  friend bool operator==(const NameCondition&, const NameCondition&) = default;
};

/// Which of an item's dates.
enum class FileDate : std::uint8_t {
  /// Many file systems do not record it. A copy has that of the copying.
  created,
  /// When the contents last changed. Cards store local time, some in steps of two seconds.
  modified,
  /// When the contents were last read, as far as the volume's options let the system record it.
  accessed,
};

/// An instant, or what clocks show in the zone of the calendar that is given later. From the year 1 to 9999.
using Moment = std::variant<std::chrono::sys_seconds, std::chrono::local_seconds>;

/// From a moment on, and before another.
struct TimeSpan {
  /// The first moment; nothing for no such bound.
  std::optional<Moment> since;
  /// The first moment after the span; nothing for no such bound.
  std::optional<Moment> before;

  friend bool operator==(const TimeSpan&, const TimeSpan&) = default;
};

/// Whether a date is within a span or a frame. Every date has its answer: that of a camera whose clock was
/// never set is in 1980 or 2000, and one of the future is not "today".
struct DateCondition {
  /// The date that is compared.
  FileDate date = FileDate::modified;
  /// What it is compared with.
  std::variant<TimeSpan, TimeFrame> when;

  /// The exact bounds, seen from an instant; an absent bound is the least or greatest value of its type.
  QUILLONIC_EXPORT DateRange interval(const Calendar& calendar,
                                      std::chrono::sys_seconds instant = Calendar::now()) const noexcept;

  friend bool operator==(const DateCondition&, const DateCondition&) = default;
};

/// Whether a size is within bounds, both of which belong to it. A link's size is the length of its target's
/// text. Folders have none, and never match.
struct SizeCondition {
  /// The least size in bytes.
  std::uint64_t least = 0;
  /// The greatest size in bytes. Below the least one nothing matches.
  std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

  friend bool operator==(const SizeCondition&, const SizeCondition&) = default;
};

/// Whether a name begins with a full stop. Attributes that only some file systems have are not asked for.
struct HiddenCondition {
  friend bool operator==(const HiddenCondition&, const HiddenCondition&) = default;
};

/// Whether an item is on the same volume as a place, by the number of the volume's device: bind mounts of a
/// volume are the same one.
struct VolumeCondition {
  /// The mount point, or any other item on the volume. It is looked at when a `Selector` is made.
  std::filesystem::path place;

  friend bool operator==(const VolumeCondition&, const VolumeCondition&) = default;
};

}  // namespace quillonic::selection

namespace quillonic {

/// The kinds of items and their texts.
template <> struct CaseTable<selection::ItemKind> {
  static constexpr auto rows = std::to_array<CaseRow<selection::ItemKind>>({
      {selection::ItemKind::file, "file"},
      {selection::ItemKind::folder, "folder"},
      {selection::ItemKind::link, "link"},
      {selection::ItemKind::special, "special"},
      {selection::ItemKind::unlisted, "unlisted"},
  });
};

/// The dates and their texts.
template <> struct CaseTable<selection::FileDate> {
  static constexpr auto rows = std::to_array<CaseRow<selection::FileDate>>({
      {selection::FileDate::created, "created"},
      {selection::FileDate::modified, "modified"},
      {selection::FileDate::accessed, "accessed"},
  });
};

static_assert(RawHashCase<selection::ItemKind> && RawHashCase<selection::FileDate>);

}  // namespace quillonic
