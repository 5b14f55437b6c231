#include <quillonic/filesystem.hpp>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "error_of.hpp"
#include "private_process.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using Errors = FilePathAttributeGenerationError;
using std::filesystem::path;

path resolved(const path& alias) {
  return standardizedResolvedAliasReference(alias);
}

TEST(AliasCreation, RecordsWhatAResolverNeeds) {
  const TemporaryFolder folder;
  const auto target = folder.file("media/card/clip e\u0301.mov");
  const auto file = folder.folder("project") / "alias";
  createAliasForFilePath(folder.link("link", "media/card") / target.filename(), file);
  const auto alias = AliasFile::fromBytes(contentOf(file)).value();
  EXPECT_EQ(alias.pathComponents, std::vector<std::string>(std::next(target.begin()), target.end()));
  EXPECT_TRUE(alias.relativeDirsUp == 2 && alias.relativeDirsDown == 3);
  EXPECT_EQ(alias.targetProperties->flags, AliasFile::regularFile);
  EXPECT_EQ(alias.volumeProperties,
            (AliasFile::Properties{AliasFile::local, AliasFile::local | AliasFile::readOnly}));
  EXPECT_EQ(alias.creationOptions, 1024);
  EXPECT_EQ(alias.displayName, target.filename());
  EXPECT_EQ(alias.volumePath, FileManager().getUniqueDrives(std::array{target}).at(0));
  EXPECT_EQ(resolved(file), target);

  // Nothing is ever replaced.
  for (const auto& taken : {target, folder / "project", folder.link("dangling", "nowhere"), file}) {
    EXPECT_EQ(errorOf(createAliasForFilePath, target, taken), std::errc::file_exists) << taken;
  }
  for (const auto& [item, at] :
       {std::pair(folder / "missing", folder / "new"), {target, folder / "missing/new"}})
    EXPECT_EQ(errorOf(createAliasForFilePath, item, at), std::errc::no_such_file_or_directory);
  createAliasForFilePath("/", folder / "to root");
  EXPECT_EQ(resolved(folder / "to root"), "/");
  for (const auto* name : {"project", "media"}) rename(folder / name, folder.folder("moved") / name);
  EXPECT_EQ(resolved(folder / "moved/project/alias"),
            folder / "moved" / target.lexically_relative(folder.path()));
}

// A lease makes others wait, or fail if they do not want to.
int leased = -1;
TEST(AliasResolution, WaitsForAnotherProcessToGiveUpItsLease) {
  const TemporaryFolder folder;
  createAliasForFilePath("/", folder / "alias");
  leased = open((folder / "alias").c_str(), O_RDWR | O_CLOEXEC);
  struct sigaction giveUp {};
  struct sigaction before {};
  giveUp.sa_handler = [](int) { fcntl(leased, F_SETLEASE, F_UNLCK); };
  ASSERT_EQ(sigaction(SIGIO, &giveUp, &before), 0);
  const bool isLeased = fcntl(leased, F_SETLEASE, F_WRLCK) == 0;
  EXPECT_EQ(resolved(folder / "alias"), "/");
  sigaction(SIGIO, &before, nullptr);
  close(leased);
  if (!isLeased) GTEST_SKIP() << "no leases here";
}

// What a Mac recorded about its own volume.
AliasFile macAlias(std::optional<std::int64_t> up = {}, std::optional<std::int64_t> down = {}) {
  return {.pathComponents = {"Volumes", "CARD", "Cafe\u0301", "A.MXF"},
          .relativeDirsUp = up,
          .relativeDirsDown = down,
          .volumePath = "/Volumes/CARD",
          .volumeName = "CARD",
          .creationOptions = 1024};
}

