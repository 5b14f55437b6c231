// Finding what an alias file leads to.
#pragma once

#include <optional>
#include <string>
#include <system_error>

namespace quillonic {

// The absolute path of what an alias file leads to. Nothing, and an error, where it is no alias file or cannot be
// read, and where nothing is found: `aliasTargetNotFound`, or what kept one of the places from being looked at.
std::optional<std::string> aliasTarget(const std::string& aliasFile, std::error_code& error);

}  // namespace quillonic
