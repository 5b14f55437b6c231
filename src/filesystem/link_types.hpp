// The kind of link that an item is.
#pragma once

#include <quillonic/filesystem/reference_link_type.hpp>

#include <optional>
#include <string>

#include "platform/items.hpp"
#include "support/result.hpp"

namespace quillonic::link_types {

// Fails where a file that could be an alias cannot be opened.
Result<ReferenceLinkType> typeOf(const std::string& item, const items::Status& status);

// For an item without a known status.
Result<ReferenceLinkType> typeOf(const std::string& item);

// Logs a failure.
std::optional<ReferenceLinkType> loggedTypeOf(const std::string& item, const items::Status& status);

// Whether links of a kind have a target.
constexpr bool leadsElsewhere(ReferenceLinkType type) noexcept {
  return type == ReferenceLinkType::softSymbolicReference || type == ReferenceLinkType::aliasReference;
}

// The target of an alias file. Logs where it is not found.
std::optional<std::string> loggedAliasTarget(const std::string& aliasFile);

}  // namespace quillonic::link_types