TEST(AliasResolution, LooksForTheLongestEndOfThePathUpwards) {
  const TemporaryFolder folder;
  // The alias has its target's name, and yet it is not its own target.
  const auto alias = folder.file("copy/Project/A.MXF", macAlias().bytes());
  EXPECT_EQ(errorOf(resolved, alias), Errors::aliasTargetNotFound);
  // First ignoring case, one scalar for letter and accent; byte for byte wins over likeness. The last is no
  // UTF-8.
  for (const auto& [item, recorded] : {std::pair("\u03a3\u03a3.mov", "\u03c3\u03c2.Mov"),
                                       {"\u1112\u1161\u11ab\u1100\u1173.mov", "\ud55c\uadf8.mov"},
                                       {"f\xfcr.mov", "F\xfcR.mov"}}) {
    const auto written = folder.file(item);
    EXPECT_EQ(resolved(folder.file("copy/alike", AliasFile{.pathComponents = {recorded}}.bytes())), written);
  }
  for (const auto* target : {"a.mxf", "copy/cAF\u00C9/a.MXF", "A.MXF", "copy/Cafe\u0301/A.MXF",
                             "copy/CARD/Cafe\u0301/A.MXF", "copy/Project/Cafe\u0301/A.MXF"}) {
    const auto file = folder.file(target);
    EXPECT_EQ(resolved(alias), file);
  }
}

TEST(AliasResolution, TakesTheRecordedStepsBeforeAnythingElseButTheVolume) {
  const TemporaryFolder folder;
  folder.file("a/b/Cafe\u0301/A.MXF");
  const auto far = folder.file("a/Cafe\u0301/A.MXF");
  EXPECT_EQ(resolved(folder.file("a/b/alias", macAlias(2, 2).bytes())), far);
  for (const std::int64_t wrong : {std::int64_t{-1}, std::int64_t{1000}, INT64_MIN, INT64_MAX}) {
    const auto alias = folder.file("a/b/alias", macAlias(wrong, 2).bytes());
    EXPECT_EQ(errorOf(resolved, alias), Errors::aliasTargetNotFound);
  }
  auto recorded = macAlias(0, 2);
  recorded.componentsBelowHome = 1;
  const auto file = folder.file("A.MXF");
  const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
  setenv("HOME", folder.path().c_str(), 1);
  EXPECT_EQ(resolved(folder.file("a/b/alias", recorded.bytes())), file);
  setenv("HOME", home.c_str(), 1);
}

TEST(AliasResolution, FindsAVolumeThatIsMountedElsewhere) {
  const TemporaryFolder folder;
  runPrivately([&] {
    const auto byName = folder / "media/user/card";
    const auto byIdentifier = folder / "mnt/anything";
    const path file = "Cafe\u0301/A.MXF";
    for (const auto& point : {byName, byIdentifier}) {
      mountAt(folder.folder(point));
      folder.file(point / file);
    }
    auto recorded = macAlias(1, 1);
    const auto expectTarget = [&](const path& target) {
      EXPECT_EQ(resolved(folder.file("x/alias", recorded.bytes())), target);
    };
    expectTarget(byName / file);
    struct stat volume {};
    ASSERT_EQ(stat(byIdentifier.c_str(), &volume), 0);
    mountAt("/dev");
    folder.link("/dev/disk/by-uuid/0a81-f3b1", "../../sdx1");
    folder.link("/dev/disk/by-label/CARD\\x20\\xc3\\xa9\\x2", "../../sdx1");
    if (mknod("/dev/sdx1", S_IFBLK | 0600, volume.st_dev) != 0) endAsNotAllowed();
    recorded.volumeUUID = "0A81-F3B1";
    expectTarget(byIdentifier / file);
    recorded.volumeUUID.reset();
    recorded.volumeName = "card \u00C9\\x2";
    expectTarget(byIdentifier / file);
    createAliasForFilePath(byIdentifier / file, folder / "made");
    const auto made = AliasFile::fromBytes(contentOf(folder / "made")).value();
    EXPECT_EQ(made.volumeUUID, "0A81-F3B1");
    EXPECT_EQ(made.volumeName, "CARD \u00E9\\x2");
    recorded.volumeName = "CARD";

    // Mounted where it was, unless that is another volume now.
    const auto mountedAt = [&](const path& point) {
      recorded.volumePath = point.native();
      recorded.pathComponents = {std::next(point.begin()), point.end()};
      recorded.pathComponents.insert(recorded.pathComponents.end(), {"Cafe\u0301", "A.MXF"});
    };
    folder.file("x/A.MXF");
    mountedAt(byName);
    recorded.volumeUUID.reset();
    expectTarget(byName / file);
    mountedAt(byIdentifier);
    recorded.volumeUUID = "FFFF-FFFF";
    expectTarget(folder / "x/A.MXF");
    // Nor does it take a clip of that volume at the recorded place relative to the alias.
    const auto onOther = byIdentifier / "alias";
    for (const auto* name : {"Cafe\u0301/A.MXF", "CAFE\u0301/a.mxf"}) {
      std::filesystem::remove_all(byIdentifier / "Cafe\u0301");
      folder.file(byIdentifier / name);
      for (const auto steps : {std::optional<std::int64_t>(1), std::optional<std::int64_t>()}) {
        recorded.relativeDirsUp = steps;
        recorded.relativeDirsDown = steps ? steps.value() + 1 : steps;
        EXPECT_EQ(resolved(folder.file(onOther, recorded.bytes())), byName / file) << name;
      }
    }
    // An identifier in another form says nothing.
    recorded.volumeUUID = "0A81F3B1-51D9-3335-B3E3-169C3640360D";
    EXPECT_EQ(resolved(folder.file(onOther, recorded.bytes())), byIdentifier / "CAFE\u0301/a.mxf");
  });
}

