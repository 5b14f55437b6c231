#include <quillonic/filesystem.hpp>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "private_process.hpp"
#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using Errors = FilePathAttributeGenerationError;
using std::filesystem::path;

template <class Operation, class... Arguments>
std::error_code errorOf(Operation operation, const Arguments&... arguments) {
  try {
    static_cast<void>(std::invoke(operation, arguments...));
  } catch (const std::system_error& error) {
    return error.code();
  }
  return {};
}

path resolved(const path& alias) {
  return standardizedResolvedAliasReference(alias);
}
path followed(const path& link) {
  return deeplyDereferencedFilePath(link).value_or(path());
}

TEST(ReferenceLinkType, HasItsNumberAndText) {
  std::string texts;
  for (std::int64_t i = 0; i < 4; ++i) {
    texts.append(loggingDescription(fromRawValue<ReferenceLinkType>(i).value())).append(" ");
    texts.append(loggingDescription(fromRawValue<ReplicatedReferenceLinkResolution>(i).value())).append("\n");
  }
  EXPECT_EQ(texts,
            "not a link relinkToSource\nsymbolic link relinkToReplicatedSource\n"
            "hard link copyOriginalSource\nalias copyOriginalLinkFile\n");
  EXPECT_FALSE(fromRawValue<ReferenceLinkType>(4) || fromRawValue<ReplicatedReferenceLinkResolution>(-1));
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
  // Begins like an alias file and is none that could be resolved, but what it is is told by how it begins.
  folder.file("damaged", aliasBegin);
  folder.file("too great", aliasBegin + std::string(AliasFile::greatestSize, 'x'));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);

  const std::vector<std::string> names[] = {{"plain", ".", "pipe", "too great", foreign},
                                            {"soft", "dangling", "soft folder//", foreign + "\n"},
                                            {"twin"},
                                            {"alias", "alias twin", "damaged"}};
  for (const auto type : allCases<ReferenceLinkType>()) {
    for (const auto& name : names[rawValue(type)]) {
      EXPECT_EQ(filePathLinkType(folder / name), type) << name;
      EXPECT_EQ(referenceLinkTypeOfItem(folder / name), type) << name;
      EXPECT_EQ(filePathAppearsToBeNonHardReference(folder / name), rawValue(type) % 2 == 1) << name;
    }
  }
  for (const path& missing :
       {folder / "absent", folder / "plain/x", path(), path(std::string("/tmp\0x", 6))}) {
    EXPECT_EQ(referenceLinkTypeOfItem(missing), std::nullopt) << missing;
    EXPECT_EQ(expandedAttributesOfItem(missing), std::nullopt) << missing;
    EXPECT_TRUE(errorOf(filePathLinkType, missing)) << missing;
  }
  EXPECT_EQ(errorOf(filePathLinkType, folder / "absent"), std::errc::no_such_file_or_directory);
}

