#include <quillonic/filesystem.hpp>
#include <quillonic/support/coding.hpp>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "error_of.hpp"
#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using std::filesystem::path;

path followed(const path& link) {
  return deeplyDereferencedFilePath(link).value_or(path());
}

TEST(ReferenceLinkType, HasItsNumberAndText) {
  const auto text = [](auto one) {
    return std::string(loggingDescription(one)) + std::to_string(rawValue(one));
  };
  EXPECT_EQ(joined(allCases<ReferenceLinkType>(), ' ', text), "not a link0 symbolic link1 hard link2 alias3");
  EXPECT_EQ(joined(allCases<ReplicatedReferenceLinkResolution>(), ' ', text),
            "relinkToSource0 relinkToReplicatedSource1 copyOriginalSource2 copyOriginalLinkFile3");
  EXPECT_FALSE(fromRawValue<ReferenceLinkType>(4) || fromRawValue<ReplicatedReferenceLinkResolution>(-1));
  EXPECT_EQ(fromRawValue<MatchLevel>("Full"), std::nullopt);
  EXPECT_EQ(decode<MatchLevel>(encode(MatchLevel::partial)), MatchLevel::partial);
}

TEST(ReferenceLinks, AreTold) {
  const TemporaryFolder folder;
  const std::string foreign = "\xff\xfe name";
  const std::string aliasBegin("book\0\0\0\0mark\0\0\0\0", 16);
  folder.link(foreign + "\n", folder.file(foreign).filename());
  folder.link("soft", "plain");
  folder.link("dangling", "missing");
  folder.link("soft folder", ".");
  std::filesystem::create_hard_link(folder.file("twin"), folder / "other twin");
  createAliasForFilePath(folder.file("plain"), folder / "alias");
  std::filesystem::create_hard_link(folder / "alias", folder / "alias twin");
  // Begins like an alias file but cannot be resolved; its first bytes alone decide its kind.
  folder.file("damaged", aliasBegin);
  resize_file(folder.file("great", aliasBegin), AliasFile::greatestSize);
  resize_file(folder.file("too great", aliasBegin), AliasFile::greatestSize + 1);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);

  const std::vector<std::string> names[] = {{"plain", ".", "pipe", "too great", foreign},
                                            {"soft", "dangling", "soft folder//", foreign + "\n"},
                                            {"twin"},
                                            {"alias", "alias twin", "damaged", "great"}};
  for (const auto type : allCases<ReferenceLinkType>()) {
    for (const auto& name : names[rawValue(type)]) {
      EXPECT_EQ(filePathLinkType(folder / name), type) << name;
      EXPECT_EQ(filePathAppearsToBeNonHardReference(folder / name), rawValue(type) % 2 == 1) << name;
    }
  }
  for (const path& missing :
       {folder / "absent", folder / "plain/x", path(), path(std::string("/tmp\0x", 6))}) {
    EXPECT_FALSE(referenceLinkTypeOfItem(missing) || expandedAttributesOfItem(missing)) << missing;
    EXPECT_TRUE(errorOf(filePathLinkType, missing)) << missing;
  }
}

