/// Colour look-up tables: reading their files, looking into them, and applying them to pictures.
#pragma once

#include <quillonic/lut/applier.hpp>
#include <quillonic/lut/format.hpp>
#include <quillonic/lut/lut.hpp>
#include <quillonic/lut/picture.hpp>
#include <quillonic/lut/reading.hpp>
#include <quillonic/lut/resampling.hpp>
#include <quillonic/lut/tables.hpp>
#include <quillonic/lut/writing.hpp>

/// Colour look-up tables, whose short names would be wanted by others too.
namespace quillonic::lut {}
