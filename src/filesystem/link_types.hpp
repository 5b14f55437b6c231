// What kind of link an item is, from what the system tells of it.
#pragma once

#include <quillonic/filesystem/reference_link_type.hpp>

#include <optional>
#include <string>
#include <system_error>

#include "platform/items.hpp"

namespace quillonic::link_types {

// Nothing, and an error, where a file that could be an alias cannot be opened.
std::optional<ReferenceLinkType> typeOf(const std::string& item, const items::Status& status,
                                        std::error_code& error);

// The same for an item of which nothing is known yet.
std::optional<ReferenceLinkType> typeOf(const std::string& item, std::error_code& error);

// The same as the first, and a failure is logged.
std::optional<ReferenceLinkType> loggedTypeOf(const std::string& item, const items::Status& status);

// Whether links of a kind have a target.
constexpr bool leadsElsewhere(ReferenceLinkType type) noexcept {
  return type == ReferenceLinkType::softSymbolicReference || type == ReferenceLinkType::aliasReference;
}

// The target of an alias file; where it is not found that is logged.
std::optional<std::string> loggedAliasTarget(const std::string& aliasFile);

}  // namespace quillonic::link_types
