#include <quillonic/lut/applier.hpp>
#include <quillonic/lut/resampling.hpp>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace quillonic::lut {
namespace {

// The entries that uneven points become.
constexpr std::size_t evenedSize = 65'536;

// Two tables one after the other.
struct Chain {
  Applier first;
  Applier second;

  Rgb operator()(const Rgb& color) const noexcept { return second.apply(first.apply(color)); }
};

float greatestDifference(const Rgb& left, const Rgb& right) noexcept {
  float greatest = 0;
  for (std::size_t channel = 0; channel < 3; ++channel)
    greatest = std::max(greatest, std::abs(left[channel] - right[channel]));
  return greatest;
}

// The lowest minimum and the highest maximum in all channels.
Domain uniform(const Domain& domain) noexcept {
  const float min = *std::ranges::min_element(domain.min);
  const float max = *std::ranges::max_element(domain.max);
  return {{min, min, min}, {max, max, max}};
}

// The greatest difference between a function of a table's input and the table, at the points of its grid
// moved by a part of a step.
float greatestError(const Applier& table, ColorFunction function, const Domain& domain, std::size_t size,
                    bool isCube, float moved) {
  const auto steps = moved == 0 ? size : size - 1;
  const auto at = [&](std::size_t channel, std::size_t position) {
    const float point = gridPoint(domain, channel, position, size);
    if (moved == 0) return point;
    return point + moved * (gridPoint(domain, channel, position + 1, size) - point);
  };
  float greatest = 0;
  for (std::size_t red = 0; red < steps; ++red) {
    const auto others = isCube ? steps : 1;
    for (std::size_t green = 0; green < others; ++green) {
      for (std::size_t blue = 0; blue < others; ++blue) {
        const Rgb color{at(0, red), at(1, isCube ? green : red), at(2, isCube ? blue : red)};
        greatest = std::max(greatest, greatestDifference(table.apply(color), function(color)));
      }
    }
  }
  return greatest;
}

}  // namespace

std::optional<Table1D> resampled(const Table1D& table, std::size_t size) {
  const Applier applier((Lut(table)));
  return Table1D::sampled(
      size, [&](const Rgb& color) { return applier.apply(color); }, table.domain());
}

std::optional<Table3D> resampled(const Table3D& cube, std::size_t edge) {
  const Applier applier((Lut(cube)));
  return Table3D::sampled(
      edge, [&](const Rgb& color) { return applier.apply(color); }, cube.domain());
}

std::optional<Lut> resampled(const Lut& lut, std::size_t size) {
  std::optional<Lut> result;
  const auto curves = lut.curves() ? std::optional(*lut.curves()) : std::nullopt;
  if (const auto* cube = lut.table3D()) {
    auto other = resampled(*cube, size);
    if (other)
      result = lut.table1D() ? Lut(*lut.table1D(), *std::move(other)) : Lut(*std::move(other), curves);
  } else if (auto table = resampled(*lut.table1D(), size)) {
    result = Lut(*std::move(table), curves);
  }
  if (result) result->header = lut.header;
  return result;
}

std::optional<Lut> evened(const Lut& lut) {
  std::optional<Lut> result;
  if (!lut.table3D() && lut.curves()) {
    const Applier applier(lut);
    const auto whole = [&](const Rgb& color) { return applier.apply(color); };
    if (auto table = Table1D::sampled(evenedSize, whole, lut.domain())) result = Lut(*std::move(table));
  } else if (lut.table3D() && lut.kind() == Kind::shaperAndThreeD) {
    // The result of the shaper is brought to 0 to 1 in the cube's domain, so that this domain is even too.
    const auto& cube = *lut.table3D();
    const auto& domain = cube.domain();
    const bool isEven = domain == uniform(domain);
    std::optional<Applier> table;
    if (lut.table1D()) table.emplace(Lut(*lut.table1D()));
    const auto shape = [&](const Rgb& color) {
      Rgb shaped = table ? table->apply(color) : color;
      for (std::size_t channel = 0; channel < 3; ++channel) {
        if (lut.curves()) shaped[channel] = (*lut.curves())[channel](shaped[channel]);
        if (isEven) continue;
        const float span = domain.max[channel] - domain.min[channel];
        shaped[channel] = (shaped[channel] - domain.min[channel]) / span;
      }
      return shaped;
    };
    const auto input = lut.domain();
    if (lut.table1D() && isEven && input == uniform(input)) return lut;
    auto shaper = Table1D::sampled(evenedSize, shape, uniform(input));
    auto even = Table3D::fromEntries(cube.edge(), {cube.entries().begin(), cube.entries().end()},
                                     isEven ? domain : Domain());
    if (shaper && even) result = Lut(*std::move(shaper), *std::move(even));
  } else {
    return lut;
  }
  if (result) result->header = lut.header;
  return result;
}

std::optional<Joined> joined(const Lut& first, const Lut& second, std::size_t size) {
  const bool isCube = first.table3D() || second.table3D();
  const bool keepsShaper = first.kind() == Kind::shaperAndThreeD;
  // Where a shaper is kept, only the cube after it is sampled.
  const Lut sampledFirst = keepsShaper ? Lut(*first.table3D()) : first;
  const Chain chain{Applier(sampledFirst), Applier(second)};
  const auto domain = sampledFirst.domain();

  std::optional<Lut> lut;
  if (!isCube) {
    if (auto table = Table1D::sampled(size, chain, domain)) lut = Lut(*std::move(table));
  } else if (auto cube = Table3D::sampled(size, chain, domain)) {
    lut = Lut(*std::move(cube));
  }
  if (!lut) return std::nullopt;
  const Applier applier(*lut);
  Joined joined{.lut = *lut,
                .errorAtPoints = greatestError(applier, chain, domain, size, isCube, 0),
                .errorAtCenters = greatestError(applier, chain, domain, size, isCube, 0.5F)};
  if (keepsShaper) {
    joined.lut =
        first.table1D() ? Lut(*first.table1D(), *lut->table3D()) : Lut(*lut->table3D(), *first.curves());
  }
  joined.lut.header.title = first.header.title;
  return joined;
}

}  // namespace quillonic::lut
