// The root element of an XML text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillonic::catalogue {

// The name of the root element without its prefix, after declarations, comments and a document type. Takes
// UTF-8 and UTF-16; nothing if the bytes are no XML, or end before the root. Linear time.
std::optional<std::string> xmlRoot(std::string_view bytes);

}  // namespace quillonic::catalogue
