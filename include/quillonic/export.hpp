#pragma once

#include <quillonic/requirements.hpp>

/// Marks what the shared library exports; everything else stays hidden inside it. The static library exports nothing,
/// so that a host's own shared library, into which it is linked, does not offer it to others by accident; who links
/// the static library defines `QUILLONIC_STATIC` (the CMake and pkg-config packages do).
#ifdef QUILLONIC_STATIC
#define QUILLONIC_EXPORT
#else
#define QUILLONIC_EXPORT __attribute__((visibility("default")))
#endif

/// Marks the templates and inline variables of an exported class that every user of a header makes for itself. Left
/// visible they would be part of the library's binary interface by accident, a different part under each compiler,
/// and inline variables would keep the library from ever being unloaded.
#define QUILLONIC_HIDDEN __attribute__((visibility("hidden")))