// A look-up below an automounter's folder waits for its program, which does not answer here.
TEST(AliasResolution, WakesNoAutomounterThroughALink) {
  const TemporaryFolder folder;
  runPrivately([&] {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const auto options = "fd=" + std::to_string(ends[1]) + ",pgrp=1,minproto=5,maxproto=5,indirect";
    mountAt(folder.folder("auto"), "auto", "autofs", 0, options);
    const auto card = folder.link("x/card", "../auto");
    alarm(3);
    for (const auto& recorded : {card / "clip.mov", folder / "auto/clip.mov", card / "CLIP.MOV/y"}) {
      const AliasFile alias{.pathComponents = {std::next(recorded.begin()), recorded.end()}};
      EXPECT_EQ(errorOf(resolved, folder.file("alias", alias.bytes())), Errors::aliasTargetNotFound);
    }
  });
}

TEST(AliasResolution, ReportsWhatIsWrong) {
  const TemporaryFolder folder;
  const auto damaged = folder.file("damaged", macAlias().bytes().substr(0, 100));
  EXPECT_EQ(errorOf(resolved, damaged), Errors::malformedAliasFile);
  EXPECT_EQ(errorOf(resolved, folder / "missing"), std::errc::no_such_file_or_directory);
  for (const auto& other : {folder.file("plain"), folder.link("link", "damaged"), folder.path()})
    EXPECT_EQ(errorOf(resolved, other), Errors::notAnAliasFile);
  // A pipe is not read.
  const std::string mark("book\0\0\0\0mark\0\0\0\0", 16);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::fstream pipe(folder / "pipe");
  pipe.write(mark.data(), 16).flush();
  EXPECT_EQ(errorOf(resolved, folder / "pipe"), Errors::notAnAliasFile);
  std::string left(16, '\0');
  EXPECT_EQ(pipe.read(left.data(), 16) ? left : "", mark);
  // Names that almost fit, over and over: the search for every tail is given up.
  AliasFile endless{.pathComponents = std::vector<std::string>(500, "ABC")};
  endless.pathComponents.emplace_back("nope");
  std::string nested;
  for (int depth = 0; depth < 60; ++depth) nested += "abc/";
  EXPECT_EQ(errorOf(resolved, folder.file(nested + "alias", endless.bytes())), Errors::malformedAliasFile);
}

}  // namespace
}  // namespace quillonic
