#include <quillonic/filesystem.hpp>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using std::filesystem::create_directories;
using std::filesystem::create_symlink;
using std::filesystem::path;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;
using testing::UnorderedElementsAre;

template <class Operation> std::error_code errorOf(Operation operation) {
  try {
    static_cast<void>(operation());
  } catch (const std::system_error& error) {
    return error.code();
  }
  return {};
}

void write(const path& file, std::string_view bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

AliasFile aliasIn(const path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  return AliasFile::fromBytes(bytes).value();
}

std::vector<std::string> namesOf(const path& absolute) {
  return {std::next(absolute.begin()), absolute.end()};
}

TEST(ReferenceLinkType, HasItsNumberAndText) {
  std::vector<std::pair<std::int64_t, std::string>> rows;
  for (const auto type : allCases<ReferenceLinkType>())
    rows.emplace_back(rawValue(type), loggingDescription(type));
  EXPECT_THAT(rows, ElementsAre(Pair(0, "not a link"), Pair(1, "symbolic link"), Pair(2, "hard link"),
                                Pair(3, "alias")));
  rows.clear();
  for (const auto choice : allCases<ReplicatedReferenceLinkResolution>()) {
    rows.emplace_back(rawValue(choice), loggingDescription(choice));
  }
  EXPECT_THAT(rows, ElementsAre(Pair(0, "relinkToSource"), Pair(1, "relinkToReplicatedSource"),
                                Pair(2, "copyOriginalSource"), Pair(3, "copyOriginalLinkFile")));
  EXPECT_EQ(fromRawValue<ReferenceLinkType>(3), ReferenceLinkType::aliasReference);
  for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{4}, INT64_MIN, INT64_MAX}) {
    EXPECT_EQ(fromRawValue<ReplicatedReferenceLinkResolution>(number), std::nullopt);
  }
}

TEST(ReferenceLinks, AreTold) {
  const TemporaryFolder folder;
  const auto plain = folder.file("plain");
  std::filesystem::create_hard_link(folder.file("twin"), folder / "other twin");
  create_symlink("plain", folder / "soft");
  create_symlink("missing", folder / "dangling");
  create_symlink(".", folder / "soft folder");
  createAliasForFilePath(plain, folder / "alias");
  std::filesystem::create_hard_link(folder / "alias", folder / "alias twin");
  // Begins like an alias file and is none that could be resolved, but what it is is told by how it begins.
  write(folder / "damaged", std::string("book\0\0\0\0mark\0\0\0\0", 16) + std::string(100, 'x'));
  write(folder / "too great",
        std::string("book\0\0\0\0mark\0\0\0\0", 16) + std::string(AliasFile::greatestSize, 'x'));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const std::string foreign = "\xff\xfe name";
  create_symlink(folder.file(foreign).filename(), folder / (foreign + "\n"));

  using enum ReferenceLinkType;
  const std::pair<path, ReferenceLinkType> rows[] = {{"plain", notAReferenceLink},
                                                     {".", notAReferenceLink},
                                                     {"pipe", notAReferenceLink},
                                                     {"twin", hardSymbolicReference},
                                                     {"soft", softSymbolicReference},
                                                     {"dangling", softSymbolicReference},
                                                     {"soft folder", softSymbolicReference},
                                                     {"soft folder//", softSymbolicReference},
                                                     {"alias", aliasReference},
                                                     {"alias twin", aliasReference},
                                                     {"damaged", aliasReference},
                                                     {"too great", notAReferenceLink},
                                                     {foreign, notAReferenceLink},
                                                     {foreign + "\n", softSymbolicReference}};
  for (const auto& [name, type] : rows) {
    EXPECT_EQ(filePathLinkType(folder / name), type) << name;
    EXPECT_EQ(referenceLinkTypeOfItem(folder / name), type) << name;
    EXPECT_EQ(filePathAppearsToBeNonHardReference(folder / name),
              type == softSymbolicReference || type == aliasReference);
  }
  for (const path& missing :
       {folder / "absent", folder / "plain/x", path(), path(std::string("/tmp\0x", 6))}) {
    EXPECT_EQ(referenceLinkTypeOfItem(missing), std::nullopt) << missing;
    EXPECT_EQ(expandedAttributesOfItem(missing), std::nullopt) << missing;
    EXPECT_TRUE(errorOf([&] { return filePathLinkType(missing); })) << missing;
  }
  EXPECT_EQ(errorOf([&] { return filePathLinkType(folder / "absent"); }),
            std::errc::no_such_file_or_directory);
}

