/// Making tables of another size, and one table of two.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/lut/lut.hpp>
#include <quillonic/lut/tables.hpp>

#include <cstddef>
#include <optional>

namespace quillonic::lut {

/// The same curves with another number of entries, by straight lines. Nothing for a wrong size; here and
/// below.
QUILLONIC_EXPORT std::optional<Table1D> resampled(const Table1D& table, std::size_t size);

/// The same cube with another edge, by tetrahedral interpolation.
QUILLONIC_EXPORT std::optional<Table3D> resampled(const Table3D& cube, std::size_t edge);

/// The same table with another size of its cube, or of its curves if it has no cube. A shaper is kept.
QUILLONIC_EXPORT std::optional<Lut> resampled(const Lut& lut, std::size_t size);

/// The same table without curves of uneven points, and with equal domains in all channels of a shaper and its
/// cube, so that a .cube holds it. Uneven points become 65,536 even ones, which meet the curve closely but
/// seldom exactly. Nothing for a shaper whose domains differ by more than a float holds.
QUILLONIC_EXPORT std::optional<Lut> evened(const Lut& lut);

/// Two tables as one, and how far it is from them.
struct Joined {
  /// Gives what the second gives for the result of the first.
  Lut lut;
  /// The greatest difference in a channel at the points of the grid.
  float errorAtPoints = 0;
  /// The greatest difference in a channel in the middle between them.
  float errorAtCenters = 0;
};

/// Joins two tables into a cube of an edge, or into curves of a size if neither has a cube. A shaper of the
/// first that feeds a cube is kept before the new one. Evaluates tetrahedrally and linearly.
QUILLONIC_EXPORT std::optional<Joined> joined(const Lut& first, const Lut& second, std::size_t size);

}  // namespace quillonic::lut
