#include "catalogue/layouts.hpp"

namespace quillonic::catalogue {
namespace {

#include "catalogue/layouts_table.inc"

}  // namespace

std::span<const LayoutRow> layoutRows() noexcept {
  return rows;
}

}  // namespace quillonic::catalogue