TEST(ReferenceLinks, OfTheSymbolicKindLeadWhereTheSystemGoes) {
  const TemporaryFolder folder;
  const auto deep = folder.folder("a/b/c");
  const auto far = folder.folder("far/inner");
  for (const auto* name : {"a/file", "a/b/file", "far/file", "far/inner/file"}) folder.file(name);
  create_symlink(far, folder / "a/b/away");
  struct Row {
    path link;
    std::string text;
  };
  const Row rows[] = {
      {"a/b/c/1", "../file"},
      {"a/b/c/2", ".././../file"},
      {"a/b/c/3", folder / "far/file"},
      {"a/b/c/4", "../away/file"},
      {"a/b/c/5", "../away/../file"},
      {"a/b/away/6", "../file"},
      {"a/b/away/7", "file"},
      {"a/b/8", "c//..//file"},
      {"9", "a/b/away/.././file"},
      {"10", "../../../../../../"},
      {"11", folder.path().native() + "/a/b/away/../../a/file"},
      {"12", "a/b/c/"},
  };
  for (const auto& [link, text] : rows) {
    create_symlink(text, folder / link);
    const auto target = standardizedDestinationOfSymbolicLink(folder / link);
    EXPECT_TRUE(std::filesystem::equivalent(target, folder / link)) << link << " " << target;
    EXPECT_EQ(target, target.lexically_normal());
    EXPECT_NE(target, folder / link);
    EXPECT_EQ(symbolicLinkIsRelative(folder / link), text.front() != '/');
    EXPECT_EQ(deeplyDereferencedFilePath(folder / link), target);
    EXPECT_EQ(dereferencedFilePathURL(ReferenceLinkType::softSymbolicReference, folder / link), target);
  }
  // The text decides where nothing is there, and a link to a link is one step only.
  create_symlink("nowhere/../missing/./x", folder / "dangling");
  EXPECT_EQ(standardizedDestinationOfSymbolicLink(folder / "dangling"), folder / "missing/x");
  EXPECT_EQ(deeplyDereferencedFilePath(folder / "dangling"), std::nullopt);
  EXPECT_EQ(errorOf([&] {
              return deeplyDereferencedFilePathURL(ReferenceLinkType::softSymbolicReference,
                                                   folder / "dangling");
            }),
            std::errc::no_such_file_or_directory);
  create_symlink("1", deep / "second");
  EXPECT_EQ(standardizedDestinationOfSymbolicLink(deep / "second"), deep / "1");
  EXPECT_EQ(deeplyDereferencedFilePath(deep / "second"), folder / "a/b/file");

  std::filesystem::current_path(deep);
  EXPECT_EQ(standardizedDestinationOfSymbolicLink("1"), folder / "a/b/file");
  EXPECT_EQ(deeplyDereferencedFilePath("../file"), folder / "a/b/file");
  std::filesystem::current_path("/");

  const auto noLink = errorOf([&] { return standardizedDestinationOfSymbolicLink(folder / "a/file"); });
  EXPECT_EQ(noLink, std::errc::invalid_argument);
  EXPECT_EQ(errorOf([&] { return symbolicLinkIsRelative(folder / "absent"); }),
            std::errc::no_such_file_or_directory);
}

