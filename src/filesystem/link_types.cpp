#include "filesystem/link_types.hpp"

#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/filesystem/reference_links.hpp>
#include <quillonic/platform/logging.hpp>

namespace quillonic::link_types {
namespace {

bool couldBeAlias(FileType type, std::uint64_t size) noexcept {
  constexpr std::size_t smallest = 56 + 24;  // the header and a table without entries
  return type == FileType::regular && size >= smallest && size <= AliasFile::greatestSize;
}

}  // namespace

std::optional<ReferenceLinkType> typeOf(const std::string& item, const items::Status& status,
                                        std::error_code& error) {
  error.clear();
  if (status.type == FileType::symbolicLink) return ReferenceLinkType::softSymbolicReference;
  if (couldBeAlias(status.type, status.size)) {
    const auto mark = items::firstBytes(item, 16, error);
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

std::optional<std::string> loggedAliasTarget(const std::string& aliasFile) {
  try {
    return standardizedResolvedAliasReference(aliasFile).native();
  } catch (const std::system_error& error) {
    VantiroLogging::defaultLogger()->logWarning("Failed to resolve alias for file '" + aliasFile +
                                                "' with error " + error.what());
    return std::nullopt;
  }
}

}  // namespace quillonic::link_types
