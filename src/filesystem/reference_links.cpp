#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/filesystem/io_error.hpp>
#include <quillonic/filesystem/reference_links.hpp>
#include <quillonic/platform/logging.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "filesystem/alias_resolution.hpp"
#include "platform/items.hpp"
#include "platform/link_support.hpp"
#include "platform/path_text.hpp"
#include "platform/working_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

// As many as the system follows while it looks up one path.
constexpr int greatestStepCount = 40;

[[noreturn]] void fail(const char* operation, const std::string& item, std::error_code error) {
  throw std::filesystem::filesystem_error(operation, item, error);
}

// A path as the system is to see it: with a slash at its end it would follow a link.
std::string itself(const path& item) {
  return std::string(path_text::withoutTrailingSlashes(item.native()));
}

std::string inFolder(std::string folder, std::string_view name) {
  if (!folder.ends_with('/')) folder.push_back('/');
  return folder.append(name);
}

std::string absolutePath(const std::string& item) {
  if (item.starts_with('/')) return item;
  const auto folder = workingFolder();
  if (!folder)
    fail("cannot find the working folder", item,
         FilePathAttributeGenerationError::symbolicLinkTargetNotFound);
  return inFolder(*folder, item);
}

// Without ".", "..", doubled slashes and a slash at the end. The first `physical` bytes of the absolute path are
// known to hold no link, so that a ".." behind them is the component before it; elsewhere the system is asked
// which folder is meant, and where it does not know, the text decides.
std::string standardized(std::string_view absolute, std::size_t physical = 0) {
  std::string result;
  result.reserve(absolute.size());
  for (std::size_t at = 0; at < absolute.size();) {
    const auto end = std::min(absolute.find('/', at), absolute.size());
    const auto name = absolute.substr(at, end - at);
    at = end + 1;
    if (name.empty() || name == ".") continue;
    if (name != "..") {
      result.append("/").append(name);
      continue;
    }
    if (result.size() > physical) {
      if (auto folder = items::canonical(result)) {
        result = folder == "/" ? std::string() : *std::move(folder);
        physical = result.size();
      }
    }
    result.resize(result.empty() ? 0 : result.rfind('/'));
    physical = std::min(physical, result.size());
  }
  if (result.empty()) result = "/";
  return result;
}

// An existing folder with its links followed, and the name in it.
struct Place {
  std::string folder;
  std::string name;

  std::string path() const { return name.empty() ? folder : inFolder(folder, name); }
};

Place placeOf(const path& item) {
  const auto absolute = absolutePath(itself(item));
  const auto prefix = path_text::folderPrefix(absolute);
  Place place{std::string(prefix), absolute.substr(prefix.size())};
  if (place.name.empty() || place.name == "." || place.name == "..") place = {absolute, {}};
  std::error_code error;
  auto folder = items::canonical(place.folder);
  if (!folder) {
    // The resolution says nothing of why it failed; looking at the folder does.
    items::status(place.folder + "/.", error);
    fail("cannot find the folder", place.folder,
         error ? error : std::make_error_code(std::errc::no_such_file_or_directory));
  }
  place.folder = *std::move(folder);
  return place;
}

// Where a symbolic link leads, from its stored target. The link's folder is absolute; `physical` tells that no
// part of it is a link.
std::optional<std::string> destination(std::string_view folder, bool physical, std::string_view target) {
  if (target.empty() || target.find('\0') != std::string_view::npos) return std::nullopt;
  if (target.starts_with('/')) return standardized(target);
  return standardized(inFolder(std::string(folder), target), physical ? folder.size() : 0);
}

bool couldBeAlias(FileType type, std::uint64_t size) noexcept {
  constexpr std::size_t smallest = 56 + 24;  // the header and a table without entries
  return type == FileType::regular && size >= smallest && size <= AliasFile::greatestSize;
}

// Nothing, and an error, where a file that could be an alias cannot be opened.
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

bool leadsElsewhere(ReferenceLinkType type) noexcept {
  return type == ReferenceLinkType::softSymbolicReference || type == ReferenceLinkType::aliasReference;
}

std::string linkTextOf(const std::string& item) {
  std::error_code error;
  auto text = items::linkText(item, error);
  if (!text) fail("cannot read symbolic link", item, error);
  return *std::move(text);
}

// The target of a link of a kind, one step away.
std::string dereferenced(ReferenceLinkType type, const path& item) {
  switch (type) {
    case ReferenceLinkType::softSymbolicReference:
      return standardizedDestinationOfSymbolicLink(item).native();
    case ReferenceLinkType::aliasReference:
      return standardizedResolvedAliasReference(item).native();
    case ReferenceLinkType::notAReferenceLink:
    case ReferenceLinkType::hardSymbolicReference:
      break;
  }
  return standardized(absolutePath(itself(item)));
}

