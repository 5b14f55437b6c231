// The status of an item from the system.
#pragma once

#include <sys/stat.h>

namespace quillonic {

// False, with `errno` set, when there is none. `mask` says what is wanted, `stx_mask` what is known: only the
// basic status where a sandbox refuses the call for more.
bool readStatus(int folder, const char* path, int flags, unsigned mask, struct statx& item) noexcept;

// Reads only the basic status, by a call that costs a little less.
bool readBasicStatus(int folder, const char* path, int flags, struct statx& item) noexcept;

}  // namespace quillonic
