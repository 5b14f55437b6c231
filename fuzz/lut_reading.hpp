// What holds for a table's file of any bytes, and for what was read from it.
#pragma once

#include <quillonic/lut.hpp>

#include <cmath>
#include <string>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {

inline bool isFinite(const lut::Rgb& color) {
  return std::isfinite(color[0]) && std::isfinite(color[1]) && std::isfinite(color[2]);
}

// Reads a text as a file of one name.
inline void readAs(std::string_view bytes, std::string_view name) {
  const auto lut = lut::readText(bytes, name);
  if (!lut) {
    const auto& where = lut.error().where;
    require(where.line >= 1 && where.column >= 1 && !where.expected.empty(), "a refusal tells where and why");
    require(where.found.size() < 100, "a refusal is short");
    return;
  }
  const auto facts = lut->description();
  require(decode<lut::Description>(encode(facts)) == facts, "what describes a file can be stored");
  const auto rows = facts.size1D.value_or(0) + (lut->table3D() ? lut->table3D()->entries().size() : 0);
  require(rows <= bytes.size(), "entries take bytes");
  const std::string ended = std::string(bytes) + "\n";
  require(*lut::readText(ended, name) == *lut, "a line end after the last line changes nothing");

  const auto even = rows <= 4096 && !lut->curves() ? lut::evened(*lut) : std::nullopt;
  const auto text = even ? lut::textOf(*even, lut::Format::cube) : std::nullopt;
  if (text && even->table1D() == nullptr) {
    const auto again = lut::readText(*text, "a.cube");
    require(again && *again->table3D() == *even->table3D(), "what was written reads back");
  }
}

}  // namespace quillonic::fuzz
