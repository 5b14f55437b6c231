#include "filesystem/link_types.hpp"

#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/platform/logging.hpp>

#include "filesystem/alias_resolution.hpp"

namespace quillonic::link_types {
namespace {

// The size spares camera clips from being opened.
bool couldBeAlias(const items::Status& status) noexcept {
  return status.type == FileType::regular && status.size >= AliasFile::markSize &&
         status.size <= AliasFile::greatestSize;
}

}  // namespace

std::optional<ReferenceLinkType> typeOf(const std::string& item, const items::Status& status,
                                        std::error_code& error) {
  error.clear();
  if (status.type == FileType::symbolicLink) return ReferenceLinkType::softSymbolicReference;
  if (couldBeAlias(status)) {
    const auto mark = items::firstBytes(item, AliasFile::markSize, error);
    if (!mark) return std::nullopt;
    if (AliasFile::isAliasFile(*mark)) return ReferenceLinkType::aliasReference;
  }
  const bool hasOtherNames = status.type != FileType::directory && status.names > 1;
  return hasOtherNames ? ReferenceLinkType::hardSymbolicReference : ReferenceLinkType::notAReferenceLink;
}

std::optional<ReferenceLinkType> typeOf(const std::string& item, std::error_code& error) {
  const auto status = items::status(item, error);
  return status ? typeOf(item, *status, error) : std::nullopt;
}

std::optional<ReferenceLinkType> loggedTypeOf(const std::string& item, const items::Status& status) {
  std::error_code error;
  const auto type = typeOf(item, status, error);
  if (!type) {
    VantiroLogging::defaultLogger()->logWarning("Failed to discover the link type of file '" + item +
                                                "' with error " + error.message());
  }
  return type;
}

std::optional<std::string> loggedAliasTarget(const std::string& aliasFile) {
  std::error_code error;
  auto target = aliasTarget(aliasFile, error);
  if (!target) {
    VantiroLogging::defaultLogger()->logWarning("Failed to resolve alias for file '" + aliasFile +
                                                "' with error " + error.message());
  }
  return target;
}

}  // namespace quillonic::link_types