TEST(ReferenceLinks, AreFollowedFor40Steps) {
  const TemporaryFolder folder;
  create_symlink("self", folder / "self");
  create_symlink("two", folder / "one");
  create_symlink("one", folder / "two");
  create_symlink("below/x", folder / "below");
  folder.file("link 0");
  for (int i = 1; i <= 41; ++i) {
    const auto target = folder / ("link " + std::to_string(i - 1));
    const auto link = folder / ("link " + std::to_string(i));
    i % 3 == 0 ? createAliasForFilePath(target, link) : create_symlink(target.filename(), link);
  }
  for (int i = 1; i <= 41; ++i)
    create_symlink("ring " + std::to_string(i % 41), folder / ("ring " + std::to_string(i - 1)));

  EXPECT_EQ(deeplyDereferencedFilePath(folder / "link 40"), folder / "link 0");
  for (const auto* loop : {"self", "one", "below", "link 41", "ring 7"}) {
    EXPECT_EQ(errorOf([&] { return deeplyDereferencedFilePath(folder / loop); }),
              std::errc::too_many_symbolic_link_levels)
        << loop;
  }
}

TEST(ReferenceLinks, IntoAClosedFolderFail) {
  const TemporaryFolder folder;
  const auto closed = folder.folder("closed");
  folder.file("closed/file");
  create_symlink("closed/file", folder / "link");
  write(folder / "secret", std::string(100, 'x'));
  create_symlink("link", folder / "second");
  for (const auto& item : {closed, folder / "secret"}) {
    std::filesystem::permissions(item, std::filesystem::perms::none);
  }
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  const auto result = runPrivately([&] {
    if (setgid(65534) != 0 || setuid(65534) != 0) _exit(privateRunNotAllowed);
    const RecordedLog log;
    EXPECT_EQ(errorOf([&] { return deeplyDereferencedFilePath(folder / "second"); }),
              std::errc::permission_denied);
    EXPECT_EQ(standardizedDestinationOfSymbolicLink(folder / "link"), closed / "file");
    EXPECT_EQ(expandedAttributesOfItem(closed / "file"), std::nullopt);
    EXPECT_EQ(expandedAttributesOfItem(folder / "link")->value<path>(Key::referencedFileSystemURL),
              closed / "file");
    // What may not be opened may be an alias or not: its kind is not told, the rest is.
    EXPECT_EQ(referenceLinkTypeOfItem(folder / "secret"), std::nullopt);
    EXPECT_EQ(expandedAttributesOfItem(folder / "secret")->find(Key::referenceLinkType), nullptr);
    EXPECT_EQ(expandedAttributesOfItem(folder / "secret")->value<int>(Key::NSFileSize), 100);
    int pairs = 0;
    enumerateLinkFileDereferencePairs(folder.path(), [&](const path&, const path&, bool&) { ++pairs; });
    EXPECT_EQ(pairs, 2);
    EXPECT_EQ(log.lines().back(), "warning: ELFDP-Failed to read folder: " + closed.native());
  });
  if (result == PrivateRun::notAllowed) GTEST_SKIP() << "needs a user other than root";
  EXPECT_EQ(result, PrivateRun::passed);
  std::filesystem::permissions(closed, std::filesystem::perms::all);
}

TEST(ExpandedAttributes, AreThoseOfTheSystem) {
  const TemporaryFolder folder;
  const auto file = folder.file("clip.mov");
  ASSERT_EQ(chmod(file.c_str(), 04640), 0);
  const std::array<timespec, 2> times{timespec{1, 2}, timespec{-3, 999999999}};
  ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
  struct stat expected {};
  ASSERT_EQ(stat(file.c_str(), &expected), 0);
  const auto attributes = *expandedAttributesOfItem(file);
  const std::pair<Key, AnyValue> rows[] = {
      {Key::NSFileSize, 7},
      {Key::NSFilePosixPermissions, 04640},
      {Key::NSFileOwnerAccountID, expected.st_uid},
      {Key::NSFileGroupOwnerAccountID, expected.st_gid},
      {Key::NSFileReferenceCount, 1},
      {Key::NSFileSystemNumber, expected.st_dev},
      {Key::NSFileSystemFileNumber, expected.st_ino},
      {Key::NSFileModificationDate, AnyValue::Date(std::chrono::nanoseconds(-2000000001))},
      {Key::NSFileType, FileType::regular},
      {Key::fileResourceType, FileType::regular},
      {Key::filePathName, "clip.mov"},
      {Key::isDirectoryPath, false},
      {Key::isLinkFilePath, false},
      {Key::referenceLinkType, ReferenceLinkType::notAReferenceLink},
  };
  for (const auto& [key, value] : rows) {
    ASSERT_TRUE(attributes.contains(key)) << key.rawValue();
    EXPECT_TRUE(*attributes.find(key) == value)
        << key.rawValue() << " " << attributes.find(key)->description();
  }
  EXPECT_EQ(attributes.size(), std::size(rows) + attributes.contains(Key::NSFileCreationDate));
  if (const auto created = attributes.value<AnyValue::Date>(Key::NSFileCreationDate)) {
    const auto age = std::chrono::system_clock::now() - *created;
    EXPECT_LT(std::chrono::abs(age), std::chrono::hours(1));
  }
  EXPECT_EQ(expandedAttributesOfItem("/proc/self/stat")->find(Key::NSFileCreationDate), nullptr);
  const auto root = *expandedAttributesOfItem("/");
  EXPECT_EQ(root.value<std::string>(Key::filePathName), "/");
  EXPECT_EQ(root.value<FileType>(Key::NSFileType), FileType::directory);
  EXPECT_EQ(root.value<bool>(Key::isDirectoryPath), true);
}

