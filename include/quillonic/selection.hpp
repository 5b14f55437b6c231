/// Choosing files by kind, name, date, size and volume.
#pragma once

#include <quillonic/selection/byte_size.hpp>
#include <quillonic/selection/conditions.hpp>
#include <quillonic/selection/criterion.hpp>
#include <quillonic/selection/selector.hpp>
#include <quillonic/selection/tree_walk.hpp>
