#pragma once

/// Marks what the shared library exports; everything else stays hidden inside it.
#define QUILLONIC_EXPORT __attribute__((visibility("default")))
