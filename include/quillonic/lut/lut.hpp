/// A look-up table as a value: its tables, and what else its file tells.
///
///     Lut look(*Table3D::identity(edge33));
///     look.header.title = "no change";
///     if (look.kind() == Kind::threeD) use(look.table3D()->entries());
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/lut/format.hpp>
#include <quillonic/lut/tables.hpp>
#include <quillonic/support/coding.hpp>

#include <cstddef>
#include <optional>
#include <string>

namespace quillonic::lut {

/// What a file tells in addition to its tables. Texts of several lines end each with a line feed.
struct Header {
  /// The format that it was read from; a new one is a .cube.
  Format format = Format::cube;
  /// Any text; may be empty.
  std::string title = {};
  /// The comments without their marks, a line each, trimmed.
  std::string comments = {};
  /// Lines that were not understood, and the free text of a .csp, as they are in the file.
  std::string unknownLines = {};
  /// The bits of the integers in the file; nothing for numbers with a point.
  std::optional<int> depth = {};
  /// Whether the file says that its input has video levels. Applying a table does not act on it.
  bool expectsVideoRange = false;
  /// Whether the file says that its output has video levels. Applying a table does not act on it.
  bool givesVideoRange = false;

  friend bool operator==(const Header&, const Header&) = default;
};

/// What a host shows of a file.
struct Description {
  /// Format, title and the like.
  Header header = {};
  /// Which tables it has.
  Kind kind = Kind::threeD;
  /// Entries of the one-dimensional table or shaper; of curves with unequal numbers of points the greatest.
  std::optional<std::size_t> size1D = {};
  /// Entries along an axis of the cube.
  std::optional<std::size_t> size3D = {};
  /// The input that the table covers which takes the input.
  Domain domain = {};

  friend bool operator==(const Description&, const Description&) = default;

  /// All of it as one record, for archives such as JSON: what has no value is left out, a domain is two lists
  /// of three numbers.
  QUILLONIC_EXPORT CodedValue encode() const;
  /// The reverse; missing keys leave their values as in a new description. Throws a `DecodingError`.
  QUILLONIC_EXPORT static Description from(const CodedValue& coded);
};

/// Three curves, a cube, or one after the other. Curves of uneven points, which only a .csp has, are applied
/// first. A result is never clamped; the next table clamps its input to its own domain.
class QUILLONIC_EXPORT Lut {
 public:
  /// A one-dimensional table, after a shaper of uneven points if there is one. The curves must be valid, here
  /// and below.
  explicit Lut(Table1D table, std::optional<Curves> curves = std::nullopt);
  /// A cube, after a shaper of uneven points if there is one.
  explicit Lut(Table3D cube, std::optional<Curves> curves = std::nullopt);
  /// A shaper and the cube that takes its result.
  Lut(Table1D shaper, Table3D cube);

  /// Format, title and the like; may be changed.
  Header header = {};

  /// Which tables it has. Curves before a one-dimensional table make no other kind.
  Kind kind() const noexcept;
  /// The shaper of uneven points; null if there is none.
  const Curves* curves() const noexcept { return curves_ ? &*curves_ : nullptr; }
  /// The one-dimensional table or evenly spaced shaper; null if there is none.
  const Table1D* table1D() const noexcept { return table1D_ ? &*table1D_ : nullptr; }
  /// The cube; null if there is none.
  const Table3D* table3D() const noexcept { return table3D_ ? &*table3D_ : nullptr; }
  /// The input that the first of its tables covers; for a channel whose curve has no points that of the next.
  Domain domain() const noexcept;
  /// What a host shows of it.
  Description description() const;

  friend bool operator==(const Lut&, const Lut&) = default;

 private:
  std::optional<Curves> curves_;
  std::optional<Table1D> table1D_;
  std::optional<Table3D> table3D_;
};

}  // namespace quillonic::lut
