/// Dictionaries of texts.
///
///     TextDictionary lookup{{"-vcodec", "h264"}};
///     lookup.emplace(VAVNoVideoFlag, "");                           // a constant is a text
///     if (lookup.contains(VAVNoVideoFlag)) { ... }                  // and is found without a copy
///     lookup[std::string(VAVVideoFormatFlag)] = "prores422";        // what stores a key wants it as a string
#pragma once

#include <quillonic/requirements.hpp>

#include <map>
#include <string>

namespace quillonic {

/// Texts by text, in ascending byte order of the keys, so that equal contents read alike in every process.
using TextDictionary = std::map<std::string, std::string, std::less<>>;

}  // namespace quillonic
