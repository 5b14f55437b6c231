#include "filesystem/link_types.hpp"

#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/platform/logging.hpp>

#include <utility>

namespace quillonic::link_types {
namespace {

// Its size keeps a camera clip from being opened.
bool couldBeAlias(const items::Status& status) noexcept {
  return status.type == FileType::regular && status.size >= AliasFile::markSize &&
         status.size <= AliasFile::greatestSize;
}

}  // namespace

Result<ReferenceLinkType> typeOf(const std::string& item, const items::Status& status,
                                 const items::Folder* folder) {
  if (status.type == FileType::symbolicLink) return ReferenceLinkType::softSymbolicReference;
  if (couldBeAlias(status)) {
    const auto mark = items::firstBytes(item, AliasFile::markSize, folder);
    if (!mark) return mark.error();
    if (AliasFile::isAliasFile(*mark)) return ReferenceLinkType::aliasReference;
  }
  const bool hasOtherNames = status.type != FileType::directory && status.names > 1;
  return hasOtherNames ? ReferenceLinkType::hardSymbolicReference : ReferenceLinkType::notAReferenceLink;
}

Result<ReferenceLinkType> typeOf(const std::string& item) {
  const auto status = items::status(item);
  return status ? typeOf(item, *status) : status.error();
}

std::optional<ReferenceLinkType> logged(const Result<ReferenceLinkType>& type, const std::string& item) {
  if (type) return *type;
  if (!items::isMissing(type.error())) {
    VantiroLogging::defaultLogger()->logWarning("RLTOI-Failed to discover the link type of file '" + item +
                                                "' with error " + type.error().message());
  }
  return std::nullopt;
}

void logMissingTarget(const std::string& link) {
  const auto log = VantiroLogging::defaultLogger();
  // A fixed text, which has no room for the link.
  log->logWarning("Could not find resolved path for symbolic source node");
  log->logDebug("QLC_LT_LMT-The symbolic source node is " + link);
}

std::optional<std::string> loggedTarget(Result<std::string> target, const std::string& aliasFile) {
  if (!target) {
    VantiroLogging::defaultLogger()->logWarning("Failed to resolve alias for file '" + aliasFile +
                                                "' with error " + target.error().message());
  }
  return std::move(target).asOptional();
}

}  // namespace quillonic::link_types