// Follows links until an item that is none; nothing where a link leads to a missing item.
std::optional<std::string> finalTarget(std::string item, ReferenceLinkType type) {
  for (int step = 0; leadsElsewhere(type); ++step) {
    if (step == greatestStepCount) {
      fail("cannot follow links", item, std::make_error_code(std::errc::too_many_symbolic_link_levels));
    }
    item = dereferenced(type, item);
    std::error_code error;
    const auto next = typeOf(item, error);
    if (!next && (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)) {
      return std::nullopt;
    }
    if (!next) fail("cannot read item", item, error);
    type = *next;
  }
  return standardized(absolutePath(item));
}

void logAliasFailure(const std::string& item, const std::exception& error) {
  VantiroLogging::defaultLogger()->logWarning("Failed to resolve alias for file '" + item + "' with error " +
                                              error.what());
}

// Values that many dictionaries share.
template <class Enumeration> const AnyValue& sharedValue(Enumeration value) {
  static const auto values = [] {
    std::vector<AnyValue> all;
    for (const auto listed : allCases<Enumeration>()) all.emplace_back(listed);
    return all;
  }();
  return values[static_cast<std::size_t>(value)];
}

struct LinkDetails {
  std::optional<ReferenceLinkType> type;
  std::optional<std::string> target;
  std::optional<bool> isRelative;
};

LinkDetails symbolicLinkDetails(const std::string& item) {
  LinkDetails details{.type = ReferenceLinkType::softSymbolicReference, .target = {}, .isRelative = {}};
  std::error_code error;
  const auto text = items::linkText(item, error);
  const auto folder = text && !text->starts_with('/') ? absolutePath(item) : std::string();
  if (text) details.target = destination(path_text::folderPrefix(folder), false, *text);
  // Whether something is there is seen through the link, which takes one look however far it leads.
  if (!details.target || !items::existsBehindLinks(item)) {
    VantiroLogging::defaultLogger()->logWarning("Could not find resolved path for symbolic source node");
  }
  if (text) {
    details.isRelative = !text->starts_with('/');
  } else {
    VantiroLogging::defaultLogger()->logWarning("Failed to discover if symbolic link is relative");
  }
  return details;
}

LinkDetails linkDetails(const std::string& item, const items::Status& status) {
  if (status.type == FileType::symbolicLink) return symbolicLinkDetails(item);
  LinkDetails details;
  std::error_code error;
  details.type = typeOf(item, status, error);
  if (details.type == ReferenceLinkType::aliasReference) {
    try {
      details.target = standardizedResolvedAliasReference(item).native();
    } catch (const std::system_error& failure) {
      logAliasFailure(item, failure);
    }
  }
  return details;
}

std::string nameOf(std::string_view item) {
  const auto name = item.substr(path_text::folderPrefix(item).size());
  return std::string(name.empty() ? item : name);
}

FileAttributes attributesOf(const std::string& item, const items::Status& status) {
  const auto details = linkDetails(item, status);
  std::vector<FileAttributes::Entry> entries;
  entries.reserve(18);
  // In the order in which the dictionary keeps them, so that nothing has to be sorted.
  using Key = FileAttributeKey;
  const auto add = [&](const Key& key, AnyValue value) { entries.push_back({key, std::move(value)}); };
  if (status.created) add(Key::NSFileCreationDate, *status.created);
  add(Key::NSFileGroupOwnerAccountID, status.group);
  add(Key::NSFileModificationDate, status.modified);
  add(Key::NSFileOwnerAccountID, status.owner);
  add(Key::NSFilePosixPermissions, status.permissions);
  add(Key::NSFileReferenceCount, status.names);
  add(Key::NSFileSize, status.size);
  add(Key::NSFileSystemFileNumber, status.inode);
  add(Key::NSFileSystemNumber, status.device);
  add(Key::NSFileType, sharedValue(status.type));
  add(Key::filePathName, nameOf(item));
  add(Key::isDirectoryPath, status.type == FileType::directory);
  if (details.type) add(Key::isLinkFilePath, leadsElsewhere(*details.type));
  if (details.isRelative) add(Key::isRelativeSymbolicReference, *details.isRelative);
  if (details.type) add(Key::referenceLinkType, sharedValue(*details.type));
  if (details.target) add(Key::referencedFileSystemURL, path(*details.target));
  add(Key::fileResourceType, sharedValue(status.type));
  return FileAttributes(std::move(entries));
}

