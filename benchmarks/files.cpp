#include "files.hpp"

#include <quillonic/filesystem.hpp>
#include <quillonic/platform.hpp>

#include <array>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>

namespace quillonic::benchmarks::files {
namespace {

constexpr std::array<std::pair<int, const char*>, 3> collisions{{{0, "free name, no collision"},
                                                                 {10, "free name, 10 collisions"},
                                                                 {1000, "free name, 1,000 collisions"}}};

std::string numbered(int collision) {
  return collision == 1 ? "clip.mov" : "clip " + std::to_string(collision) + ".mov";
}

struct Taken {
  std::unique_ptr<Tree> tree = std::make_unique<Tree>();
  std::filesystem::path wanted;
  // Every name that must be looked at, ending with the free one.
  std::vector<std::string> names;
};

Taken taken(int count, const NameOf& nameOf) {
  Taken made;
  for (int i = 1; i <= count; ++i) made.names.push_back(made.tree->add(nameOf(i)));
  made.names.push_back(made.tree->root() / nameOf(count + 1));
  made.wanted = made.tree->root() / nameOf(1);
  return made;
}

struct statx statusOf(const std::filesystem::path& item, unsigned mask) {
  struct statx status {};
  if (statx(AT_FDCWD, item.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, mask, &status) != 0) {
    throw std::runtime_error("cannot look at " + item.native());
  }
  return status;
}

const auto itself = [](const std::filesystem::path& item) { return item; };

void addNamingLimit() {
  for (const auto& [count, work] : collisions) {
    Lazily<Taken> names([count_ = count] { return taken(count_, numbered); });
    add({topic, work, limit("one system call per name")}, [=](benchmark::State& state) mutable {
      const auto& looked = (*names).names;
      timeTurns(state, [&] {
        for (const auto& name : looked) {
          struct stat item {};
          benchmark::DoNotOptimize(lstat(name.c_str(), &item));
        }
      });
    });
  }
}

void addRootsOfOurs() {
  add({topic, findingRoots, ours, "", itemCount}, [](benchmark::State& state) {
    const auto& items = clips(itemCount);
    timeTurns(state, [&] { benchmark::DoNotOptimize(FileManager().mappingOfUniqueDrives(items).size()); });
  });
  addRoots(
      findingRootsByText, ours, "", itself,
      [](const std::filesystem::path& item) {
        static const MountTable table = MountTable::current();
        return table.withLongestMountPoint(item);
      },
      [](const Mount* mount) { return mount->mountPoint.native(); });
}

const bool added = [] {
  const FileManager fileManager;
  addNaming(ours, "", numbered, [=](const std::filesystem::path& wanted) {
    return fileManager.filePathAdjustedForCollision(wanted).native();
  });
  addNamingLimit();
  addRootsOfOurs();
  addAttributes(
      ours, "", itself, [](const std::filesystem::path& item) { return expandedAttributesOfItem(item); },
      [](const auto& attributes) {
        return *attributes->template value<std::uint64_t>(FileAttributeKey::NSFileSize);
      });
  const auto nothing = [](const auto&) { return std::string(); };
  for (const auto& [work, mask] : {std::pair(findingRoots, STATX_TYPE | STATX_MNT_ID),
                                   std::pair(readingAttributes, STATX_BASIC_STATS | STATX_BTIME)}) {
    addQuestion(
        {"", work, limit("one system call per item")}, itself,
        [mask_ = mask](const std::filesystem::path& item) { return statusOf(item, mask_); }, nothing,
        nothing);
  }
  return true;
}();

}  // namespace

std::string rootOf(const std::filesystem::path& item) {
  return FileManager().getUniqueDrives(std::array{item}).at(0);
}

std::string sizeOf(const std::filesystem::path& item) {
  return std::to_string(std::filesystem::file_size(item));
}

bool addNaming(const std::string& who, const std::string& note, const NameOf& nameOf,
               const FindFreeName& find, int leastCollisions) {
  for (const auto& [count, work] : collisions) {
    if (count < leastCollisions) continue;
    Lazily<Taken> names([=, count_ = count] {
      auto made = taken(count_, nameOf);
      if (find(made.wanted) != made.names.back()) throw std::runtime_error("finds another name");
      return made;
    });
    add({topic, work, who, note}, [=](benchmark::State& state) mutable {
      const auto& wanted = (*names).wanted;
      timeTurns(state, [&] {
        const auto name = find(wanted);
        benchmark::DoNotOptimize(name.data());
      });
    });
  }
  return true;
}

}  // namespace quillonic::benchmarks::files
