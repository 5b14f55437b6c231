// Files without content, below TMPDIR, removed at the end.
#include "files.hpp"

#include <quillonic/filesystem.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillonic::benchmarks {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t itemCount = 10'000;
constexpr std::size_t clipCount = 100'000;

// A folder of its own, with items a hundred to a folder.
struct Tree {
  Tree() {
    std::string name = fs::temp_directory_path() / "quillonic-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    root = name;
  }
  template <class Make> Tree(std::size_t count, Make make) : Tree() {
    for (std::size_t i = 0; i < count; ++i) {
      const auto folder = root / ("reel " + std::to_string(i / 100));
      if (i % 100 == 0) fs::create_directory(folder);
      paths.push_back(folder / ("A001C" + std::to_string(i) + "_201112_R1AB.MXF"));
      make(paths.back());
    }
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
  }

  fs::path root;
  std::vector<fs::path> paths;
};

// Of a size that holds no blocks.
void makeFile(const fs::path& path, std::uint64_t size) {
  std::ofstream(path).close();
  fs::resize_file(path, size);
}

// Clips as cameras leave them: too large for alias files, which would have to be opened.
std::span<const fs::path> clips(std::size_t count) {
  static const Tree tree(clipCount, [](const fs::path& path) { makeFile(path, std::uint64_t{1} << 30U); });
  return std::span(tree.paths).first(count);
}