TEST(ExpandedAttributes, TellWhereALinkLeads) {
  const TemporaryFolder folder;
  const auto file = folder.file("clip.mov");
  create_symlink("clip.mov", folder / "relative");
  create_symlink(file, folder / "absolute");
  createAliasForFilePath(file, folder / "alias");
  const RecordedLog log;
  for (const auto* name : {"relative", "absolute", "alias"}) {
    const auto attributes = *expandedAttributesOfItem(folder / name);
    const bool isAlias = name == std::string("alias");
    EXPECT_EQ(attributes.value<path>(Key::referencedFileSystemURL), file) << name;
    EXPECT_EQ(attributes.value<bool>(Key::isLinkFilePath), true);
    EXPECT_EQ(attributes.value<bool>(Key::isRelativeSymbolicReference),
              isAlias ? std::nullopt : std::optional(name == std::string("relative")));
    EXPECT_EQ(attributes.value<FileType>(Key::NSFileType),
              isAlias ? FileType::regular : FileType::symbolicLink);
  }
  EXPECT_THAT(log.lines(), IsEmpty());

  std::filesystem::remove(file);
  EXPECT_EQ(expandedAttributesOfItem(folder / "relative")->value<path>(Key::referencedFileSystemURL), file);
  const auto alias = *expandedAttributesOfItem(folder / "alias");
  EXPECT_EQ(alias.find(Key::referencedFileSystemURL), nullptr);
  EXPECT_EQ(alias.value<ReferenceLinkType>(Key::referenceLinkType), ReferenceLinkType::aliasReference);
  ASSERT_EQ(log.lines().size(), 2U);
  EXPECT_EQ(log.lines()[0], "warning: Could not find resolved path for symbolic source node");
  EXPECT_THAT(log.lines()[1], testing::StartsWith("warning: Failed to resolve alias for file '" +
                                                  (folder / "alias").native() + "' with error "));
}

