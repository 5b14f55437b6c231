#include "filesystem/alias_resolution.hpp"

#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/filesystem/io_error.hpp>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "platform/items.hpp"
#include "platform/path_text.hpp"
#include "text/find_sorted.hpp"
#include "text/name_folding.hpp"

namespace quillonic {
namespace {

using Names = std::span<const std::string>;

// No system looks up a longer path.
constexpr std::size_t greatestPathSize = 4096;

// Cut when too long for any item, so that the names of a hostile file do not add up.
std::string joined(std::string path, Names names) {
  for (const auto& name : names) {
    if (!path.ends_with('/')) path.push_back('/');
    path += name;
    if (path.size() >= greatestPathSize) break;
  }
  return path;
}

std::optional<Names> last(Names names, std::optional<std::int64_t> count) {
  if (!count || *count < 0 || !std::in_range<std::size_t>(*count)) return std::nullopt;
  const auto wanted = static_cast<std::size_t>(*count);
  return wanted <= names.size() ? std::optional(names.last(wanted)) : std::nullopt;
}

class Resolution {
 public:
  // The alias file's path is absolute, and no folder in it is a link.
  Resolution(const AliasFile& alias, std::string aliasPath, LookUps& lookUps)
      : alias_(alias), aliasPath_(std::move(aliasPath)), names_(alias.pathComponents), lookUps_(lookUps) {}

  Result<std::string> target() {
    if (auto found = firstFound()) {
      const auto follow = [&](const std::string& folder) { return lookUps_.followed(folder); };
      return locations::withFoldersFollowed(*std::move(found), follow);
    }
    if (lookUpsLeft_ == 0) return FilePathAttributeGenerationError::malformedAliasFile;
    return obstacle_ ? obstacle_ : make_error_code(FilePathAttributeGenerationError::aliasTargetNotFound);
  }

 private:
  std::optional<std::string> firstFound() {
    if (recordedVolumeIsMounted()) {
      if (auto found = find("/", names_)) return found;
    }
    if (auto found = relativeToAlias()) return found;
    if (auto found = onMountedVolume()) return found;
    if (alias_.componentsBelowHome != 0) {
      const auto below = last(names_, alias_.componentsBelowHome);
      const auto home = below ? items::homeFolder() : std::nullopt;
      if (home) {
        if (auto found = find(*home, *below)) return found;
      }
    }
    return find("/", names_);
  }

  bool exists(const std::string& path) {
    if (lookUpsLeft_ == 0 || path.size() >= greatestPathSize) return false;
    --lookUpsLeft_;
    const auto error = lookUps_.reach(path);
    note(error);
    return !error;
  }

  // Keeps the error of the first place that could not be looked at.
  void note(std::error_code error) {
    if (!items::isMissing(error) && !obstacle_) obstacle_ = error;
  }

  // The item below a folder, each name exactly or else ignoring case and composition.
  std::optional<std::string> find(const std::string& folder, Names names) {
    auto path = joined(folder, names);
    if (!exists(path)) {
      path = folder;
      for (const auto& name : names) {
        auto next = joined(path, {&name, 1});
        if (!exists(next)) {
          const auto& similar = foldedEntries(path);
          const auto folded = text::foldedName(name);
          const auto* entry = findSorted(similar, folded, &LookUps::Entry::folded);
          if (!entry) return std::nullopt;
          next = joined(path, {&entry->name, 1});
        }
        path = std::move(next);
      }
    }
    return path == aliasPath_ || !exists(path) ? std::nullopt : std::optional(std::move(path));
  }

  const std::vector<LookUps::Entry>& foldedEntries(const std::string& folder) {
    const auto& listing = lookUps_.listing(folder);
    note(listing.error);
    return listing.entries;
  }

  bool recordedVolumeIsMounted() {
    return alias_.volumePath && std::ranges::any_of(lookUps_.mounts().mounts(), [&](const Mount& mount) {
             return mount.mountPoint.native() == *alias_.volumePath && !isOtherVolume(mount);
           });
  }

  // Another card at the recorded mount point often has a clip of the same name.
  bool isOnAnotherVolume(const std::string& path) {
    if (!alias_.volumePath || !alias_.volumeUUID) return false;
    const auto* mount = lookUps_.mounts().withLongestMountPoint(path);
    return mount && mount->mountPoint.native() == *alias_.volumePath && isOtherVolume(*mount);
  }

  std::optional<std::string> relativeToAlias() {
    if (!alias_.relativeDirsUp && !alias_.relativeDirsDown) return alongRecordedTails();
    auto folder = path_text::components(aliasPath_);
    const auto stripped = last(folder, alias_.relativeDirsUp);
    const auto tail = last(names_, alias_.relativeDirsDown);
    if (!stripped || !tail) return std::nullopt;
    folder.resize(folder.size() - stripped->size());
    auto found = find(joined("/", folder), *tail);
    return found && !isOnAnotherVolume(*found) ? found : std::nullopt;
  }

