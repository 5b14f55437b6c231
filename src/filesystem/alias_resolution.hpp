// Finding the target of an alias file.
#pragma once

#include <string>

#include "filesystem/look_ups.hpp"
#include "support/result.hpp"

namespace quillonic {

// The absolute path of an alias file's target. Fails where the file is no alias file or cannot be read, and
// where nothing is found: `aliasTargetNotFound`, or what kept one of the places from being looked at.
Result<std::string> aliasTarget(const std::string& aliasFile);

// One of many resolutions.
Result<std::string> aliasTarget(const std::string& aliasFile, LookUps& lookUps);

}  // namespace quillonic