TEST(LinkFileDereferencePairs, AreFoundBelowAFolderAndNotBehindLinks) {
  const TemporaryFolder folder;
  const auto outside = folder.folder("outside");
  create_symlink("nothing", outside / "never seen");
  const auto tree = folder.folder("tree");
  folder.folder("tree/b/c");
  folder.file("tree/b/file");
  create_symlink(outside, tree / "z to folder");
  create_symlink("../b/file", tree / "b/up");
  create_symlink("../../b", tree / "b/c/loop");
  createAliasForFilePath(tree / "b/file", tree / "b/c/alias");
  create_symlink("../b/file", tree / "a dangling one");
  write(tree / "lost alias", AliasFile{.pathComponents = {"quillonic nowhere"}}.bytes());
  create_symlink("tree", folder / "entry");

  const RecordedLog log;
  for (const auto& root : {tree, folder / "entry"}) {
    std::vector<std::pair<path, path>> pairs;
    enumerateLinkFileDereferencePairs(
        root, [&](const path& link, const path& target, bool&) { pairs.emplace_back(link, target); });
    EXPECT_THAT(pairs,
                ElementsAre(Pair(root / "a dangling one", folder / "b/file"),
                            Pair(root / "z to folder", outside), Pair(root / "b/up", tree / "b/file"),
                            Pair(root / "b/c/alias", tree / "b/file"), Pair(root / "b/c/loop", tree / "b")));
  }
  EXPECT_EQ(log.lines().size(), 2U);

  std::vector<path> seen;
  enumerateLinkFileDereferencePairs(tree, [&](const path& link, const path&, bool& stop) {
    seen.push_back(link.filename());
    stop = seen.size() == 3;
  });
  EXPECT_THAT(seen, ElementsAre("a dangling one", "z to folder", "up"));
  enumerateLinkFileDereferencePairs(folder / "missing", [&](const path&, const path&, bool&) { FAIL(); });
}

TEST(AliasCreation, RecordsWhatAResolverNeeds) {
  const TemporaryFolder folder;
  const auto target = folder.folder("media/card") / "clip e\u0301.mov";
  write(target, "content");
  folder.folder("project");
  create_symlink("media/card", folder / "link");
  createAliasForFilePath(folder / "link" / target.filename(), folder / "project/alias");
  const auto alias = aliasIn(folder / "project/alias");
  EXPECT_EQ(alias.pathComponents, namesOf(target));
  EXPECT_EQ(alias.relativeDirsUp, 2);
  EXPECT_EQ(alias.relativeDirsDown, 3);
  EXPECT_EQ(alias.targetProperties->flags, AliasFile::regularFile);
  EXPECT_EQ(alias.creationOptions, 1024);
  EXPECT_EQ(alias.displayName, target.filename());
  EXPECT_EQ(alias.volumePath, FileManager().getUniqueDrives(std::array{target}).at(0));
  EXPECT_EQ(standardizedResolvedAliasReference(folder / "project/alias"), target);

  // Nothing is ever replaced.
  create_symlink("nowhere", folder / "dangling");
  for (const auto& taken : {target, folder / "project", folder / "dangling", folder / "project/alias"}) {
    EXPECT_EQ(errorOf([&] { return createAliasForFilePath(target, taken), 0; }), std::errc::file_exists)
        << taken;
  }
  EXPECT_EQ(errorOf([&] { return createAliasForFilePath(folder / "missing", folder / "new"), 0; }),
            std::errc::no_such_file_or_directory);
  EXPECT_EQ(errorOf([&] { return createAliasForFilePath(target, folder / "missing/new"), 0; }),
            std::errc::no_such_file_or_directory);
  EXPECT_FALSE(std::filesystem::exists(folder / "new"));
  createAliasForFilePath("/", folder / "to root");
  EXPECT_EQ(standardizedResolvedAliasReference(folder / "to root"), "/");
}

TEST(AliasResolution, FollowsATreeThatMoves) {
  const TemporaryFolder folder;
  folder.folder("project/media");
  folder.file("project/media/clip.mov");
  folder.folder("project/aliases");
  createAliasForFilePath(folder / "project/media/clip.mov", folder / "project/aliases/alias");
  std::filesystem::rename(folder / "project", folder / "moved");
  EXPECT_EQ(standardizedResolvedAliasReference(folder / "moved/aliases/alias"),
            folder / "moved/media/clip.mov");
  std::filesystem::rename(folder / "moved/media/clip.mov", folder / "moved/media/CLIP.mov");
  EXPECT_EQ(standardizedResolvedAliasReference(folder / "moved/aliases/alias"),
            folder / "moved/media/CLIP.mov");
}

// What a Mac recorded about a volume of its own.
AliasFile macAlias() {
  return {.pathComponents = {"Volumes", "CARD", "Cafe\u0301", "A.MXF"},
          .volumePath = "/Volumes/CARD",
          .volumeName = "CARD",
          .creationOptions = 1024};
}

