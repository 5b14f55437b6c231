#include <quillonic/lut/lut.hpp>

#include <algorithm>
#include <utility>

namespace quillonic::lut {

Lut::Lut(Table1D table, std::optional<Curves> curves)
    : curves_(std::move(curves)), table1D_(std::move(table)) {}

Lut::Lut(Table3D cube, std::optional<Curves> curves)
    : curves_(std::move(curves)), table3D_(std::move(cube)) {}

Lut::Lut(Table1D shaper, Table3D cube) : table1D_(std::move(shaper)), table3D_(std::move(cube)) {}

Kind Lut::kind() const noexcept {
  if (!table3D_) return Kind::oneD;
  return curves_ || table1D_ ? Kind::shaperAndThreeD : Kind::threeD;
}

Domain Lut::domain() const noexcept {
  Domain domain = table1D_ ? table1D_->domain() : table3D_->domain();
  for (std::size_t channel = 0; curves_ && channel < 3; ++channel) {
    const auto& inputs = (*curves_)[channel].inputs;
    if (inputs.empty()) continue;
    domain.min[channel] = inputs.front();
    domain.max[channel] = inputs.back();
  }
  return domain;
}

Description Lut::description() const {
  Description description{.header = header, .kind = kind(), .size1D = {}, .size3D = {}, .domain = domain()};
  if (table3D_) description.size3D = table3D_->edge();
  if (table1D_) {
    description.size1D = table1D_->size();
  } else if (curves_) {
    const auto& [red, green, blue] = *curves_;
    description.size1D = std::max({red.inputs.size(), green.inputs.size(), blue.inputs.size()});
  }
  return description;
}

}  // namespace quillonic::lut
