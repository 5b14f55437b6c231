/// Which items to choose: conditions, combined, as a value and as a text that people write.
///
///     const auto read = Criterion::fromText("kind video and size > 1 GB and modified this-week");
///     if (!read) std::cerr << read.error().description();
///     const auto same = Criterion::allOf({KindCondition{{FileKind::video}}, SizeCondition{1'000'000'001},
///                                         DateCondition{FileDate::modified, frame}});
///     same.text();    // "kind video and size > 1 GB and modified this-week"
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/selection/conditions.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/parse_error.hpp>
#include <quillonic/support/result.hpp>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillonic::selection {

class Criterion;

/// Several criteria as one.
struct Combination {
  /// How many of them must hold.
  enum class Of : std::uint8_t { all, any, none };

  /// How many must hold.
  Of of = Of::all;
  /// The criteria, in the order they were given.
  std::vector<Criterion> members;

  friend QUILLONIC_EXPORT bool operator==(const Combination&, const Combination&);
};

/// A condition, or a combination of criteria. A value in one form: lists are sorted, an empty one is nothing,
/// moments beyond the years 1 to 9999 are no bounds or the nearest moment, and all of all are one list, as
/// are any of any.
///
/// The text has one condition after another, joined by "and" (which may be left out) or "or", after "not" if
/// they must not hold, in parentheses as needed; "and" binds closer than "or".
///
///     everything    nothing    hidden
///     kind video, audio            also: file folder link special unlisted
///     extension mov, mxf
///     name A0*.mov                 iname ignores case; quote names with spaces: name "A 1*.mov"
///     size > 1.5 GB                also: < <= >= =    size 1 MB to 700MiB includes both
///     modified last-7-days         also: created accessed; frames as in TimeFrame
///     modified 2026-11-01          a day of the calendar; modified 2026-11-01 to 2026-11-07 includes both
///     modified since 2026-11-01T10:00 before 2026-11-02T00:00:00Z
///     volume /media/CARD
///
/// A quote in quotes is doubled. Without "Z" or an offset a time is that of the calendar's zone.
class QUILLONIC_EXPORT Criterion {
 public:
  /// What a criterion is.
  using Alternatives = std::variant<Combination, KindCondition, ExtensionCondition, NameCondition,
                                    DateCondition, SizeCondition, HiddenCondition, VolumeCondition>;

  /// How deep criteria may be in others.
  static constexpr std::size_t greatestDepth = 100;

  /// Everything, as all of none.
  Criterion() = default;
  // NOLINTBEGIN(google-explicit-constructor): a condition is a criterion
  /// One condition.
  Criterion(KindCondition condition);
  /// One condition.
  Criterion(ExtensionCondition condition);
  /// One condition.
  Criterion(NameCondition condition);
  /// One condition.
  Criterion(DateCondition condition);
  /// One condition.
  Criterion(SizeCondition condition);
  /// One condition.
  Criterion(HiddenCondition condition) noexcept;
  /// One condition.
  Criterion(VolumeCondition condition);
  // NOLINTEND(google-explicit-constructor)

  /// What all criteria choose; everything without any. Throws `std::length_error` above the greatest depth,
  /// as the next two do.
  static Criterion allOf(std::vector<Criterion> members);
  /// What at least one criterion chooses; nothing without any.
  static Criterion anyOf(std::vector<Criterion> members);
  /// What no criterion chooses; everything without any.
  static Criterion noneOf(std::vector<Criterion> members);

  /// Reads the text of a criterion; an empty one is everything. Otherwise tells where and why not.
  static Result<Criterion, ParseError> fromText(std::string_view text);

  /// The text, for storage and for people. It reads back to an equal criterion, now and in later versions.
  std::string text() const;

  /// One line for people, in the user's language: "Kind: Video and Size: 1 GB or more".
  std::string description() const;

  /// The condition or the combination, for `std::visit`.
  const Alternatives& alternatives() const noexcept { return value_; }

  /// The same with every time frame and every local time as instants, so that many items are compared with
  /// the same bounds.
  Criterion resolved(const Calendar& calendar, std::chrono::sys_seconds instant = Calendar::now()) const;

  /// Encodes the text.
  CodedValue encode() const;
  /// Decodes a text; throws a `DecodingError` with line and column for one that cannot be read.
  static Criterion from(const CodedValue& coded);

  friend bool operator==(const Criterion& a, const Criterion& b) { return a.value_ == b.value_; }

 private:
  static Criterion combined(Combination::Of of, std::vector<Criterion> members);

  Alternatives value_;
  std::size_t depth_ = 0;
};

static_assert(Codable<Criterion>);

}  // namespace quillonic::selection