TEST(AliasResolution, LooksForTheLongestEndOfThePathUpwards) {
  const TemporaryFolder folder;
  const auto alias = folder.folder("copy/Project") / "A.MXF";
  write(alias, macAlias().bytes());
  // The alias bears its target's name, and yet it is not its own target.
  EXPECT_EQ(errorOf([&] { return standardizedResolvedAliasReference(alias); }),
            FilePathAttributeGenerationError::aliasTargetNotFound);
  const auto expectTarget = [&](const path& target) {
    create_directories((folder / target).parent_path());
    folder.file(target);
    EXPECT_EQ(standardizedResolvedAliasReference(alias), folder / target);
  };
  expectTarget("a.mxf");
  expectTarget("copy/cAF\u00C9/a.MXF");  // ignoring case, one scalar for letter and accent
  expectTarget("A.MXF");                 // byte for byte wins over likeness
  expectTarget("copy/Cafe\u0301/A.MXF");
  expectTarget("copy/CARD/Cafe\u0301/A.MXF");
  expectTarget("copy/Project/Cafe\u0301/A.MXF");
}

TEST(AliasResolution, TakesTheRecordedStepsBeforeAnythingElseButTheVolume) {
  const TemporaryFolder folder;
  const auto alias = folder.folder("a/b") / "alias";
  auto recorded = macAlias();
  recorded.relativeDirsUp = 2;
  recorded.relativeDirsDown = 2;
  folder.folder("a/Cafe\u0301");
  folder.folder("a/b/Cafe\u0301");
  folder.file("a/Cafe\u0301/A.MXF");
  folder.file("a/b/Cafe\u0301/A.MXF");
  write(alias, recorded.bytes());
  EXPECT_EQ(standardizedResolvedAliasReference(alias), folder / "a/Cafe\u0301/A.MXF");
  for (const std::int64_t wrong : {std::int64_t{-1}, std::int64_t{1000}, INT64_MIN, INT64_MAX}) {
    recorded.relativeDirsUp = wrong;
    write(alias, recorded.bytes());
    EXPECT_EQ(errorOf([&] { return standardizedResolvedAliasReference(alias); }),
              FilePathAttributeGenerationError::aliasTargetNotFound);
  }
  recorded.relativeDirsUp = 1;
  recorded.relativeDirsDown = 2;
  recorded.componentsBelowHome = 1;
  folder.file("A.MXF");
  write(alias, recorded.bytes());
  std::filesystem::remove(folder / "a/b/Cafe\u0301/A.MXF");
  const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
  setenv("HOME", folder.path().c_str(), 1);
  EXPECT_EQ(standardizedResolvedAliasReference(alias), folder / "A.MXF");
  setenv("HOME", home.c_str(), 1);
}

TEST(AliasResolution, FindsAVolumeThatIsMountedElsewhere) {
  const TemporaryFolder folder;
  const auto result = runPrivately([&] {
    const auto mountAt = [](const path& at) {
      create_directories(at);
      if (mount("card", at.c_str(), "tmpfs", 0, "") != 0) _exit(privateRunNotAllowed);
    };
    const auto byName = folder / "media/user/card";
    const auto byIdentifier = folder / "mnt/anything";
    for (const auto& point : {byName, byIdentifier}) {
      mountAt(point);
      create_directories(point / "Cafe\u0301");
      write(point / "Cafe\u0301/A.MXF", "content");
    }
    const auto alias = folder.folder("x") / "alias";
    auto recorded = macAlias();
    recorded.relativeDirsUp = 1;
    recorded.relativeDirsDown = 1;
    write(alias, recorded.bytes());
    EXPECT_EQ(standardizedResolvedAliasReference(alias), byName / "Cafe\u0301/A.MXF");

    struct stat volume {};
    ASSERT_EQ(stat(byIdentifier.c_str(), &volume), 0);
    mountAt("/dev");
    create_directories("/dev/disk/by-uuid");
    if (mknod("/dev/sdx1", S_IFBLK | 0600, volume.st_dev) != 0) _exit(privateRunNotAllowed);
    create_symlink("../../sdx1", "/dev/disk/by-uuid/0a81-f3b1");
    recorded.volumeUUID = "0A81-F3B1";
    write(alias, recorded.bytes());
    EXPECT_EQ(standardizedResolvedAliasReference(alias), byIdentifier / "Cafe\u0301/A.MXF");

    // Mounted where it was, unless that is another volume now.
    recorded.volumePath = byName.native();
    recorded.pathComponents = namesOf(byName / "Cafe\u0301/A.MXF");
    recorded.volumeUUID.reset();
    write(alias, recorded.bytes());
    folder.file("x/A.MXF");
    EXPECT_EQ(standardizedResolvedAliasReference(alias), byName / "Cafe\u0301/A.MXF");
    recorded.volumePath = byIdentifier.native();
    recorded.pathComponents = namesOf(byIdentifier / "Cafe\u0301/A.MXF");
    recorded.volumeUUID = "FFFF-FFFF";
    write(alias, recorded.bytes());
    EXPECT_EQ(standardizedResolvedAliasReference(alias), folder / "x/A.MXF");
  });
  if (result == PrivateRun::notAllowed) GTEST_SKIP() << "needs a namespace of its own for mounting";
  EXPECT_EQ(result, PrivateRun::passed);
}

