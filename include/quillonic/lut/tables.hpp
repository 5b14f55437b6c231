/// The tables of which a look-up table is made.
///
///     auto gamma = Table1D::sampled(1024, [](Rgb c) { return Rgb{c[0] * c[0], c[1] * c[1], c[2] * c[2]}; });
///     auto cube = Table3D::identity(edge33);
///     Rgb last = cube->at(32, 32, 32);    // {1, 1, 1}
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/function_ref.hpp>

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace quillonic::lut {

/// A colour or another triple: red, green, blue.
using Rgb = std::array<float, 3>;

/// The input that the first and the last entries of a table are for, per channel. Inputs outside act as the
/// nearest edge.
struct Domain {
  /// The input of the first entries.
  Rgb min{0, 0, 0};
  /// The input of the last entries.
  Rgb max{1, 1, 1};

  /// Whether all six numbers are finite and each minimum is below its maximum.
  QUILLONIC_EXPORT bool isValid() const noexcept;

  friend bool operator==(const Domain&, const Domain&) = default;
};

/// The sizes that graders and cameras use for cubes.
inline constexpr std::size_t edge17 = 17;
/// The most common one.
inline constexpr std::size_t edge33 = 33;
/// The largest common one.
inline constexpr std::size_t edge65 = 65;
/// The least number of entries on an axis of any table.
inline constexpr std::size_t leastSize = 2;
/// The greatest number of entries of a one-dimensional table.
inline constexpr std::size_t greatestSize1D = 1'048'576;
/// The greatest number of entries on an axis of a cube.
inline constexpr std::size_t greatestEdge = 256;

/// Gives the entry for an input.
using ColorFunction = FunctionRef<Rgb(const Rgb&)>;

/// Three curves of evenly spaced entries. A table that was moved from has no entries; it can only be assigned
/// to and destroyed.
class QUILLONIC_EXPORT Table1D {
 public:
  /// Nothing for a wrong number of entries, one that is not finite, or an invalid domain; here and below.
  static std::optional<Table1D> fromEntries(std::vector<Rgb> entries, const Domain& domain = {});
  /// Calls the function for the input of each entry; each channel of a result is an entry of its curve.
  static std::optional<Table1D> sampled(std::size_t size, ColorFunction function, const Domain& domain = {});
  /// Every entry is its own input.
  static std::optional<Table1D> identity(std::size_t size, const Domain& domain = {});

  /// The number of entries per channel.
  std::size_t size() const noexcept { return entries_.size(); }
  /// The entries in order of their inputs.
  std::span<const Rgb> entries() const noexcept { return entries_; }
  /// The input that it covers.
  const Domain& domain() const noexcept { return domain_; }

  friend bool operator==(const Table1D&, const Table1D&) = default;

 private:
  Table1D(std::vector<Rgb> entries, const Domain& domain);

  std::vector<Rgb> entries_;
  Domain domain_;
};

/// A cube of entries, evenly spaced along each axis. A table that was moved from has no entries; it can only
/// be assigned to and destroyed.
class QUILLONIC_EXPORT Table3D {
 public:
  /// Entries with red changing fastest: edge * edge * edge of them.
  static std::optional<Table3D> fromEntries(std::size_t edge, std::vector<Rgb> entries,
                                            const Domain& domain = {});
  /// Calls the function for the input of each entry, red changing fastest.
  static std::optional<Table3D> sampled(std::size_t edge, ColorFunction function, const Domain& domain = {});
  /// Every entry is its own input.
  static std::optional<Table3D> identity(std::size_t edge, const Domain& domain = {});

  /// The number of entries along each axis.
  std::size_t edge() const noexcept { return edge_; }
  /// The entries, red changing fastest.
  std::span<const Rgb> entries() const noexcept { return entries_; }
  /// The entry at a position below `edge()` on each axis.
  const Rgb& at(std::size_t red, std::size_t green, std::size_t blue) const noexcept {
    return entries_[red + edge_ * (green + edge_ * blue)];
  }
  /// The input that it covers.
  const Domain& domain() const noexcept { return domain_; }

  friend bool operator==(const Table3D&, const Table3D&) = default;

 private:
  Table3D(std::size_t edge, std::vector<Rgb> entries, const Domain& domain);

  std::size_t edge_;
  std::vector<Rgb> entries_;
  Domain domain_;
};

/// One curve through points at any distance, with straight lines between them. Without points it returns its
/// input.
struct Curve {
  /// Finite and strictly rising.
  std::vector<float> inputs;
  /// As many finite numbers.
  std::vector<float> outputs;

  /// Whether there are as many outputs as inputs, none or at least two, all as they must be.
  QUILLONIC_EXPORT bool isValid() const noexcept;
  /// The value for an input; the first or last output outside the points, the first for NaN.
  QUILLONIC_EXPORT float operator()(float input) const noexcept;

  friend bool operator==(const Curve&, const Curve&) = default;
};

/// A curve for red, green and blue.
using Curves = std::array<Curve, 3>;

/// The input of an entry at a position of a table with `size` entries on the axis of the channel.
QUILLONIC_EXPORT float gridPoint(const Domain& domain, std::size_t channel, std::size_t position,
                                 std::size_t size) noexcept;

}  // namespace quillonic::lut
