/// Writing look-up tables as text.
///
///     if (auto text = textOf(look, Format::cube)) std::ofstream("day.cube", std::ios::binary) << *text;
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/lut/format.hpp>
#include <quillonic/lut/lut.hpp>

#include <optional>
#include <string>

namespace quillonic::lut {

/// The text of a file, which reads back to the same tables. Nothing if the format cannot hold them:
///
/// - a .cube holds no curves of uneven points, and with a shaper only domains that are equal in all channels;
/// - a .spi1d holds a one-dimensional table, its domain equal in all channels;
/// - a .spi3d holds a cube with the domain 0 to 1;
/// - the other formats are only read.
///
/// `evened()` turns every table into one that a .cube holds. Other programs refuse a title with a shaper, so
/// the title is then written as a comment. Line breaks in a title become spaces.
QUILLONIC_EXPORT std::optional<std::string> textOf(const Lut& lut, Format format);

}  // namespace quillonic::lut