// Walks folders without following links and calls the block with each link and its target.
class LinkWalk {
 public:
  using Block = FunctionRef<void(const path& link, const path& target, bool& stop)>;

  explicit LinkWalk(Block block) : block_(block) {}

  void walk(const path& root) {
    const auto shownRoot = standardized(absolutePath(itself(root)));
    const auto physicalRoot = items::canonical(shownRoot);
    if (!physicalRoot) return logUnreadable(shownRoot);
    // Folders still to be visited, as they lie below the root; the next one stands last.
    std::vector<std::string> pending{std::string()};
    while (!pending.empty() && !stop_) {
      const auto folder = std::move(pending.back());
      pending.pop_back();
      const auto shown = folder.empty() ? shownRoot : inFolder(shownRoot, folder);
      const auto physical = folder.empty() ? *physicalRoot : inFolder(*physicalRoot, folder);
      visit(shown, physical, folder, pending);
    }
  }

 private:
  static void logUnreadable(const std::string& folder) {
    VantiroLogging::defaultLogger()->logWarning("ELFDP-Failed to read folder: " + folder);
  }

  void visit(const std::string& shown, const std::string& physical, const std::string& below,
             std::vector<std::string>& pending) {
    std::error_code error;
    const auto entries = items::entries(physical, error);
    if (!entries) return logUnreadable(shown);
    const auto firstFolder = static_cast<std::ptrdiff_t>(pending.size());
    for (const auto& entry : *entries) {
      auto type = entry.type;
      const auto item = inFolder(physical, entry.name);
      std::optional<items::Status> status;
      if (type == FileType::unknown || type == FileType::regular) {
        status = items::status(item, error);
        if (!status) continue;
        type = status->type;
      }
      if (type == FileType::directory) {
        pending.push_back(below.empty() ? entry.name : inFolder(below, entry.name));
        continue;
      }
      auto target =
          type == FileType::symbolicLink ? destinationIn(physical, item) : aliasTarget(item, status);
      if (!target) continue;
      block_(inFolder(shown, entry.name), *std::move(target), stop_);
      if (stop_) return;
    }
    std::reverse(pending.begin() + firstFolder, pending.end());
  }

  static std::optional<std::string> destinationIn(const std::string& folder, const std::string& item) {
    std::error_code error;
    const auto text = items::linkText(item, error);
    auto target = text ? destination(folder, true, *text) : std::nullopt;
    if (!target) {
      VantiroLogging::defaultLogger()->logWarning("Could not find resolved path for symbolic source node");
    }
    return target;
  }

  static std::optional<std::string> aliasTarget(const std::string& item,
                                                const std::optional<items::Status>& status) {
    std::error_code error;
    if (!status || typeOf(item, *status, error) != ReferenceLinkType::aliasReference) return std::nullopt;
    try {
      return standardizedResolvedAliasReference(item).native();
    } catch (const std::system_error& failure) {
      logAliasFailure(item, failure);
      return std::nullopt;
    }
  }

  Block block_;
  bool stop_ = false;
};

AliasFile::Properties targetProperties(const std::string& name, FileType type, bool isVolume, bool isAlias) {
  std::uint64_t flags = 0;
  if (type == FileType::regular) flags |= AliasFile::regularFile;
  if (type == FileType::directory) flags |= AliasFile::directory;
  if (type == FileType::symbolicLink) flags |= AliasFile::symbolicLink;
  if (isVolume) flags |= AliasFile::volume;
  if (name.starts_with('.')) flags |= AliasFile::hidden;
  if (isAlias) flags |= AliasFile::alias;
  return {flags, 0x21F | AliasFile::hidden | AliasFile::alias};
}

AliasFile aliasTo(const Place& target, const items::Status& status, const Place& alias) {
  const auto targetPath = target.path();
  AliasFile file;
  file.pathComponents = path_text::components(targetPath);
  file.targetCreationDate = status.created;
  const auto own = path_text::components(alias.path());
  const auto& names = file.pathComponents;
  const auto [mine, its] = std::ranges::mismatch(own, names);
  file.relativeDirsUp = own.end() - mine;
  file.relativeDirsDown = names.end() - its;

  const auto mounts = MountTable::current();
  const auto* mount = mounts.holding(targetPath);
  if (mount) {
    const auto& point = mount->mountPoint.native();
    file.volumePath = point;
    file.volumeName = point == "/" ? point : nameOf(point);
    std::uint64_t flags = AliasFile::local;
    if (mount->isReadOnly) flags |= AliasFile::readOnly;
    file.volumeProperties = AliasFile::Properties{flags, 0x100013EF};
  }
  std::error_code ignored;
  file.targetProperties =
      targetProperties(target.name, status.type, mount && mount->mountPoint == path(targetPath),
                       typeOf(targetPath, status, ignored) == ReferenceLinkType::aliasReference);
  file.creationOptions = 1024;
  file.displayName = names.empty() ? "/" : names.back();
  return file;
}

