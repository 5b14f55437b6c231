// The kind of link that an item is.
#pragma once

#include <quillonic/filesystem/reference_link_type.hpp>
#include <quillonic/support/result.hpp>

#include <optional>
#include <string>

#include "platform/items.hpp"

namespace quillonic::link_types {

// Fails if a file that could be an alias cannot be opened.
Result<ReferenceLinkType> typeOf(const std::string& item, const items::Status& status,
                                 const items::Folder* folder = nullptr);

// For an item without a known status.
Result<ReferenceLinkType> typeOf(const std::string& item);

// The value. An error is logged unless it says that the item is missing.
std::optional<ReferenceLinkType> logged(const Result<ReferenceLinkType>& type, const std::string& item);

// Whether links of a kind have a target.
constexpr bool leadsElsewhere(ReferenceLinkType type) noexcept {
  return type == ReferenceLinkType::softSymbolicReference || type == ReferenceLinkType::aliasReference;
}

// Logs that the target of a symbolic link cannot be told or does not exist.
void logMissingTarget(const std::string& link);

// The value, with any error of the alias file logged.
std::optional<std::string> loggedTarget(Result<std::string> target, const std::string& aliasFile);

}  // namespace quillonic::link_types
