#include <quillonic/filesystem.hpp>

#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>

#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using std::filesystem::path;
using Paths = std::vector<path>;

// Answers from a list of names.
class ListedFileSystem final : public PlatformFileSystem {
 public:
  explicit ListedFileSystem(std::set<std::string> taken) : taken_(std::move(taken)) {}

  ItemPresence presenceOfItem(const std::string& item) const override {
    if (item.starts_with("/secret/")) return ItemPresence::unknown;
    return taken_.contains(item) ? ItemPresence::present : ItemPresence::absent;
  }
  void enumerateVolumeRoots(std::span<const path> items, VolumeRootBlock block) const override {
    for (const auto& item : items) {
      const auto root = item.parent_path();
      block(item, root == "/pulled" ? nullptr : &root);
    }
  }

 private:
  std::set<std::string> taken_;
};

FileManager managerWith(std::set<std::string> taken) {
  return FileManager(std::make_shared<ListedFileSystem>(std::move(taken)));
}

TEST(FilePathAdjustedForCollision, CountsUpBehindTheStem) {
  const std::pair<std::string, std::string> rows[] = {
      {"/out/clip.mov", "/out/clip 2.mov"}, {"/out.d/report", "/out.d/report 2"},
      {"/out/a.b.gz", "/out/a.b 2.gz"},     {"/out/.hidden", "/out/.hidden 2"},
      {"/out/name.", "/out/name. 2"},       {"a  b .mov", "a  b  2.mov"},
      {"./a//clip.mov", "./a//clip 2.mov"}, {"/clip.mov", "/clip 2.mov"},
      {"/out/\xFF.mov", "/out/\xFF 2.mov"}, {"/", "/ 2"}};
  for (const auto& [taken, free] : rows) {
    EXPECT_EQ(managerWith({taken}).filePathAdjustedForCollision(taken).native(), free);
    EXPECT_EQ(managerWith({}).filePathAdjustedForCollision(taken).native(), taken);
  }
  EXPECT_EQ(managerWith({"/out/dir"}).filePathAdjustedForCollision("/out/dir//").native(), "/out/dir 2");
  for (const auto* free : {"/out/dir/", "", "/secret/a"}) {
    EXPECT_EQ(managerWith({}).filePathAdjustedForCollision(free).native(), free);
  }
}

TEST(LastPathComponentAdjustedForCollision, IsFreeInEveryFolder) {
  const auto files = managerWith({"/a/s.mov", "/b/s 2.mov", "/a/s", "/a/s 2.", "s.mov"});
  const auto name = [&](const Paths& amongst, std::optional<std::string_view> extension) {
    return files.lastPathComponentAdjustedForCollision(amongst, "s", extension);
  };
  EXPECT_EQ(name({}, "mov"), "s");
  EXPECT_EQ(name({"/a", "/b/"}, "mov"), "s 3.mov");
  EXPECT_EQ(name({"/b/"}, "mov"), "s.mov");
  EXPECT_EQ(name({"/a", "/b/"}, ""), "s 3.");
  EXPECT_EQ(name({"/a", "/b/"}, std::nullopt), "s 2");
  EXPECT_EQ(name({""}, "mov"), "s 2.mov");
}

TEST(ConsistentFilePathsAdjustedForCollision, ShareOneStem) {
  using ByExtension = FileManager::PathsByExtension;
  const auto files = managerWith({"/out/clip.mov", "/out/clip-3.xml", "/b/clip-2.xml"});
  const std::vector<std::string> extensions{"xml", "mov", "xml"};
  const auto across = [&](const Paths& folders) {
    return files.consistentFilePathsAdjustedForCollisionAcrossDirectories(folders, "clip", extensions);
  };
  EXPECT_EQ(files.consistentFilePathsAdjustedForCollision("/out", "clip", extensions),
            (ByExtension{{"mov", "/out/clip-2.mov"}, {"xml", "/out/clip-2.xml"}}));
  EXPECT_EQ(across({"/b", "/out"}), (ByExtension{{"mov", "/b/clip-4.mov"}, {"xml", "/b/clip-4.xml"}}));
  EXPECT_EQ(files.consistentFilePathsAdjustedForCollision("/out", "clip", {}), ByExtension{});
  EXPECT_EQ(across({}), ByExtension{});
}

// Repeated writing to a free name never overwrites anything.
TEST(FileManagerNaming, NeverGivesANameThatAnEntryBears) {
  const TemporaryFolder folder;
  const FileManager files;
  EXPECT_EQ(files.filePathAdjustedForCollision(folder.link("link.mov", "/nowhere/victim")),
            folder / "link 2.mov");
  const std::string longest(251, 'n');
  for (const std::string name : {"clip.mov", "\xFF\xFE.mov", " ", ".mov", "line\nbreak", longest.c_str()}) {
    for (int i = 0; i < 12; ++i) {
      const auto free = files.filePathAdjustedForCollision(folder / name);
      ASSERT_EQ(free.parent_path(), folder.path());
      ASSERT_FALSE(std::filesystem::exists(free)) << free;
      folder.file(free.filename());
    }
  }
  // Too long to exist, and so free.
  const auto tooLong = folder.file(std::string(254, 'n'));
  EXPECT_EQ(files.filePathAdjustedForCollision(tooLong), path(tooLong) += " 2");
  const auto nul = folder / std::string("clip.mov\0x", 10);
  EXPECT_EQ(files.filePathAdjustedForCollision(nul), nul);
}

TEST(FileManagerNaming, EndsInAFolderThatCannotBeSearched) {
  const TemporaryFolder folder;
  const auto clip = folder.file("closed/clip.mov");
  runPrivately([&] {
    chmod(clip.parent_path().c_str(), 0);
    chmod(folder.path().c_str(), 0755);
    becomeNobody();
    const FileManager files;
    RecordedLog log;
    EXPECT_EQ(files.filePathAdjustedForCollision(clip), clip);
    EXPECT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(files.getUniqueDrives(Paths{clip}), files.getUniqueDrives(Paths{folder.path()}));
    // Nobody can raise the rights, or nobody can be asked; what cannot be seen does not count as removed.
    EXPECT_FALSE(files.removePathWithElevatedPermissions(clip.native()));
    EXPECT_EQ(log.lines().size(), 2U);
  });
  chmod(clip.parent_path().c_str(), 0700);
  EXPECT_TRUE(std::filesystem::exists(clip));
}

TEST(DriveGrouping, KeepsTheOrderOfTheItems) {
  const RecordedLog log;
  const Paths items{"/b/1", "/pulled/x", "/a/1", "/b/3", "/pulled/\n", "/b/2"};
  EXPECT_EQ(managerWith({}).getUniqueDrives(items), (std::vector<std::string>{"/b", "/a"}));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(managerWith({}).mappingOfUniqueDrives(items),
            (FileManager::ItemsByDrive{
                {"", {"/pulled/x", "/pulled/\n"}}, {"/a", {"/a/1"}}, {"/b", {"/b/1", "/b/3", "/b/2"}}}));
  EXPECT_EQ(log.text(),
            "warning: MOUD-Unable to find root drive path for given URL: /pulled/x\n"
            "warning: MOUD-Unable to find root drive path for given URL: /pulled/\n\n");
}

}  // namespace
}  // namespace quillonic
