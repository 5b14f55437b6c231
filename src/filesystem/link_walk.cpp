#include <quillonic/filesystem/link_walk.hpp>
#include <quillonic/platform/logging.hpp>

#include <algorithm>
#include <cstddef>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "filesystem/link_types.hpp"
#include "filesystem/locations.hpp"
#include "platform/items.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;

// Walks folders without following links and calls the block with each link and its target.
class LinkWalk {
 public:
  using Block = FunctionRef<void(const path& link, const path& target, bool& stop)>;

  explicit LinkWalk(Block block) : block_(block) {}

  // Whether every folder was read, until the block stopped the walk.
  bool walk(const path& root) {
    const auto shownRoot = locations::standardizedItem(locations::itself(root));
    const auto physicalRoot = shownRoot ? items::canonical(*shownRoot) : shownRoot.error();
    if (!physicalRoot) {
      missFolder(root, physicalRoot.error());
      return false;
    }
    // Folders still to be visited, the next one last.
    std::vector<Visit> pending{{*shownRoot, *physicalRoot}};
    while (!pending.empty() && !stop_) {
      const auto visit = std::move(pending.back());
      pending.pop_back();
      const auto first = static_cast<std::ptrdiff_t>(pending.size());
      visitFolder(visit, pending);
      std::reverse(pending.begin() + first, pending.end());
    }
    return isComplete_;
  }

 private:
  // A folder as the caller sees it, and with its links followed.
  struct Visit {
    std::string shown;
    std::string physical;
  };

  void missFolder(const std::string& folder, std::error_code error) {
    isComplete_ = false;
    VantiroLogging::defaultLogger()->logWarning("ELFDP-Failed to read folder: " + folder + " with error " +
                                                error.message());
  }

  void visitFolder(const Visit& visit, std::vector<Visit>& pending) {
    const auto folder = items::Folder::open(visit.physical);
    const auto entries = folder ? items::entries(*folder) : folder.error();
    if (!entries) return missFolder(visit.shown, entries.error());
    // Parsed once and not for each link.
    path link = path(visit.shown) / "link";
    for (const auto& entry : *entries) {
      auto type = entry.type;
      items::Status status;
      if (type == FileType::unknown || type == FileType::regular) {
        const auto known = items::status(entry.name, &*folder);
        if (!known) {
          // What went away since the folder was read is not missed.
          const auto error = known.error();
          if (error != std::errc::no_such_file_or_directory) missFolder(visit.shown, error);
          continue;
        }
        status = *known;
        type = status.type;
      }
      std::optional<std::string> target;
      if (type == FileType::directory) {
        pending.push_back(
            {locations::inFolder(visit.shown, entry.name), locations::inFolder(visit.physical, entry.name)});
      } else if (type == FileType::symbolicLink) {
        target = symbolicTarget(*folder, visit.physical, entry.name);
      } else if (type == FileType::regular) {
        target = aliasTarget(locations::inFolder(visit.physical, entry.name), status);
      }
      if (!target) continue;
      block_(link.replace_filename(entry.name), *std::move(target), stop_);
      if (stop_) return;
    }
  }

  static std::optional<std::string> symbolicTarget(const items::Folder& folder, const std::string& path,
                                                   const std::string& name) {
    const auto text = items::linkText(name, &folder);
    auto target = text ? locations::destination(path, true, *text) : text.error();
    if (!target) {
      VantiroLogging::defaultLogger()->logWarning("Could not find resolved path for symbolic source node");
    }
    return std::move(target).asOptional();
  }

  std::optional<std::string> aliasTarget(const std::string& item, const items::Status& status) {
    const auto type = link_types::loggedTypeOf(item, status);
    if (!type) isComplete_ = false;
    return type == ReferenceLinkType::aliasReference ? link_types::loggedAliasTarget(item) : std::nullopt;
  }

  Block block_;
  bool stop_ = false;
  bool isComplete_ = true;
};

}  // namespace

bool enumerateLinkFileDereferencePairs(
    const path& inDirectory,
    FunctionRef<void(const path& link, const path& target, bool& stop)> didFindPair) {
  return LinkWalk(didFindPair).walk(inDirectory);
}

}  // namespace quillonic