LinkSupport linkSupport(const path& url) {
  std::error_code error;
  const auto support = linkSupportAt(url, error);
  if (!support) fail("cannot ask the volume", url.native(), error);
  return *support;
}

}  // namespace

std::optional<ReferenceLinkType> referenceLinkTypeOfItem(const path& atURL) {
  std::error_code error;
  return typeOf(itself(atURL), error);
}

std::optional<FileAttributes> expandedAttributesOfItem(const path& atURL) {
  const auto item = itself(atURL);
  std::error_code error;
  const auto status = items::status(item, error);
  return status ? std::optional(attributesOf(item, *status)) : std::nullopt;
}

ReferenceLinkType filePathLinkType(const path& fileAt) {
  const auto item = itself(fileAt);
  std::error_code error;
  const auto type = typeOf(item, error);
  if (!type) fail("cannot read item", item, error);
  return *type;
}

bool filePathAppearsToBeNonHardReference(const path& path) {
  return leadsElsewhere(filePathLinkType(path));
}

bool symbolicLinkIsRelative(const path& atPath) {
  return !linkTextOf(itself(atPath)).starts_with('/');
}

path standardizedDestinationOfSymbolicLink(const path& atPath) {
  const auto item = itself(atPath);
  const auto text = linkTextOf(item);
  const auto absolute = absolutePath(item);
  auto target = destination(path_text::folderPrefix(absolute), false, text);
  if (!target)
    fail("cannot follow symbolic link", item, FilePathAttributeGenerationError::symbolicLinkTargetNotFound);
  return *std::move(target);
}

path standardizedResolvedAliasReference(const path& aliasFileAt, AliasResolutionOptions /*options*/) {
  const auto item = itself(aliasFileAt);
  std::error_code error;
  const auto bytes = items::firstBytes(item, AliasFile::greatestSize + 1, error);
  if (!bytes) fail("cannot read alias file", item, error);
  if (!AliasFile::isAliasFile(*bytes) || bytes->size() > AliasFile::greatestSize) {
    fail("cannot resolve alias file", item, FilePathAttributeGenerationError::notAnAliasFile);
  }
  const auto alias = AliasFile::fromBytes(*bytes);
  if (!alias) fail("cannot resolve alias file", item, FilePathAttributeGenerationError::malformedAliasFile);
  auto target = targetOf(*alias, placeOf(item).path());
  if (!target) fail("cannot resolve alias file", item, FilePathAttributeGenerationError::aliasTargetNotFound);
  return *std::move(target);
}

std::optional<path> deeplyDereferencedFilePath(const path& forLinkFile,
                                               AliasResolutionOptions /*resolutionOptions*/) {
  const auto item = itself(forLinkFile);
  return finalTarget(item, filePathLinkType(item));
}

void enumerateLinkFileDereferencePairs(
    const path& inDirectory,
    FunctionRef<void(const path& link, const path& target, bool& stop)> didFindPair) {
  LinkWalk(didFindPair).walk(inDirectory);
}

void createAliasForFilePath(const path& item, const path& atLocation) {
  const auto target = placeOf(item);
  std::error_code error;
  const auto status = items::status(target.path(), error);
  if (!status) fail("cannot make an alias of a missing item", target.path(), error);
  const auto place = placeOf(atLocation);
  const auto bytes = aliasTo(target, *status, place).bytes(std::chrono::system_clock::now());
  if (!items::create(place.path(), bytes, error)) fail("cannot write alias file", place.path(), error);
}

bool fileSystemSupportsSymbolicLinks(const path& url) {
  return linkSupport(url).symbolicLinks;
}

bool fileSystemSupportsHardLinks(const path& url) {
  return linkSupport(url).hardLinks;
}

path dereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  return dereferenced(type, forURL);
}

path deeplyDereferencedFilePathURL(ReferenceLinkType type, const path& forURL) {
  const auto target = finalTarget(itself(forURL), type);
  if (!target) {
    fail("cannot follow links", forURL.native(), std::make_error_code(std::errc::no_such_file_or_directory));
  }
  return *target;
}

}  // namespace quillonic
