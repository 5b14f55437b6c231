#pragma once

#include <quillonic/requirements.hpp>

/// Marks what the shared library exports; everything else stays hidden. The static library exports nothing,
/// so that a host's own shared library does not export it by accident. Programs that link the static library
/// define `QUILLONIC_STATIC` (the CMake and pkg-config packages do).
#ifdef QUILLONIC_STATIC
#define QUILLONIC_EXPORT
#else
#define QUILLONIC_EXPORT __attribute__((visibility("default")))
#endif

/// Marks templates and inline variables of an exported class, which every user of the header instantiates. If
/// they were visible, they would become part of the binary interface by accident, a different part under each
/// compiler, and inline variables would keep the library from being unloaded.
#define QUILLONIC_HIDDEN __attribute__((visibility("hidden")))
