// Finding what an alias file leads to.
#pragma once

#include <quillonic/filesystem/alias_file.hpp>

#include <optional>
#include <string>

namespace quillonic {

// The absolute path of the target, or nothing where nothing is found. The alias file's own path is absolute and
// its folder's links are followed.
std::optional<std::string> targetOf(const AliasFile& alias, const std::string& aliasPath);

}  // namespace quillonic