  // From the alias file upwards: the longest trailing part of the recorded path that exists.
  std::optional<std::string> alongRecordedTails() {
    for (auto folder = aliasPath_; folder != "/" && lookUpsLeft_ > 0;) {
      folder = std::string(path_text::folderOf(folder));
      for (std::size_t skipped = 0; skipped < names_.size() && lookUpsLeft_ > 0; ++skipped) {
        const auto tail = names_.subspan(skipped);
        // One look-up shows that most folders have none of the names.
        const auto first = joined(folder, tail.first(1));
        const auto path = exists(first) ? joined(folder, tail) : aliasPath_;
        if (path != aliasPath_ && exists(path) && !isOnAnotherVolume(path)) return path;
      }
    }
    std::vector<std::string> folded;
    for (const auto& name : names_) folded.push_back(text::foldedName(name));
    for (auto folder = aliasPath_; folder != "/" && lookUpsLeft_ > 0;) {
      folder = std::string(path_text::folderOf(folder));
      const auto& similar = foldedEntries(folder);
      for (std::size_t skipped = 0; skipped < names_.size() && lookUpsLeft_ > 0; ++skipped) {
        const auto* entry = findSorted(similar, folded[skipped], &LookUps::Entry::folded);
        if (!entry) continue;
        auto found = find(joined(folder, {&entry->name, 1}), names_.subspan(skipped + 1));
        if (found && !isOnAnotherVolume(*found)) return found;
      }
    }
    return std::nullopt;
  }

  std::optional<std::string> onMountedVolume() {
    const auto volume = path_text::components(alias_.volumePath.value_or("/"));
    const auto readsAs = [](const std::string& name) { return text::foldedName(name); };
    if (volume.size() > names_.size() ||
        !std::ranges::equal(volume, names_.first(volume.size()), {}, readsAs, readsAs)) {
      return std::nullopt;
    }
    const auto below = names_.subspan(volume.size());
    for (const auto& mount : lookUps_.mounts().mounts()) {
      if (isRecordedVolume(mount) != Verdict::yes) continue;
      if (auto found = find(mount.mountPoint, below)) return found;
    }
    auto name = alias_.volumeName;
    if (!name && !volume.empty()) name = volume.back();
    if (!name) return std::nullopt;
    const auto folded = text::foldedName(*name);
    for (const auto& mount : lookUps_.mounts().mounts()) {
      const auto& point = mount.mountPoint.native();
      const auto label = lookUps_.labels().of(mount);
      const bool isNamed = text::foldedName(std::string_view(point).substr(point.rfind('/') + 1)) == folded ||
                           (label && text::foldedName(*label) == folded);
      if (!isNamed) continue;
      if (auto found = find(point, below)) return found;
    }
    return std::nullopt;
  }

  enum class Verdict { yes, no, unknown };

  // A volume without an identifier is another one too if the recorded one is mounted elsewhere.
  bool isOtherVolume(const Mount& mount) {
    const auto verdict = isRecordedVolume(mount);
    return verdict == Verdict::no ||
           (verdict == Verdict::unknown &&
            std::ranges::any_of(lookUps_.mounts().mounts(),
                                [&](const Mount& other) { return isRecordedVolume(other) == Verdict::yes; }));
  }

  Verdict isRecordedVolume(const Mount& mount) {
    if (!alias_.volumeUUID) return Verdict::unknown;
    const auto identifier = lookUps_.identifiers().of(mount);
    // Systems derive different forms of identifiers from a card's short number.
    if (!identifier || identifier->size() != alias_.volumeUUID->size()) return Verdict::unknown;
    return text::foldedName(*identifier) == text::foldedName(*alias_.volumeUUID) ? Verdict::yes : Verdict::no;
  }

  const AliasFile& alias_;
  std::string aliasPath_;
  Names names_;
  LookUps& lookUps_;
  // Desktops record a dozen names, and every trailing part is looked up in a dozen folders. The search gives
  // up on a file made to keep it busy.
  std::size_t lookUpsLeft_ = 10'000;
  std::error_code obstacle_;
};

// Reads an alias file; a relative path counts from the folder, if any.
Result<AliasFile> read(const std::string& item, const items::Folder* folder) {
  // Opens no device, and reads no more of a clip than shows what it is.
  const auto status = items::status(item, folder);
  if (!status) return status.error();
  const auto type = link_types::typeOf(item, *status, folder);
  if (!type) return type.error();
  if (*type != ReferenceLinkType::aliasReference) return FilePathAttributeGenerationError::notAnAliasFile;
  const auto bytes = items::firstBytes(item, AliasFile::greatestSize, folder);
  if (!bytes) return bytes.error();
  auto alias = AliasFile::fromBytes(*bytes);
  if (!alias) return FilePathAttributeGenerationError::malformedAliasFile;
  return *std::move(alias);
}

}  // namespace

Result<std::string> aliasTarget(const std::string& aliasFile, LookUps& lookUps) {
  const auto alias = read(aliasFile, nullptr);
  const auto place = alias ? locations::placeOf(aliasFile) : alias.error();
  if (!place) return place.error();
  return Resolution(*alias, place->path(), lookUps).target();
}

Result<std::string> aliasTargetIn(const items::Folder& folder, const std::string& name, std::string path,
                                  LookUps& lookUps) {
  const auto alias = read(name, &folder);
  return alias ? Resolution(*alias, std::move(path), lookUps).target() : alias.error();
}

}  // namespace quillonic
