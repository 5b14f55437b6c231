#include <quillonic/lut/tables.hpp>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace quillonic::lut {
namespace {

bool areFinite(const std::vector<Rgb>& entries) noexcept {
  // One sum for all: it is not finite if a number in it is not, and doubles hold sums of this many floats.
  double sum = 0;
  for (const auto& entry : entries) {
    for (const float value : entry) sum += std::abs(static_cast<double>(value));
  }
  return std::isfinite(sum);
}

Rgb identityOf(const Rgb& color) noexcept {
  return color;
}

bool isOneOf(std::size_t size, std::size_t least, std::size_t greatest) noexcept {
  return size >= least && size <= greatest;
}

}  // namespace

bool Domain::isValid() const noexcept {
  for (std::size_t channel = 0; channel < 3; ++channel) {
    if (!std::isfinite(min[channel]) || !std::isfinite(max[channel]) || !(min[channel] < max[channel]))
      return false;
  }
  return true;
}

float gridPoint(const Domain& domain, std::size_t channel, std::size_t position, std::size_t size) noexcept {
  const auto min = static_cast<double>(domain.min[channel]);
  const auto max = static_cast<double>(domain.max[channel]);
  const double part = static_cast<double>(position) / static_cast<double>(size - 1);
  // This form is exact at both ends.
  return static_cast<float>((1 - part) * min + part * max);
}

Table1D::Table1D(std::vector<Rgb> entries, const Domain& domain)
    : entries_(std::move(entries)), domain_(domain) {}

std::optional<Table1D> Table1D::fromEntries(std::vector<Rgb> entries, const Domain& domain) {
  const bool isGood =
      isOneOf(entries.size(), leastSize, greatestSize1D) && domain.isValid() && areFinite(entries);
  return isGood ? std::optional(Table1D(std::move(entries), domain)) : std::nullopt;
}

std::optional<Table1D> Table1D::sampled(std::size_t size, ColorFunction function, const Domain& domain) {
  if (!isOneOf(size, leastSize, greatestSize1D) || !domain.isValid()) return std::nullopt;
  std::vector<Rgb> entries(size);
  for (std::size_t i = 0; i < size; ++i)
    entries[i] = function(
        {gridPoint(domain, 0, i, size), gridPoint(domain, 1, i, size), gridPoint(domain, 2, i, size)});
  return fromEntries(std::move(entries), domain);
}

std::optional<Table1D> Table1D::identity(std::size_t size, const Domain& domain) {
  return sampled(size, identityOf, domain);
}

Table3D::Table3D(std::size_t edge, std::vector<Rgb> entries, const Domain& domain)
    : edge_(edge), entries_(std::move(entries)), domain_(domain) {}

std::optional<Table3D> Table3D::fromEntries(std::size_t edge, std::vector<Rgb> entries,
                                            const Domain& domain) {
  const bool isGood = isOneOf(edge, leastSize, greatestEdge) && entries.size() == edge * edge * edge &&
                      domain.isValid() && areFinite(entries);
  return isGood ? std::optional(Table3D(edge, std::move(entries), domain)) : std::nullopt;
}

std::optional<Table3D> Table3D::sampled(std::size_t edge, ColorFunction function, const Domain& domain) {
  if (!isOneOf(edge, leastSize, greatestEdge) || !domain.isValid()) return std::nullopt;
  std::vector<Rgb> entries;
  entries.reserve(edge * edge * edge);
  for (std::size_t blue = 0; blue < edge; ++blue) {
    for (std::size_t green = 0; green < edge; ++green) {
      for (std::size_t red = 0; red < edge; ++red)
        entries.push_back(function({gridPoint(domain, 0, red, edge), gridPoint(domain, 1, green, edge),
                                    gridPoint(domain, 2, blue, edge)}));
    }
  }
  return fromEntries(edge, std::move(entries), domain);
}

std::optional<Table3D> Table3D::identity(std::size_t edge, const Domain& domain) {
  return sampled(edge, identityOf, domain);
}

bool Curve::isValid() const noexcept {
  const auto isFinite = [](float value) { return std::isfinite(value); };
  return inputs.size() == outputs.size() && inputs.size() != 1 &&
         std::ranges::adjacent_find(inputs, std::greater_equal<>()) == inputs.end() &&
         std::ranges::all_of(inputs, isFinite) && std::ranges::all_of(outputs, isFinite);
}

float Curve::operator()(float input) const noexcept {
  if (inputs.empty()) return input;
  const auto x =
      static_cast<double>(input > inputs.front() ? std::min(input, inputs.back()) : inputs.front());
  // The first point above the input begins no segment after the last one.
  const auto above = std::upper_bound(inputs.begin(), inputs.end() - 1, static_cast<float>(x));
  const auto i = static_cast<std::size_t>(above - inputs.begin()) - 1;
  const auto left = static_cast<double>(inputs[i]);
  const double f = (x - left) / (static_cast<double>(inputs[i + 1]) - left);
  return static_cast<float>((1 - f) * static_cast<double>(outputs[i]) +
                            f * static_cast<double>(outputs[i + 1]));
}

}  // namespace quillonic::lut