TEST(AliasResolution, ReportsWhatIsWrong) {
  const TemporaryFolder folder;
  const auto resolve = [&](const path& name) {
    return errorOf([&] { return standardizedResolvedAliasReference(folder / name); });
  };
  write(folder / "damaged", macAlias().bytes().substr(0, 100));
  using Error = FilePathAttributeGenerationError;
  EXPECT_EQ(resolve("damaged"), Error::malformedAliasFile);
  EXPECT_EQ(resolve(folder.file("plain").filename()), Error::notAnAliasFile);
  EXPECT_EQ(resolve("missing"), std::errc::no_such_file_or_directory);
  create_symlink("damaged", folder / "link");
  EXPECT_EQ(resolve("link"), std::errc::too_many_symbolic_link_levels);
  EXPECT_TRUE(resolve("."));
}

// The answers are what happens to who tries.
TEST(LinkSupport, IsWhatTheVolumeHolds) {
  const TemporaryFolder folder;
  const auto expectTruth = [](const path& place, const char* kind) {
    write(place / "file", "content");
    std::error_code soft;
    std::error_code hard;
    create_symlink("file", place / "soft", soft);
    std::filesystem::create_hard_link(place / "file", place / "hard", hard);
    EXPECT_EQ(fileSystemSupportsSymbolicLinks(place), !soft) << kind;
    EXPECT_EQ(fileSystemSupportsHardLinks(place / "file"), !hard) << kind;
  };
  expectTruth(folder.path(), "the disk");
  EXPECT_TRUE(errorOf([&] { return fileSystemSupportsHardLinks(folder / "missing"); }));
  EXPECT_TRUE(errorOf([&] { return fileSystemSupportsSymbolicLinks(std::string("/\0", 2)); }));
  // A link counts for the volume that holds it.
  create_symlink("/proc", folder / "to proc");
  EXPECT_TRUE(fileSystemSupportsHardLinks(folder / "to proc"));
  EXPECT_FALSE(fileSystemSupportsHardLinks("/proc"));

  const auto result = runPrivately([&] {
    int mounted = 0;
    for (const auto* kind : {"tmpfs", "ramfs", "overlay", "vfat", "exfat"}) {
      const auto place = folder.folder(kind);
      for (const auto* layer : {"lower", "upper", "work"}) folder.folder(layer);
      const auto layers = "lowerdir=" + (folder / "lower").native() +
                          ",upperdir=" + (folder / "upper").native() +
                          ",workdir=" + (folder / "work").native();
      const bool isOverlay = kind == std::string("overlay");
      if (mount(kind, place.c_str(), kind, 0, isOverlay ? layers.c_str() : "") != 0) continue;
      ++mounted;
      expectTruth(place, kind);
    }
    if (mounted == 0) _exit(privateRunNotAllowed);
  });
  EXPECT_NE(result, PrivateRun::failed);
}

}  // namespace
}  // namespace quillonic
