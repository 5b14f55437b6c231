// Single files: copying, comparing, relinking, and lists of checksums.

#include <quillonic/filesystem.hpp>
#include <quillonic/offload.hpp>

#include <cerrno>
#include <dlfcn.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "error_of.hpp"
#include "sum.hpp"
#include "trees.hpp"

#ifdef HAS_CHECKSUMS
#include <quillonic/checksums.hpp>
#endif

namespace {

bool hasNamelessFiles = true;
int descriptorLimit = std::numeric_limits<int>::max();

}  // namespace

// The library's calls find this first. Some volumes have no files without names, some processes few descriptors.
extern "C" int openat(int folder, const char* name, int flags, ...) {
  static auto* const system = reinterpret_cast<decltype(openat)*>(dlsym(RTLD_NEXT, "openat"));
  const bool isRefused = !hasNamelessFiles && (flags & O_TMPFILE) == O_TMPFILE;
  const int file = isRefused ? -1 : system(folder, name, flags, 0600);
  if (isRefused) errno = EOPNOTSUPP;
  if (file < descriptorLimit) return file;
  close(file);
  errno = EMFILE;
  return -1;
}

namespace quillonic::offload {
namespace {

TEST(FileCopy, HasAllOfItsSource) {
  const TemporaryFolder folder;
  const auto source = folder.file("source", std::string(100'000, 's'));
  fs::resize_file(source, 20'000'000);
  fs::permissions(source, fs::perms(0444));
  fs::last_write_time(source, fs::file_time_type::clock::now() - std::chrono::hours(9));
  const bool hasAttributes = setxattr(source.c_str(), "user.note", "n", 1, 0) == 0;
  const auto taken = folder.file("taken", "kept");
  const auto times = accessTimes(folder.path());
  const fs::path targets[] = {folder / "a", taken, folder.link("dangling", "nowhere"), folder / "no/folder",
                              folder / "b"};
  for (const auto* checksum : {static_cast<const ChecksumKind*>(nullptr), &sum}) {
    const auto count = checksum ? std::size_t{5} : std::size_t{1};
    std::uint64_t done = 0;
    const auto note = [&](std::uint64_t bytes) { return (done = bytes) > 0; };
    const auto copy =
        copyFile(source, std::span(targets).first(count), {.checksum = checksum, .progress = note});
    EXPECT_EQ(done, 20'000'000U);
    EXPECT_EQ(accessTimes(folder.path())[source], times.at(source));
    EXPECT_EQ(copy.size, 20'000'000U);
    EXPECT_EQ(copy.checksum.has_value(), checksum != nullptr);
    const std::errc errors[] = {std::errc(), std::errc::file_exists, std::errc::file_exists,
                                std::errc::no_such_file_or_directory, std::errc()};
    for (std::size_t i = 0; i < count; ++i) {
      EXPECT_EQ(copy.targets[i].error, std::make_error_condition(errors[i])) << i;
      EXPECT_EQ(copy.targets[i].unheld, Unheld());
      if (copy.targets[i].error) continue;
      struct stat status {};
      ASSERT_EQ(stat(targets[i].c_str(), &status), 0);
      EXPECT_LT(status.st_blocks * 512, 1'000'000);
      EXPECT_EQ(status.st_mode & 07777U, 0444U);
      EXPECT_TRUE(!hasAttributes || getxattr(targets[i].c_str(), "user.note", nullptr, 0) == 1);
      EXPECT_EQ(fs::last_write_time(targets[i]), fs::last_write_time(source));
      EXPECT_EQ(checksumOfFile(targets[i], sum), checksumOfFile(source, sum));
    }
    fs::remove(targets[0]);
  }
  EXPECT_EQ(contentOf(taken), "kept");
  const auto free = copyFile(source, {&taken, 1}, {.takesFreeName = true});
  EXPECT_EQ(free.targets[0].path, folder / "taken 2");
  EXPECT_EQ(fs::file_size(folder / "taken 2"), 20'000'000U);
}

TEST(FileCopy, HasANameWhenItIsWhole) {
  const TemporaryFolder folder;
  const auto source = folder.file("source", "new");
  const fs::path target = folder / "target";
  fs::path hidden;
  const auto look = [&](std::uint64_t) {
    for (const auto& item : fs::directory_iterator(folder.path())) {
      if (item.path() != source) hidden = item.path();
    }
    return false;
  };
  for (const bool has : {true, false}) {
    hasNamelessFiles = has;
    const auto copy = copyFile(source, {&target, 1}, {.checksum = &sum, .progress = look});
    EXPECT_EQ(copy.targets[0].error, std::errc::operation_canceled);
    EXPECT_EQ(hidden.empty(), has);
    EXPECT_NE(hidden, target);
    EXPECT_EQ(partialCount(folder.path()), 0U);
  }
  // What a killed program leaves is removed, what another program writes is not.
  const std::ofstream left(hidden);
  const int file = open(hidden.c_str(), O_RDONLY);
  ASSERT_EQ(flock(file, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(copyFile(source, {&target, 1}).targets[0].error, std::errc::device_or_resource_busy);
  EXPECT_TRUE(fs::exists(hidden));
  close(file);
  EXPECT_EQ(copyFile(source, {&target, 1}).targets[0].error, std::error_code());
  EXPECT_EQ(contentOf(target), "new");
  hasNamelessFiles = true;

  // A source that grows meanwhile.
  const fs::path other = folder / "other";
  const auto grow = [&](std::uint64_t) {
    return static_cast<bool>(std::ofstream(source, std::ios::app) << "er");
  };
  const auto copy = [&] { copyFile(source, {&other, 1}, {.checksum = &sum, .progress = grow}); };
  EXPECT_EQ(errorOf(copy), OffloadError::sourceChanged);
  EXPECT_FALSE(fs::exists(other));
  EXPECT_EQ(errorOf([&] { copyFile("/dev/null", {&other, 1}); }), std::errc::invalid_argument);
}

TEST(CopyMatch, ExplainsDifferencesByTheVolume) {
  using Key = FileAttributeKey;
  const Date date(std::chrono::seconds(1000));
  const auto attributes = [&](const char* name, std::uint64_t size, std::chrono::milliseconds later,
                              int mode) {
    return FileAttributes{{Key::filePathName, std::string(name)},
                          {Key::NSFileSize, size},
                          {Key::NSFileModificationDate, Date(date + later)},
                          {Key::NSFilePosixPermissions, mode}};
  };
  const auto source = attributes("a?", 5, std::chrono::milliseconds(0), 0640);
  const Key keys[] = {Key::filePathName, Key::NSFileModificationDate, Key::NSFilePosixPermissions};
  struct Row {
    const char* kind;
    FileAttributes copy;
    MatchLevel level;
    std::vector<DifferenceReason> reasons;
  };
  using enum DifferenceReason;
  const Row rows[] = {
      {"ext4", attributes("a?", 5, std::chrono::milliseconds(0), 0640), MatchLevel::full, {}},
      {"ext4",
       attributes("a_", 5, std::chrono::milliseconds(1), 0600),
       MatchLevel::partial,
       {unexpected, unexpected, unexpected}},
      {"vfat",
       attributes("a_", 5, std::chrono::milliseconds(-1999), 0700),
       MatchLevel::partial,
       {writtenName, volume}},
      {"vfat",
       attributes("b", 5, std::chrono::milliseconds(2000), 0640),
       MatchLevel::partial,
       {unexpected, unexpected}},
      {"ext4", attributes("a?", 6, std::chrono::milliseconds(0), 0640), MatchLevel::unmatched, {}},
      {"exfat", {{Key::NSFileSize, std::uint64_t{5}}}, MatchLevel::partial, {absent, absent, absent}},
  };
  for (const auto& row : rows) {
    CopyMatchOptions options{.volume = VolumeTraits::ofKind(row.kind), .keys = keys};
    const auto match = matchOfCopy(source, row.copy, options);
    std::vector<DifferenceReason> reasons;
    for (const auto& difference : match.differences) reasons.push_back(difference.reason);
    EXPECT_EQ(match.level, row.level);
    EXPECT_EQ(reasons, row.reasons);
    options.checksumOfSource = "1";
    options.checksumOfCopy = "2";
    EXPECT_EQ(matchOfCopy(source, row.copy, options).level, MatchLevel::unmatched);
  }
  EXPECT_EQ(matchOfCopy({}, {}).level, MatchLevel::unmatched);
  const auto copy = attributes("a 2", 5, std::chrono::milliseconds(0), 0640);
  EXPECT_TRUE(matchOfCopy(source, copy, {.writtenName = "a 2"}).isExpected());
}

TEST(LinkReplication, MakesWhatIsAskedFor) {
  using enum ReplicatedReferenceLinkResolution;
  const TemporaryFolder folder;
  const auto clip = folder.file("card/DCIM/clip", "clip");
  folder.file("outside", "o");
  const auto inside = folder.link("card/sub/inside", "../DCIM/clip");
  const auto absolute = folder.link("card/absolute", clip);
  const auto away = folder.link("card/away", "../outside");
  const auto alias = folder / "card/alias";
  createAliasForFilePath(clip, alias);
  fs::create_hard_link(clip, folder / "card/second");
  LinkReplication how{.source = folder / "card", .copy = folder.folder("copy")};
  const TextDictionary written{{"DCIM", "D_"}};
  how.writtenPaths = &written;
  struct Row {
    fs::path item;
    ReplicatedReferenceLinkResolution resolution;
    LinkForm form;
    fs::path target;
  };
  const Row rows[] = {
      {inside, relinkToReplicatedSource, LinkForm::symbolicLink, "../D_/clip"},
      {inside, relinkToOriginalSource, LinkForm::symbolicLink, clip},
      {inside, copyOriginalSource, LinkForm::copy, clip},
      {inside, copyOriginalLinkFile, LinkForm::symbolicLink, "../DCIM/clip"},
      {absolute, relinkToReplicatedSource, LinkForm::symbolicLink, folder / "copy/D_/clip"},
      {away, relinkToReplicatedSource, LinkForm::symbolicLink, folder / "outside"},
      {alias, relinkToReplicatedSource, LinkForm::aliasFile, folder / "copy/D_/clip"},
      {alias, relinkToOriginalSource, LinkForm::aliasFile, clip},
      {alias, copyOriginalSource, LinkForm::copy, clip},
      {alias, copyOriginalLinkFile, LinkForm::copy, alias},
      {folder / "card/second", relinkToReplicatedSource, LinkForm::hardName, folder / "copy/D_/clip"},
      {folder / "card/second", copyOriginalSource, LinkForm::copy, folder / "card/second"},
  };
  folder.file("copy/D_/clip", "clip");
  folder.folder("copy/sub");
  for (const auto& row : rows) {
    how.resolution = row.resolution;
    const auto replica = linkReplica(row.item, how, clip);
    EXPECT_EQ(replica.form, row.form) << row.item;
    EXPECT_EQ(replica.target, row.target) << row.item;
    EXPECT_EQ(replica.place, how.copy / row.item.lexically_relative(how.source));
    makeLink(replica);
    const bool dangles = replica.target == "../DCIM/clip";
    EXPECT_EQ(deeplyDereferencedFilePath(replica.place).has_value(), !dangles) << row.item;
    EXPECT_EQ(errorOf(makeLink, replica), std::errc::file_exists);
    fs::remove(replica.place);
  }
  how.resolution = relinkToReplicatedSource;
  how.outside = OutsideTargets::refuse;
  EXPECT_EQ(linkReplica(away, how).refusal, OffloadError::targetIsOutside);
  how.volume = VolumeTraits::ofKind("exfat");
  EXPECT_EQ(linkReplica(inside, how).refusal, OffloadError::notHeld);
  EXPECT_EQ(linkReplica(folder / "card/second", how, clip).refusal, OffloadError::notHeld);
}

TEST(OffloadPlan, FollowsLinksWhereTheirTargetsAreCopied) {
  const TemporaryFolder folder;
  folder.file("outside/clip", "clip");
  folder.link("card/folder", folder / "outside");
  folder.link("card/loop", ".");
  folder.link("card/holder of the copy", "..");
  const fs::path targets[] = {folder.folder("copy")};
  const auto plan =
      planOffload(folder / "card", targets, {.links = ReplicatedReferenceLinkResolution::copyOriginalSource});
  OffloadRun run(plan, {});
  const auto& report = runAll(run);
  EXPECT_EQ(report.count(0, CopyState::copied), 2U);
  EXPECT_EQ(report.count(0, CopyState::failed), 2U);
  EXPECT_EQ(contentOf(folder / "copy/folder/clip"), "clip");
  EXPECT_EQ(errorOf([&] { planOffload(folder.path(), targets); }), std::errc::invalid_argument);
  PlanOptions stopping;
  stopping.progress = [](const PlanProgress& progress) { return progress.items < 2; };
  EXPECT_EQ(errorOf([&] { planOffload(folder / "card", targets, stopping); }), std::errc::operation_canceled);
}

// By what replaces links. Bytes in the copy were all verified.
TEST(OffloadRun, VerifiesWhatReplacesLinks) {
  const TemporaryFolder folder;
  folder.link("card/link", folder.file("card/clip", "clip"));
  createAliasForFilePath(folder / "card/clip", folder / "card/alias");
  createAliasForFilePath(folder.file("card/gone", ""), folder / "card/dangling");
  fs::remove(folder / "card/gone");
  const std::pair<std::size_t, std::size_t> verifiedAndFailed[] = {{2, 0}, {2, 0}, {3, 1}, {3, 0}};
  for (const auto links : allCases<ReplicatedReferenceLinkResolution>()) {
    SCOPED_TRACE(rawValue(links));
    const fs::path targets[] = {folder.folder("copy " + std::to_string(rawValue(links)))};
    OffloadRun run(planOffload(folder / "card", targets, {.links = links}), {.checksum = &sum});
    const auto& report = runAll(run);
    const auto [verified, failed] = verifiedAndFailed[rawValue(links)];
    EXPECT_EQ(report.count(0, CopyState::verified), verified);
    EXPECT_EQ(report.count(0, CopyState::failed), failed);
    for (std::size_t i = 0; i < run.plan().items.size(); ++i) {
      const auto& path = run.plan().items[i].path;
      if (report.copy(i, 0).state != CopyState::verified) continue;
      EXPECT_EQ(report.checksums[i], checksumOfFile(targets[0] / path, sum)) << path;
    }
  }
}

TEST(OffloadRun, MakesLinksAgain) {
  const TemporaryFolder folder;
  folder.link("card/link", folder.file("card/clip", "clip"));
  createAliasForFilePath(folder / "card/link", folder / "card/b");
  createAliasForFilePath(folder / "card/b", folder / "card/a");
  const fs::path targets[] = {folder.folder("copy")};
  const auto plan = planOffload(folder / "card", targets);
  for (const auto* removed : {"all", "a", "b", "link"}) {
    SCOPED_TRACE(removed);
    fs::remove(targets[0] / removed);
    OffloadRun run(plan, {});
    const auto& report = runAll(run);
    EXPECT_EQ(report.count(0, CopyState::copied), removed == std::string_view("all") ? 4U : 1U);
    for (const auto& copy : report.copies) EXPECT_EQ(copy.error, std::error_code());
  }
}

TEST(OffloadRun, NeedsFewDescriptors) {
  const TemporaryFolder folder;
  for (int i = 0; i < 200; ++i) folder.file("card/" + std::to_string(i), "clip");
  const fs::path targets[] = {folder.folder("a"), folder.folder("b")};
  OffloadRun run(planOffload(folder / "card", targets), {.checksum = &sum, .verified = {}, .progress = {}});
  descriptorLimit = 60;
  {
    std::vector<std::jthread> threads;
    for (std::size_t step = 0; step < run.stepCount(); ++step)
      threads.emplace_back([&, step] { run.run(step); });
  }
  const auto& report = run.finish();
  descriptorLimit = std::numeric_limits<int>::max();
  EXPECT_EQ(report.count(1, CopyState::verified), 200U);
  EXPECT_TRUE(report.isGood());
}

TEST(HashList, ReadsWhatItWritesAndRefusesTheRest) {
  HashList list{
      .name = "A & <B>", .hostname = "h\x01\xff", .started = Date(std::chrono::seconds(1'700'000'000))};
  list.entries = {
      {"DCIM/\"A\" & 'B'.mov", 5, Date(std::chrono::seconds(-1)), "xxhash64be", "0123456789abcdef", {}},
      {"far",
       5,
       Date(std::chrono::floor<std::chrono::seconds>(Date::max())),
       "sha1",
       std::string(40, '0'),
       {}},
      {"latin-\xe9", 5, {}, "md5", std::string(32, '0'), {}}};
  const auto text = list.text();
  list.hostname = "h";
  list.entries.pop_back();
  EXPECT_EQ(HashList::fromText(text), list);

  const std::string start = "<hashlist version=\"1.0\"><hash><file>a</file><size>1</size>";
  const std::string end = "<xxhash>12</xxhash></hash></hashlist>";
  struct Row {
    std::string text;
    std::size_t column;  // 0 for a list
  };
  const Row rows[] = {
      {start + end, 0},
      {"\xEF\xBB\xBF<?xml version='1.0'?><!-- c -->" + start + "<new a='&lt;'><b/></new>" + end +
           "<!-- d -->",
       0},
      {start + "<hashdate>2024-02-29T23:59:59.25+01:00</hashdate>" + end, 0},
      {start + "<hashdate>2023-02-29T23:59:59Z</hashdate>" + end, 59},
      {start + "<sha1>12</sha1>" + end, 59},
      {start + "<new/><new/><sha1>0000000000000000000000000000000000000000</sha1>" + end, 0},
      {start + "<file>a</file>" + end, 59},
      {start + "<size>1</size>" + end, 59},
      {start + "<xxhash>12</xxhash>" + end, 78},
      {start + "<lastmodificationdate>&b;" + end, 81},
      {start + "<a></b>" + end, 62},
      {start, 59},
      {"<!DOCTYPE hashlist [<!ENTITY a 'b'>]>" + start + end, 1},
      {"<hashlist version=\"2.0\"></hashlist>", 1},
      {"<hashlist version=\"1.1\" version=\"1.2\"></hashlist>", 25},
      {start + end + "<a/>", 96},
      {start + "\xff" + end, 59},
      {"<hashlist version=\"1.1\"><hash><file>a</file>" + end, 25},
  };
  for (const auto& row : rows) {
    const auto reading = HashList::fromText(row.text);
    EXPECT_EQ(reading ? 0 : reading.error().column, row.column) << row.text << reading.error().description();
  }
  std::string deep = "<hashlist version=\"1.1\">";
  for (int i = 0; i < 100'000; ++i) deep += "<a>";
  EXPECT_EQ(HashList::fromText(deep).error().expected, "less nesting");
}

TEST(HashList, IsVerifiedWithinItsFolder) {
  const TemporaryFolder folder;
  folder.file("root/good", "1");
  folder.file("root/other", "2");
  folder.file("outside", "1");
  folder.link("root/link", "../outside");
  const auto sumOf = checksumOfFile(folder / "root/good", sum);
  HashList list;
  for (const auto* name : {"good", "other", "missing", "../outside", "link", "/etc/passwd"}) {
    list.entries.push_back({name, 1, {}, "sum", sumOf, {}});
  }
  const ChecksumKind* const kinds[] = {&sum};
  std::vector<std::error_condition> errors;
  verifyHashList(list, folder / "root", kinds, [&](const VerifiedEntry& entry, bool&) {
    errors.push_back(entry.error.default_error_condition());
  });
  const std::error_condition invalid = std::errc::invalid_argument;
  EXPECT_THAT(errors,
              testing::ElementsAre(std::error_condition(),
                                   make_error_code(OffloadError::contentDiffers).default_error_condition(),
                                   std::error_condition(std::errc::no_such_file_or_directory), invalid,
                                   std::error_condition(std::errc::too_many_symbolic_link_levels), invalid));
  int count = 0;
  verifyHashList(
      list, folder / "root", kinds, [&](const VerifiedEntry&, bool&) { ++count; },
      ProgressBlock([](std::uint64_t bytes) { return bytes < 2; }));
  EXPECT_EQ(count, 1);
}

#ifdef HAS_CHECKSUMS
TEST(Checksums, AreThoseOfTheirDefinitions) {
  const TemporaryFolder folder;
  const auto file = folder.file("abc", "abc");
  const std::pair<const ChecksumKind*, const char*> rows[] = {
      {&xxh64, "44bc2cf5ad770999"},
      {&xxh3, "06b05ab6733a618578af5f94892f3950"},
      {&md5, "900150983cd24fb0d6963f7d28e17f72"},
      {&sha1, "a9993e364706816aba3e25717850c26c9cd0d89d"},
      {&sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
  };
  for (const auto& [kind, text] : rows) EXPECT_EQ(checksumOfFile(file, *kind), text) << kind->name;
}
#endif

}  // namespace
}  // namespace quillonic::offload
