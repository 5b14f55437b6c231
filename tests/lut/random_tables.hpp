// Random tables and colours, and what interpolation makes of them by its formulas.
#pragma once

#include <quillonic/lut.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <random>
#include <vector>

namespace quillonic::lut {

class Random {
 public:
  float number(float low = -0.25F, float high = 1.25F) {
    return std::uniform_real_distribution<float>(low, high)(engine_);
  }
  Rgb color(float low = -0.25F, float high = 1.25F) {
    return {number(low, high), number(low, high), number(low, high)};
  }
  std::size_t below(std::size_t limit) { return engine_() % limit; }
  std::vector<Rgb> colors(std::size_t count) {
    std::vector<Rgb> all(count);
    for (auto& color : all) color = this->color();
    return all;
  }
  Domain domain() {
    Domain domain;
    for (std::size_t channel = 0; channel < 3; ++channel) {
      domain.min[channel] = number(-1, 0);
      domain.max[channel] = number(0.5F, 2);
    }
    return domain;
  }
  Table3D cube(std::size_t edge, const Domain& domain = {}) {
    return *Table3D::sampled(
        edge, [&](const Rgb&) { return color(); }, domain);
  }
  Table1D curves(std::size_t size, const Domain& domain = {}) {
    return *Table1D::sampled(
        size, [&](const Rgb&) { return color(); }, domain);
  }

 private:
  std::mt19937 engine_{21};
};

// The interpolation by its formulas, with doubles.
struct Axis {
  std::size_t index;
  double part;
  std::size_t nearest;
};

inline Axis axisOf(const Domain& domain, std::size_t channel, std::size_t size, double x) {
  const double min = static_cast<double>(domain.min[channel]);
  const double last = static_cast<double>(size - 1);
  const double t = (x - min) * last / (static_cast<double>(domain.max[channel]) - min);
  const double at = t > 0 ? std::min(t, last) : 0;
  const auto index = std::min(static_cast<std::size_t>(at), size - 2);
  return {index, at - static_cast<double>(index), static_cast<std::size_t>(at + 0.5)};
}

using Exact = std::array<double, 3>;

inline Exact exact(const Table3D& cube, Interpolation interpolation, const Exact& color) {
  std::array<Axis, 3> axes;
  for (std::size_t i = 0; i < 3; ++i) axes[i] = axisOf(cube.domain(), i, cube.edge(), color[i]);
  const auto corner = [&](std::size_t channel, std::size_t r, std::size_t g, std::size_t b) {
    return static_cast<double>(cube.at(axes[0].index + r, axes[1].index + g, axes[2].index + b)[channel]);
  };
  Exact result{};
  // The order of the axes by their parts, the greatest first.
  std::array<std::size_t, 3> order{0, 1, 2};
  std::ranges::sort(order, [&](auto a, auto b) { return axes[a].part > axes[b].part; });
  for (std::size_t channel = 0; channel < 3; ++channel) {
    auto& sum = result[channel];
    if (interpolation == Interpolation::nearest) {
      sum = static_cast<double>(cube.at(axes[0].nearest, axes[1].nearest, axes[2].nearest)[channel]);
    } else if (interpolation == Interpolation::trilinear) {
      for (std::size_t bits = 0; bits < 8; ++bits) {
        double weight = 1;
        for (std::size_t i = 0; i < 3; ++i) weight *= (bits >> i & 1) != 0 ? axes[i].part : 1 - axes[i].part;
        sum += weight * corner(channel, bits & 1, bits >> 1 & 1, bits >> 2);
      }
    } else {
      // From the first corner to the last, a step along each axis in this order.
      std::array<std::size_t, 3> at{};
      double above = 1;
      for (std::size_t step = 0; step <= 3; ++step) {
        const double below = step < 3 ? axes[order[step]].part : 0;
        sum += (above - below) * corner(channel, at[0], at[1], at[2]);
        above = below;
        if (step < 3) at[order[step]] = 1;
      }
    }
  }
  return result;
}

inline Exact exact(const Table1D& table, Interpolation interpolation, const Exact& color) {
  Exact result{};
  for (std::size_t channel = 0; channel < 3; ++channel) {
    const auto axis = axisOf(table.domain(), channel, table.size(), color[channel]);
    const auto entry = [&](std::size_t i) { return static_cast<double>(table.entries()[i][channel]); };
    result[channel] = interpolation == Interpolation::nearest
                          ? entry(axis.nearest)
                          : (1 - axis.part) * entry(axis.index) + axis.part * entry(axis.index + 1);
  }
  return result;
}

inline Exact exact(const Lut& lut, Interpolation interpolation, Exact color) {
  if (lut.table1D())
    color = exact(*lut.table1D(), lut.table3D() ? Interpolation::linear : interpolation, color);
  return lut.table3D() ? exact(*lut.table3D(), interpolation, color) : color;
}

inline std::vector<Instructions> instructions() {
  std::vector<Instructions> all{Instructions::baseline};
  if (isAvailable(Instructions::avx2)) all.push_back(Instructions::avx2);
  return all;
}

}  // namespace quillonic::lut