// Whatever a link says and wherever it lies, it leads where the system goes.
TEST(ReferenceLinks, OfTheSymbolicKindLeadWhereTheSystemGoes) {
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
    // Where the system finds nothing there is none; where it cannot even tell which place is meant, its
    // answer is passed on.
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
    ASSERT_EQ(target, target.lexically_normal());
    ASSERT_EQ(dereferencedFilePathURL(ReferenceLinkType::softSymbolicReference, link), target);
    ASSERT_EQ(followed(link), std::filesystem::is_symlink(target) ? followed(target) : target) << text;
    ASSERT_FALSE(std::filesystem::is_symlink(followed(link)));
  }
  EXPECT_GT(leading, 300);
  EXPECT_GT(refused, 300);

  // A place where nothing is has a name, and a link to a link is one step only.
  const auto dangling = folder.link("dangling", "missing/./x/");
  EXPECT_EQ(standardizedDestinationOfSymbolicLink(dangling), folder / "missing/x");
  EXPECT_EQ(deeplyDereferencedFilePath(dangling), std::nullopt);
  const auto follow =
      std::bind_front(deeplyDereferencedFilePathURL, ReferenceLinkType::softSymbolicReference);
  EXPECT_EQ(errorOf(follow, dangling), std::errc::no_such_file_or_directory);
  folder.link("a/b/c/first", "../file");
  const auto second = folder.link("a/b/c/second", "first");
  EXPECT_EQ(standardizedDestinationOfSymbolicLink(second), folder / "a/b/c/first");
  std::filesystem::current_path(second.parent_path());
  EXPECT_EQ(followed("second"), folder / "a/b/file");
  EXPECT_EQ(followed("../file"), folder / "a/b/file");
  std::filesystem::current_path("/");
  EXPECT_EQ(errorOf(standardizedDestinationOfSymbolicLink, folder / "a/file"), std::errc::invalid_argument);
  EXPECT_EQ(errorOf(symbolicLinkIsRelative, folder / "absent"), std::errc::no_such_file_or_directory);
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
  folder.link("through", "closed/../alias");
  const auto alias = folder / "alias";
  createAliasForFilePath(closed / "file", alias);
  const auto secret = folder.file("secret", std::string(100, 'x'));
  for (const auto& item : {closed, secret}) permissions(item, std::filesystem::perms::none);
  permissions(folder.path(), std::filesystem::perms::all);
  runPrivately([&] {
    becomeNobody();
    const RecordedLog log;
    for (const auto& into : {second, alias, folder / "through"})
      EXPECT_EQ(errorOf(followed, into), std::errc::permission_denied) << into;
    EXPECT_EQ(errorOf(resolved, alias), std::errc::permission_denied);
    EXPECT_EQ(standardizedDestinationOfSymbolicLink(link), closed / "file");
    EXPECT_EQ(expandedAttributesOfItem(closed / "file"), std::nullopt);
    EXPECT_EQ(expandedAttributesOfItem(link)->value<path>(Key::referencedFileSystemURL), closed / "file");
    // What may not be opened may be an alias or not: its kind is not told, the rest is.
    EXPECT_EQ(referenceLinkTypeOfItem(secret), std::nullopt);
    EXPECT_EQ(expandedAttributesOfItem(secret)->find(Key::referenceLinkType), nullptr);
    EXPECT_EQ(expandedAttributesOfItem(secret)->value<int>(Key::NSFileSize), 100);
    int pairs = 0;
    const auto count = [&](const path&, const path&, bool&) { ++pairs; };
    EXPECT_FALSE(enumerateLinkFileDereferencePairs(folder.path(), count));
    EXPECT_EQ(pairs, 2);
    // The system's own words, in the language that the process has set.
    const auto denied = " with error " + std::generic_category().message(EACCES);
    EXPECT_THAT(log.lines(), testing::Contains("warning: Failed to discover the link type of file '" +
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
  if (const auto created = attributes.value<AnyValue::Date>(Key::NSFileCreationDate)) {
    EXPECT_LT(std::chrono::abs(std::chrono::system_clock::now() - *created), std::chrono::hours(1));
    attributes.remove(Key::NSFileCreationDate);
  }
  EXPECT_TRUE(attributes == (FileAttributes{{Key::NSFileSize, 7},
                                            {Key::NSFilePosixPermissions, 04640},
                                            {Key::NSFileOwnerAccountID, expected.st_uid},
                                            {Key::NSFileGroupOwnerAccountID, expected.st_gid},
                                            {Key::NSFileReferenceCount, 1},
                                            {Key::NSFileSystemNumber, expected.st_dev},
                                            {Key::NSFileSystemFileNumber, expected.st_ino},
                                            {Key::NSFileModificationDate,
                                             AnyValue::Date(std::chrono::nanoseconds(-2000000001))},
                                            {Key::NSFileType, FileType::regular},
                                            {Key::fileResourceType, FileType::regular},
                                            {Key::filePathName, "clip.mov"},
                                            {Key::isDirectoryPath, false},
                                            {Key::isLinkFilePath, false},
                                            {Key::referenceLinkType, ReferenceLinkType::notAReferenceLink}}));
  EXPECT_EQ(expandedAttributesOfItem("/proc/self/stat")->find(Key::NSFileCreationDate), nullptr);
  const auto root = *expandedAttributesOfItem("/");
  EXPECT_EQ(root.value<std::string>(Key::filePathName), "/");
  EXPECT_EQ(root.value<bool>(Key::isDirectoryPath), true);
}

TEST(ExpandedAttributes, TellWhereALinkLeads) {
  const TemporaryFolder folder;
  const auto file = folder.file("clip.mov");
  const path links[] = {folder / "alias", folder.link("relative", "clip.mov"), folder.link("absolute", file)};
  createAliasForFilePath(file, links[0]);
  const RecordedLog log;
  for (const auto& link : links) {
    const auto attributes = *expandedAttributesOfItem(link);
    const bool isAlias = link == links[0];
    EXPECT_EQ(attributes.value<path>(Key::referencedFileSystemURL), file) << link;
    EXPECT_EQ(attributes.value<bool>(Key::isLinkFilePath), true);
    EXPECT_EQ(attributes.value<bool>(Key::isRelativeSymbolicReference),
              isAlias ? std::nullopt : std::optional(link == links[1]));
    EXPECT_EQ(attributes.value<FileType>(Key::NSFileType),
              isAlias ? FileType::regular : FileType::symbolicLink);
  }
  EXPECT_TRUE(log.lines().empty());

  std::filesystem::remove(file);
  EXPECT_EQ(expandedAttributesOfItem(links[1])->value<path>(Key::referencedFileSystemURL), file);
  const auto alias = *expandedAttributesOfItem(links[0]);
  EXPECT_EQ(alias.find(Key::referencedFileSystemURL), nullptr);
  EXPECT_EQ(alias.value<ReferenceLinkType>(Key::referenceLinkType), ReferenceLinkType::aliasReference);
  EXPECT_THAT(log.lines(),
              testing::ElementsAre("warning: Could not find resolved path for symbolic source node",
                                   testing::StartsWith("warning: Failed to resolve alias for file '" +
                                                       links[0].native() + "' with error ")));
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
  EXPECT_EQ(pairsIn(folder / "tree", 3), first);
  EXPECT_EQ(pairsIn(folder / "missing", 1), "");
}

TEST(AliasCreation, RecordsWhatAResolverNeeds) {
  const TemporaryFolder folder;
  const auto target = folder.file("media/card/clip e\u0301.mov");
  const auto file = folder.folder("project") / "alias";
  createAliasForFilePath(folder.link("link", "media/card") / target.filename(), file);
  const auto alias = AliasFile::fromBytes(contentOf(file)).value();
  EXPECT_EQ(alias.pathComponents, std::vector<std::string>(std::next(target.begin()), target.end()));
  EXPECT_EQ(alias.relativeDirsUp, 2);
  EXPECT_EQ(alias.relativeDirsDown, 3);
  EXPECT_EQ(alias.targetProperties->flags, AliasFile::regularFile);
  EXPECT_EQ(alias.creationOptions, 1024);
  EXPECT_EQ(alias.displayName, target.filename());
  EXPECT_EQ(alias.volumePath, FileManager().getUniqueDrives(std::array{target}).at(0));
  EXPECT_EQ(resolved(file), target);

  // Nothing is ever replaced.
  for (const auto& taken : {target, folder / "project", folder.link("dangling", "nowhere"), file}) {
    EXPECT_EQ(errorOf(createAliasForFilePath, target, taken), std::errc::file_exists) << taken;
  }
  const auto missing = std::errc::no_such_file_or_directory;
  EXPECT_EQ(errorOf(createAliasForFilePath, folder / "missing", folder / "new"), missing);
  EXPECT_EQ(errorOf(createAliasForFilePath, target, folder / "missing/new"), missing);
  EXPECT_FALSE(std::filesystem::exists(folder / "new"));
  createAliasForFilePath("/", folder / "to root");
  EXPECT_EQ(resolved(folder / "to root"), "/");
  for (const auto* name : {"project", "media"}) rename(folder / name, folder.folder("moved") / name);
  EXPECT_EQ(resolved(folder / "moved/project/alias"),
            folder / "moved" / target.lexically_relative(folder.path()));
}

// What a Mac recorded about a volume of its own.
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
  // The alias bears its target's name, and yet it is not its own target.
  const auto alias = folder.file("copy/Project/A.MXF", macAlias().bytes());
  EXPECT_EQ(errorOf(resolved, alias), Errors::aliasTargetNotFound);
  EXPECT_EQ(deeplyDereferencedFilePath(folder.link("link", alias)), std::nullopt);
  // First ignoring case, one scalar for letter and accent; byte for byte wins over likeness.
  const std::pair<const char*, const char*> alikes[] = {
      {"\u03a3\u03a3.mov", "\u03c3\u03c2.Mov"},
      {"\u1112\u1161\u11ab\u1100\u1173.mov", "\ud55c\uadf8.mov"},
      {"f\xfcr.mov", "F\xfcR.mov"},  // no UTF-8
  };
  for (const auto& [item, recorded] : alikes) {
    const auto written = folder.file(item);
    const auto alikeAlias = folder.file("copy/alike", AliasFile{.pathComponents = {recorded}}.bytes());
    EXPECT_TRUE(resolved(alikeAlias) == written) << item;
  }
  for (const auto* target : {"a.mxf", "copy/cAF\u00C9/a.MXF", "A.MXF", "copy/Cafe\u0301/A.MXF",
                             "copy/CARD/Cafe\u0301/A.MXF", "copy/Project/Cafe\u0301/A.MXF"}) {
    const auto file = folder.file(target);
    EXPECT_EQ(resolved(alias), file);
  }
}

TEST(AliasResolution, TakesTheRecordedStepsBeforeAnythingElseButTheVolume) {
  const TemporaryFolder folder;
  const auto near = folder.file("a/b/Cafe\u0301/A.MXF");
  const auto far = folder.file("a/Cafe\u0301/A.MXF");
  EXPECT_EQ(resolved(folder.file("a/b/alias", macAlias(2, 2).bytes())), far);
  for (const std::int64_t wrong : {std::int64_t{-1}, std::int64_t{1000}, INT64_MIN, INT64_MAX}) {
    const auto alias = folder.file("a/b/alias", macAlias(wrong, 2).bytes());
    EXPECT_EQ(errorOf(resolved, alias), Errors::aliasTargetNotFound);
  }
  std::filesystem::remove(near);
  auto recorded = macAlias(1, 2);
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
    // Nor is a clip of that volume taken because it lies where the recorded one lay from the alias.
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
    // An identifier of another form tells nothing.
    recorded.volumeUUID = "0A81F3B1-51D9-3335-B3E3-169C3640360D";
    EXPECT_EQ(resolved(folder.file(onOther, recorded.bytes())), byIdentifier / "CAFE\u0301/a.mxf");
  });
}

TEST(AliasResolution, ReportsWhatIsWrong) {
  const TemporaryFolder folder;
  const auto damaged = folder.file("damaged", macAlias().bytes().substr(0, 100));
  EXPECT_EQ(errorOf(resolved, damaged), Errors::malformedAliasFile);
  EXPECT_EQ(errorOf(resolved, folder.file("plain")), Errors::notAnAliasFile);
  EXPECT_EQ(errorOf(resolved, folder / "missing"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(errorOf(resolved, folder.link("link", "damaged")), Errors::notAnAliasFile);
  EXPECT_EQ(errorOf(resolved, folder.path()), Errors::notAnAliasFile);
  // Names that all but fit, over and over: the search for their every end is given up.
  AliasFile endless{.pathComponents = std::vector<std::string>(500, "ABC")};
  endless.pathComponents.emplace_back("nope");
  std::string nested;
  for (int depth = 0; depth < 60; ++depth) nested += "abc/";
  EXPECT_EQ(errorOf(resolved, folder.file(nested + "alias", endless.bytes())), Errors::malformedAliasFile);
}

// The answers are what happens to who tries.
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
  // A link counts for the volume that holds it; what is missing for the one where it will be made.
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

}  // namespace
}  // namespace quillonic