// Any text of a link in any folder has the target that the system finds.
TEST(ReferenceLinks, OfTheSymbolicKindHaveTheSystemsTarget) {
  const TemporaryFolder folder;
  for (const auto* name : {"a/file", "a/b/file", "a/b/c/file", "far/file", "far/inner/file"})
    folder.file(name);
  folder.link("a/b/away", folder / "far/inner");
  const char* const places[] = {"", "a/b/", "a/b/c/", "a/b/away/"};
  const char* const pieces[] = {"..", "../b", "away", "inner/..", ".", "", "a", "c", "file", "file/.."};
  std::mt19937 random(6);
  int leading = 0;
  int refused = 0;
  for (int round = 0; round < 3000; ++round) {
    const bool isRelative = random() % 2 == 0;
    auto text = isRelative ? std::string(".") : (folder / "a/b").native();
    for (auto n = random() % 5; n > 0; --n) text.append("/").append(pieces[random() % std::size(pieces)]);
    const auto link = folder / places[random() % std::size(places)] / "link";
    std::filesystem::remove(link);
    std::filesystem::create_symlink(text, link);
    ASSERT_EQ(symbolicLinkIsRelative(link), isRelative);
    // Where the system finds nothing, there is no target; where it cannot tell which place is meant, its
    // error is passed on.
    struct stat item {};
    if (stat(link.c_str(), &item) != 0) {
      const std::error_code error(errno, std::generic_category());
      ASSERT_EQ(deeplyDereferencedFilePath(link), std::nullopt) << text;
      const auto told = errorOf(standardizedDestinationOfSymbolicLink, link);
      ASSERT_TRUE(!told || told == error.default_error_condition()) << text << told.message();
      refused += told ? 1 : 0;
      continue;
    }
    ++leading;
    const auto target = standardizedDestinationOfSymbolicLink(link);
    ASSERT_TRUE(std::filesystem::equivalent(target, link)) << link << " " << text << " " << target;
    // One item has one spelling: its folders are not links.
    ASSERT_EQ(target.parent_path(), canonical(target.parent_path())) << text;
    ASSERT_EQ(dereferencedFilePathURL(ReferenceLinkType::softSymbolicReference, link), target);
    ASSERT_EQ(followed(link), std::filesystem::is_symlink(target) ? followed(target) : target) << text;
    ASSERT_FALSE(std::filesystem::is_symlink(followed(link)));
  }
  EXPECT_GT(leading, 300);
  EXPECT_GT(refused, 300);

  // A place without an item has a name, and a link to a link is only one step.
  const auto dangling = folder.link("dangling", "missing/./x/");
  EXPECT_EQ(standardizedDestinationOfSymbolicLink(dangling), folder / "missing/x");
  EXPECT_EQ(deeplyDereferencedFilePath(dangling), std::nullopt);
  const auto soft = ReferenceLinkType::softSymbolicReference;
  EXPECT_EQ(errorOf(deeplyDereferencedFilePathURL, soft, dangling), std::errc::no_such_file_or_directory);
  folder.link("second", "first");
  const auto first = folder.link("first", "a/file");
  std::filesystem::current_path(folder.path());
  EXPECT_EQ(standardizedDestinationOfSymbolicLink("second"), first);
  EXPECT_EQ(followed("second"), followed("a/b/../file"));
  std::filesystem::current_path("/");
  EXPECT_EQ(errorOf(standardizedDestinationOfSymbolicLink, folder / "a/file"), std::errc::invalid_argument);
  EXPECT_EQ(errorOf(symbolicLinkIsRelative, folder / "absent"), std::errc::no_such_file_or_directory);
}