std::span<const fs::path> smallFiles() {
  static const Tree tree(itemCount, [](const fs::path& path) { makeFile(path, 1'000); });
  return tree.paths;
}

const Tree& links() {
  static const Tree tree(itemCount,
                         [](const fs::path& path) { fs::create_symlink("../reel 0/clip.mov", path); });
  return tree;
}

// Names of one alias file, each of which has to be opened and read.
const Tree& aliases(std::size_t count) {
  static const Tree target;
  static const auto alias = target.root / "alias";
  static std::map<std::size_t, Tree> trees;
  if (!fs::exists(alias)) {
    makeFile(target.root / "clip.mov", 1'000);
    createAliasForFilePath(target.root / "clip.mov", alias);
  }
  return trees.try_emplace(count, count, [](const fs::path& path) { fs::create_hard_link(alias, path); })
      .first->second;
}

void walk(const Tree& tree) {
  std::size_t found = 0;
  enumerateLinkFileDereferencePairs(tree.root, [&](const fs::path&, const fs::path&, bool&) { ++found; });
  if (found != tree.paths.size()) throw std::runtime_error("links are missing");
}

template <class Do> Work toEach(std::span<const fs::path> items, Do does) {
  return [=] {
    for (const auto& item : items) does(item);
  };
}

// Asks about each, once it is shown that the first gets the right answer.
template <class Ask, class Answer>
Work asking(std::span<const fs::path> items, Ask ask, const Answer& expected) {
  if (ask(items.front()) != expected) throw std::runtime_error("answers something else");
  return toEach(items, [=](const fs::path& item) { use(ask(item)); });
}

void look(const fs::path& item) {
  struct statx status {};
  const auto everything = STATX_BASIC_STATS | STATX_BTIME | STATX_MNT_ID;
  use(statx(AT_FDCWD, item.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, everything, &status));
}

// Also at what a file begins with.
void lookInto(const fs::path& item) {
  look(item);
  std::array<char, AliasFile::markSize> mark;
  const int file = open(item.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  use(read(file, mark.data(), mark.size()));
  close(file);
}

void lookAtTarget(const fs::path& link) {
  std::array<char, 4096> target;
  use(readlink(link.c_str(), target.data(), target.size()));
}

void readAttributes(const fs::path& item) {
  use(expandedAttributesOfItem(item));
}

std::string rootOf(const fs::path& item) {
  return FileManager().getUniqueDrives(std::span(&item, 1)).at(0);
}

std::string freeName(const fs::path& wanted) {
  if (!fs::exists(wanted)) return wanted;
  const auto beginning = (wanted.parent_path() / wanted.stem()).native() + " ";
  for (int number = 2;; ++number) {
    auto candidate = beginning + std::to_string(number) + wanted.extension().native();
    if (!fs::exists(candidate)) return candidate;
  }
}

// A thousand names that are taken, and the free one after them.
const Tree& names() {
  static Tree tree;
  for (std::size_t i = tree.paths.size() + 1; i <= 1'001; ++i) {
    tree.paths.push_back(tree.root / (i == 1 ? "clip.mov" : "clip " + std::to_string(i) + ".mov"));
    if (i <= 1'000) makeFile(tree.paths.back(), 0);
  }
  return tree;
}

constexpr auto findName = "free name after 1,000 that are taken";
constexpr auto findRoot = "volume root of one item a call";
constexpr auto findRoots = "volume roots of 100,000 items, 10,000 a call, each";
constexpr auto readClips = "attributes of 10,000 clips, each";
constexpr std::size_t itemsOfATurn = 100;

template <class Find> void addNaming(const std::string& who, const std::string& note, Find find) {
  add({findName, who, note},
      [=] { return asking(std::span(names().paths).first(1), find, names().paths.back().native()); });
}

const bool added = [] {
  constexpr auto oneCall = "one system call each";
  constexpr auto opening = "one system call each, opening and reading";
  addNaming(ours, "",
            [](const fs::path& path) { return FileManager().filePathAdjustedForCollision(path).native(); });
  addNaming("std::filesystem::exists", "less: a dangling link counts as free", freeName);
  add({findName, least(oneCall)}, [] { return toEach(names().paths, look); });

  addRoots(ours, "reads the table of mounts in every call", rootOf);
  add({findRoot, "ours, mounts read before", "", itemsOfATurn}, [] {
    return toEach(clips(itemsOfATurn),
                  [mounts = MountTable::current()](const fs::path& item) { use(mounts.holding(item)); });
  });
  add({findRoot, least(oneCall), "", itemsOfATurn}, [] { return toEach(clips(itemsOfATurn), look); });
  add({findRoots, ours, "", clipCount}, [] {
    return [] {
      for (std::size_t i = 0; i < clipCount; i += itemCount) {
        use(FileManager().mappingOfUniqueDrives(clips(clipCount).subspan(i, itemCount)));
      }
    };
  });
  add({findRoots, least(oneCall), "", clipCount}, [] { return toEach(clips(clipCount), look); });

  addAttributes(ours, "", [](const fs::path& item) {
    return expandedAttributesOfItem(item)->value<std::uint64_t>(FileAttributeKey::NSFileSize).value();
  });
  addAttributes("std::filesystem", "less: no owner, device, number or creation date",
                [](const fs::path& item) {
                  use(fs::symlink_status(item));
                  use(fs::hard_link_count(item));
                  use(fs::last_write_time(item));
                  return fs::file_size(item);
                });
  add({readClips, least(oneCall), "", itemCount}, [] { return toEach(clips(itemCount), look); });
  constexpr auto readSmall = "attributes of 10,000 files that may be aliases, each";
  add({readSmall, ours, "", itemCount}, [] { return toEach(smallFiles(), readAttributes); });
  add({readSmall, least(opening), "", itemCount}, [] { return toEach(smallFiles(), lookInto); });
  constexpr auto walkLinks = "walk over 10,000 symbolic links, each";
  add({walkLinks, ours, "", itemCount}, [] { return [] { walk(links()); }; });
  add({walkLinks, least("reading each"), "", itemCount}, [] { return toEach(links().paths, lookAtTarget); });
  constexpr auto walkAliases = "walk over 10,000 alias files, each";
  add({walkAliases, ours, "", itemCount}, [] { return [] { walk(aliases(itemCount)); }; });
  add({walkAliases, least(opening), "", itemCount},
      [] { return toEach(aliases(itemCount).paths, lookInto); });

  addGrowth("attributes of a clip", allItems,
            [](std::size_t size) { return toEach(clips(size), readAttributes); });
  addGrowth("walk over an alias file", allItems,
            [](std::size_t size) { return [=] { walk(aliases(size)); }; });
  // Each finds a file of like name once the folders above it are listed.
  addGrowth("attributes of an alias whose drive is absent", allItems, [](std::size_t size) {
    static const Tree target;
    const auto alias = target.root / "alias";
    std::ofstream(alias) << AliasFile{.pathComponents = {"Volumes", "CARD", "CLIP.MOV"}}.bytes();
    const auto link = [&](const fs::path& path) { fs::create_hard_link(alias, path); };
    const auto tree = std::make_shared<Tree>(size, link);
    makeFile(tree->root / "clip.mov", 1'000);
    return [tree] {
      ExpandedAttributesReader reader;
      for (const auto& item : tree->paths) use(reader.attributesOfItem(item));
    };
  });
  return true;
}();

}  // namespace

bool addRoots(const std::string& who, const std::string& note, RootOf rootOfPeer) {
  const auto of = [=](std::size_t count) {
    return asking(clips(count), rootOfPeer, rootOf(clips(1).front()));
  };
  add({findRoot, who, note, itemsOfATurn}, [=] { return of(itemsOfATurn); });
  return who == ours ||
         add({findRoots, who, note + "; one a call", itemCount}, [=] { return of(itemCount); });
}

bool addAttributes(const std::string& who, const std::string& note, SizeOf sizeOf) {
  return add({readClips, who, note, itemCount},
             [=] { return asking(clips(itemCount), sizeOf, fs::file_size(clips(1).front())); });
}

}  // namespace quillonic::benchmarks
