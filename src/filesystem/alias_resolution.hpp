// Finds the target of an alias file.
#pragma once

#include <quillonic/support/result.hpp>

#include <string>

#include "filesystem/look_ups.hpp"
#include "platform/items.hpp"

namespace quillonic {

// The absolute path of an alias file's target. Fails if the file is not an alias file or cannot be read, and
// if nothing is found: `aliasTargetNotFound`, or the error of a place that could not be looked at.
Result<std::string> aliasTarget(const std::string& aliasFile, LookUps& lookUps);

// The same for an alias file given by its name in a folder. Its path is absolute, and no part of it is a
// link.
Result<std::string> aliasTargetIn(const items::Folder& folder, const std::string& name, std::string path,
                                  LookUps& lookUps);

}  // namespace quillonic