TEST(ReferenceLinks, FromAFolderThatWasRemovedFail) {
  runPrivately([&] {
    std::filesystem::current_path(TemporaryFolder().path());
    EXPECT_EQ(errorOf(createAliasForFilePath, "item", "alias"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(errorOf(dereferencedFilePathURL, ReferenceLinkType::notAReferenceLink, "item"),
              std::errc::no_such_file_or_directory);
  });
}

TEST(ReferenceLinks, AreFollowedFor40Steps) {
  const TemporaryFolder folder;
  folder.link("self", "self");
  folder.link("one", "two");
  folder.link("two", "one");
  folder.link("below", "below/x");
  folder.file("link 0");
  for (int i = 1; i <= 41; ++i) {
    const auto target = folder / ("link " + std::to_string(i - 1));
    const auto link = "link " + std::to_string(i);
    i % 3 == 0 ? createAliasForFilePath(target, folder / link) : void(folder.link(link, target));
    folder.link("ring " + std::to_string(i - 1), "ring " + std::to_string(i % 41));
  }
  EXPECT_EQ(followed(folder / "link 40"), folder / "link 0");
  for (const auto* loop : {"self", "one", "below", "link 41", "ring 7"}) {
    EXPECT_EQ(errorOf(followed, folder / loop), std::errc::too_many_symbolic_link_levels) << loop;
  }
}

TEST(ReferenceLinks, IntoAClosedFolderFail) {
  const TemporaryFolder folder;
  const auto closed = folder.file("closed/file").parent_path();
  const auto link = folder.link("link", "closed/file");
  const auto second = folder.link("second", "link");
  const auto alias = folder / "alias";
  createAliasForFilePath(closed / "file", alias);
  const auto secret = folder.file("secret", std::string(100, 'x'));
  for (const auto& item : {closed, secret}) permissions(item, std::filesystem::perms::none);
  permissions(folder.path(), std::filesystem::perms::all);
  runPrivately([&] {
    becomeNobody();
    const RecordedLog log;
    for (const auto& into : {second, alias})
      EXPECT_EQ(errorOf(followed, into), std::errc::permission_denied) << into;
    EXPECT_EQ(standardizedDestinationOfSymbolicLink(link), closed / "file");
    EXPECT_EQ(expandedAttributesOfItem(closed / "file"), std::nullopt);
    EXPECT_EQ(expandedAttributesOfItem(link)->value<path>(Key::referencedFileSystemURL), closed / "file");
    // An item that may not be opened may be an alias or not: its kind is unknown, the rest is known.
    EXPECT_EQ(referenceLinkTypeOfItem(secret), std::nullopt);
    EXPECT_EQ(expandedAttributesOfItem(secret)->find(Key::referenceLinkType), nullptr);
    EXPECT_EQ(expandedAttributesOfItem(secret)->value<int>(Key::NSFileSize), 100);
    int pairs = 0;
    const auto count = [&](const path&, const path&, bool&) { ++pairs; };
    EXPECT_FALSE(enumerateLinkFileDereferencePairs(folder.path(), count));
    EXPECT_EQ(pairs, 2);
    // The system's message, in the language of the process.
    const auto denied = " with error " + std::generic_category().message(EACCES);
    EXPECT_THAT(log.lines(), testing::Contains("warning: RLTOI-Failed to discover the link type of file '" +
                                               secret.native() + "'" + denied));
    EXPECT_EQ(log.lines().back(), "warning: ELFDP-Failed to read folder: " + closed.native() + denied);
  });
  permissions(closed, std::filesystem::perms::all);
}

TEST(ExpandedAttributes, AreThoseOfTheSystem) {
  const TemporaryFolder folder;
  const auto file = folder.file("clip.mov");
  ASSERT_EQ(chmod(file.c_str(), 04640), 0);
  const std::array<timespec, 2> times{timespec{1, 2}, timespec{-3, 999999999}};
  ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
  struct stat expected {};
  ASSERT_EQ(stat(file.c_str(), &expected), 0);
  auto attributes = *expandedAttributesOfItem(file);
  if (const auto created = attributes.value<Date>(Key::NSFileCreationDate)) {
    EXPECT_LT(std::chrono::abs(std::chrono::system_clock::now() - *created), std::chrono::hours(1));
    attributes.remove(Key::NSFileCreationDate);
  }
  EXPECT_TRUE(attributes ==
              (FileAttributes{{Key::NSFileSize, 7},
                              {Key::NSFilePosixPermissions, 04640},
                              {Key::NSFileOwnerAccountID, expected.st_uid},
                              {Key::NSFileGroupOwnerAccountID, expected.st_gid},
                              {Key::NSFileReferenceCount, 1},
                              {Key::NSFileSystemNumber, expected.st_dev},
                              {Key::NSFileSystemFileNumber, expected.st_ino},
                              {Key::NSFileModificationDate, Date(std::chrono::nanoseconds(-2000000001))},
                              {Key::NSFileType, FileType::regular},
                              {Key::fileResourceType, FileType::regular},
                              {Key::filePathName, "clip.mov"},
                              {Key::isDirectoryPath, false},
                              {Key::isLinkFilePath, false},
                              {Key::referenceLinkType, ReferenceLinkType::notAReferenceLink}}));
  EXPECT_EQ(expandedAttributesOfItem("/proc/self/stat")->find(Key::NSFileCreationDate), nullptr);
  EXPECT_EQ(expandedAttributesOfItem("/")->value<std::string>(Key::filePathName), "/");
}

TEST(ExpandedAttributes, TellWhereALinkLeads) {
  const TemporaryFolder folder;
  const auto file = folder.file("clip.mov");
  const auto alias = folder / "alias";
  createAliasForFilePath(file, alias);
  const auto relative = folder.link("relative", "clip.mov");
  const auto absolute = folder.link("absolute", file);
  const RecordedLog log;
  const auto expectDetails = [](const path& link, std::optional<bool> isRelative,
                                std::optional<path> target) {
    const auto attributes = *expandedAttributesOfItem(link);
    EXPECT_EQ(attributes.value<bool>(Key::isLinkFilePath), true) << link;
    EXPECT_EQ(attributes.value<bool>(Key::isRelativeSymbolicReference), isRelative) << link;
    EXPECT_EQ(attributes.value<path>(Key::referencedFileSystemURL), target) << link;
  };
  expectDetails(alias, std::nullopt, file);
  expectDetails(relative, true, file);
  expectDetails(absolute, false, file);
  EXPECT_EQ(log.text(), "");
  std::filesystem::remove(file);
  expectDetails(relative, true, file);
  expectDetails(alias, std::nullopt, std::nullopt);
  EXPECT_EQ(log.text(),
            "warning: Could not find resolved path for symbolic source node\n"
            "debug: QLC_LT_LMT-The symbolic source node is " +
                relative.native() + "\nwarning: Failed to resolve alias for file '" + alias.native() +
                "' with error alias target not found\n");
}

// Aliases and links found exactly, by likeness, through links and not at all.
TEST(ExpandedAttributesReader, TellsWhatSingleLooksTellAndListsFoldersOnce) {
  const TemporaryFolder folder;
  folder.file("card/A.MXF");
  folder.link("linked", "card");
  folder.link("loop", "loop");
  ExpandedAttributesReader other;
  auto reader = std::move(other);
  const RecordedLog log;
  std::size_t count = 0;
  const auto add = [&](const auto& in, const path& above, const path& name) {
    const auto item = in + std::to_string(++count);
    const AliasFile alias{.pathComponents = {"Volumes", above, name}};
    return count % 2 == 0 ? folder.link(item, above / name) : folder.file(item, alias.bytes());
  };
  constexpr std::array names{"card", "CARD", "A.MXF", "a.MXF", "linked", "loop", "gone"};
  std::size_t foundCount = 0;
  for (const std::string in : {"", "card/", "linked/", "a b/card/"}) {
    for (std::size_t i = 0; i < 98; ++i) {
      const auto item = add(in, names[i / 2 % 7], names[i / 14]);
      const auto expected = expandedAttributesOfItem(item);
      EXPECT_EQ(reader.attributesOfItem(item), expected) << item;
      if (expected->contains(Key::referencedFileSystemURL)) ++foundCount;
    }
  }
  EXPECT_TRUE(foundCount > count / 4 && log.lines().size() > count / 4);
  // The system follows 40 links in one path, whichever part of it was followed before.
  for (int i = 1; i <= 50; ++i)
    folder.link("chain" + std::to_string(i), i == 1 ? "card" : "chain" + std::to_string(i - 1));
  for (const int i : {42, 50, 20, 41, 40, 41}) {
    const auto item = folder / "a b/chained";
    folder.file(item, AliasFile{.pathComponents = {"chain" + std::to_string(i), "A.MXF"}}.bytes());
    EXPECT_EQ(reader.attributesOfItem(item)->contains(Key::referencedFileSystemURL), i <= 40) << i;
  }
  // A folder that is listed anew shows what is new in it.
  const auto late = add("", "gone", "late.MOV");
  folder.file("Late.mov");
  EXPECT_FALSE(reader.attributesOfItem(late)->contains(Key::referencedFileSystemURL));
  EXPECT_TRUE(other.attributesOfItem(late)->contains(Key::referencedFileSystemURL));
}

// Access times in the far past, which reading would change.
TEST(LinksOnACard, AreReadWithoutATrace) {
  const TemporaryFolder folder;
  createAliasForFilePath(folder.file("card/clips/clip.mov", std::string(100, 'x')), folder / "card/alias");
  const path items[] = {folder / "card", folder / "card/clips", folder / "card/clips/clip.mov",
                        folder / "card/alias"};
  const auto read = [&] {
    for (const auto& item : items) {
      const std::array<timespec, 2> times{timespec{1, 0}, timespec{2, 0}};
      ASSERT_EQ(utimensat(AT_FDCWD, item.c_str(), times.data(), 0), 0);
    }
    for (const auto& item : items) EXPECT_TRUE(expandedAttributesOfItem(item));
    EXPECT_TRUE(enumerateLinkFileDereferencePairs(items[0], [](const path&, const path&, bool&) {}));
    EXPECT_EQ(followed(items[3]), items[2]);
    for (const auto& item : items) {
      struct stat status {};
      EXPECT_TRUE(stat(item.c_str(), &status) == 0 && status.st_atim.tv_sec == 1) << item;
    }
  };
  read();
  runPrivately([&] {
    for (const auto& item : items) {
      if (chown(item.c_str(), 65534, 65534) != 0) endAsNotAllowed();
    }
    permissions(folder.path(), std::filesystem::perms::all);
    becomeNobody();
    read();
  });
}

TEST(LinkFileDereferencePairs, AreFoundBelowAFolderAndNotBehindLinks) {
  const TemporaryFolder folder;
  folder.link("outside/never seen", "nothing");
  folder.file("tree/b/file");
  folder.link("tree/z to folder", folder / "outside");
  folder.link("tree/b/up", "../b/file");
  folder.link("tree/b/c/loop", "../../b");
  createAliasForFilePath(folder / "tree/b/file", folder / "tree/b/c/alias");
  folder.link("tree/a dangling one", "../b/file");
  folder.file("tree/lost alias", AliasFile{.pathComponents = {"quillonic nowhere"}}.bytes());
  folder.link("entry", "tree");

  const RecordedLog log;
  const auto pairsIn = [&](const path& root, std::size_t most) {
    std::string pairs;
    enumerateLinkFileDereferencePairs(root, [&](const path& link, const path& target, bool& stop) {
      pairs += link.lexically_relative(root).native() + ": " +
               target.lexically_relative(folder.path()).native() + "\n";
      stop = --most == 0;
    });
    return pairs;
  };
  const std::string first = "a dangling one: b/file\nz to folder: outside\nb/up: tree/b/file\n";
  for (const auto* root : {"tree", "entry"}) {
    EXPECT_EQ(pairsIn(folder / root, 100), first + "b/c/alias: tree/b/file\nb/c/loop: tree/b\n");
  }
  EXPECT_EQ(log.lines().size(), 2U);
  for (const auto& link : {folder / "entry/b/up", folder / "entry/b/c/loop", folder / "entry/b/c/alias"}) {
    const auto target = dereferencedFilePathURL(filePathLinkType(link), link);
    EXPECT_TRUE(target.native().starts_with((folder / "tree/b").native())) << link;
    EXPECT_EQ(expandedAttributesOfItem(link)->value<path>(Key::referencedFileSystemURL), target);
  }
  EXPECT_EQ(pairsIn(folder / "tree", 3), first);
  EXPECT_EQ(pairsIn(folder / "missing", 1), "");
}

// A tree deeper than any path: two folders and a link in each.
TEST(LinkFileDereferencePairs, AreFoundAtAnyDepth) {
  const TemporaryFolder folder;
  constexpr int depth = 100;
  const std::string name(100, 'n');
  int place = open(folder.path().c_str(), O_PATH | O_CLOEXEC);
  for (int level = 0; level < depth; ++level) {
    ASSERT_EQ(mkdirat(place, "z", 0755) + mkdirat(place, name.c_str(), 0755), 0);
    ASSERT_EQ(symlinkat("target", place, "z/link"), 0);
    const int below = openat(place, name.c_str(), O_PATH | O_CLOEXEC);
    close(std::exchange(place, below));
  }
  close(place);
  int found = 0;
  const auto count = [&](const path&, const path& target, bool&) {
    ++found;
    EXPECT_TRUE(target.native().ends_with("/z/target"));
  };
  EXPECT_TRUE(enumerateLinkFileDereferencePairs(folder.path(), count));
  EXPECT_EQ(found, depth);
  EXPECT_TRUE(enumerateLinkFileDereferencePairs(folder.path(), count, [] { return true; }));
  EXPECT_EQ(found, depth);
}

// A link in its own folder is told, and none that has to be searched for from it.
TEST(LinkFileDereferencePairs, AreNotThoseOfAFolderThatIsSwappedIn) {
  const TemporaryFolder folder;
  folder.link("outside/b/secret", "target");
  folder.link("outside/b/c", "/");
  folder.link("tree/a/b/inner", "target");
  folder.link("tree/a/b/searched", "c/target");
  folder.file("outside/b/file");
  folder.file("tree/a/b/alias", AliasFile{.pathComponents = {"file"}}.bytes());
  folder.link("tree/a/first", "target");
  std::string pairs;
  const auto swap = [&](const path& link, const path& target, bool&) {
    pairs += link.filename().native() + ": " + target.native() + "\n";
    if (link.filename() != "first") return;
    rename(folder / "tree/a", folder / "moved");
    folder.link("tree/a", folder / "outside");
  };
  EXPECT_FALSE(enumerateLinkFileDereferencePairs(folder / "tree", swap));
  const auto a = (folder / "tree/a/").native();
  EXPECT_EQ(pairs, "first: " + a + "target\ninner: " + a + "b/target\n");
}

// The answers are what happens when links are made.
TEST(LinkSupport, IsWhatTheVolumeHolds) {
  const TemporaryFolder folder;
  const auto expectTruth = [&](const path& place) {
    const auto file = folder.file(place / "file");
    std::error_code soft;
    std::error_code hard;
    std::filesystem::create_symlink(file, place / "soft", soft);
    std::filesystem::create_hard_link(file, place / "hard", hard);
    EXPECT_EQ(fileSystemSupportsSymbolicLinks(place), !soft) << place;
    EXPECT_EQ(fileSystemSupportsHardLinks(file), !hard) << place;
  };
  expectTruth(folder.path());
  // A link counts for the volume that holds it; a missing item for the volume where it will be created.
  const auto toProc = folder.link("to proc", "/proc");
  for (const auto& here : {toProc, folder / "new", folder / "new/folder//x", folder.link("dangling", "new")})
    EXPECT_TRUE(fileSystemSupportsHardLinks(here)) << here;
  for (const auto& there : {path("/proc"), toProc / "new/x"})
    EXPECT_FALSE(fileSystemSupportsHardLinks(there));
  std::filesystem::current_path(toProc);
  EXPECT_FALSE(fileSystemSupportsSymbolicLinks("new"));
  std::filesystem::current_path("/");
  for (const path& nowhere :
       {folder / "file/x", folder / "new/../x", folder / "dangling/x", path(), path(std::string("/\0", 2))}) {
    EXPECT_TRUE(errorOf(fileSystemSupportsSymbolicLinks, nowhere)) << nowhere;
  }

  runPrivately([&] {
    // A name in a folder of mount points is that of a pulled volume, unless the folder is a volume itself.
    const bool isMounted =
        FileManager().getUniqueDrives(std::array{path("/mnt")}) == std::vector<std::string>{"/mnt"};
    const path missing[] = {"/mnt/quillonic", "/mnt/quillonic/clips/clip.mov"};
    for (const auto& item : missing) {
      EXPECT_EQ(errorOf(fileSystemSupportsHardLinks, item) == std::errc::no_such_file_or_directory,
                !isMounted);
    }
    mountAt("/mnt");
    for (const auto& item : missing) EXPECT_TRUE(fileSystemSupportsHardLinks(item));

    mountAt("/run");
    std::filesystem::create_directory("/run/media");
    EXPECT_TRUE(errorOf(fileSystemSupportsHardLinks, "/run/media/user/CARD/clip.mov"));
    EXPECT_TRUE(fileSystemSupportsHardLinks("/run/new/clip.mov"));

    int mounted = 0;
    for (const std::string kind : {"tmpfs", "ramfs", "overlay", "vfat", "exfat"}) {
      const auto place = folder.folder(kind);
      const auto layers = kind == "overlay" ? overlayOptions(folder.folder("lower"), folder.path()) : "";
      if (mount(kind.c_str(), place.c_str(), kind.c_str(), 0, layers.c_str()) != 0) continue;
      ++mounted;
      expectTruth(place);
    }
    if (mounted == 0) endAsNotAllowed();
  });
}

TEST(ReferenceLinks, DoNotCountTheShortNamesOfNtfs) {
  const TemporaryFolder folder;
  const auto image = folder.file("image").native();
  const auto volume = folder.folder("volume");
  std::filesystem::resize_file(image, 20 << 20);
  runPrivately([&] {
    const auto make =
        "mkntfs -F -q " + image + " >/dev/null 2>&1 && ntfs-3g " + image + " " + volume.native();
    if (std::system(make.c_str()) != 0) endAsNotAllowed();
    const auto clip = folder.file("volume/long name.mov");
    ASSERT_EQ(setxattr(clip.c_str(), "system.ntfs_dos_name", "LONGNA~1.MOV", 12, 0), 0);
    EXPECT_EQ(filePathLinkType(clip), ReferenceLinkType::notAReferenceLink);
    EXPECT_EQ(expandedAttributesOfItem(clip)->value<int>(Key::NSFileReferenceCount), 1);
    std::filesystem::create_hard_link(clip, volume / "twin");
    EXPECT_EQ(filePathLinkType(clip), ReferenceLinkType::hardSymbolicReference);
    umount2(volume.c_str(), MNT_DETACH);
  });
}

}  // namespace
}  // namespace quillonic
