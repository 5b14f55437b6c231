#include <quillonic/filesystem/expanded_attributes.hpp>
#include <quillonic/selection.hpp>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "private_process.hpp"
#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic::selection {
namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): names of units
namespace fs = std::filesystem;

// A Sunday, and the last day of clocks of summer.
const sys_seconds now = sys_days(2026y / 10 / 25) + 11h;

Selector selectorOf(std::string_view text) {
  const auto zone = TimeZone::fromName("CET-1CEST,M3.5.0,M10.5.0/3");
  return Selector(Criterion::fromText(text).value(), Calendar(*zone), now);
}

char letterOf(Answer answer) {
  return answer == Answer::yes ? 'y' : answer == Answer::no ? 'n' : '?';
}

FileAttributes named(std::string_view name, FileType type = FileType::regular) {
  return {{FileAttributeKey::filePathName, std::string(name)}, {FileAttributeKey::NSFileType, type}};
}

TEST(Selector, ComparesNamesAsShellsDo) {
  const std::tuple<std::string_view, std::string_view, std::string_view> rows[] = {
      {"name *", "a .b", ""},
      {"name A*7.mov", "A7.mov A77.mov A17.mov7.mov", "A7.mo A8.mov xA7.mov A7.MOV"},
      {"iname A*.MÖV", "a.möv aX.MÖV", "b.möv"},
      {"iname ?.m*", "İ.mov é.MOV", "ab.mov"},
      {"iname İ", "i İ I", "ı"},
      {"name ?", "a é \xFF", "ab é́"},
      {"name [!a-c]", "d é", "a b c"},
      {"name []a-]x", "]x ax -x", "bx"},
      {"name [a-", "[a-", "a"},
      {"name [\\]]", "]", "a"},
      {"name \\*\\", "*\\", "a\\ *"},
      {"name [α-ω]", "β", "b"},
      {"name *a*b*c", "abc xaybzc aabbcc", "acb abcx"},
      {"extension mov", "a.MOV b.c.mov", ".mov mov a.mov.x amov"},
      {"extension tar.gz, ''", "x.TAR.GZ plain .hidden", "a.gz .tar.gz1"},
      {"kind video", "a.mov B.MXF", "a.wav .mov mov"},
      {"kind unlisted", "a a.zzz", "a.mov"},
      {"hidden", ".a", "a"},
  };
  for (const auto& [criterion, chosen, others] : rows) {
    const auto selector = selectorOf(criterion);
    for (const auto& name : split(chosen))
      EXPECT_EQ(selector.answer(named(name)), Answer::yes) << criterion << name;
    for (const auto& name : split(others)) {
      EXPECT_EQ(selector.answer(named(name)), Answer::no) << criterion << name;
    }
  }
  const std::string many(20'000, 'a');
  EXPECT_EQ(selectorOf("name *a*a*a*a*a*a*a*b").answer(named(many)), Answer::no);
}

TEST(Selector, ComparesDatesWithHalfOpenRanges) {
  const std::tuple<std::string_view, sys_seconds, sys_seconds> rows[] = {
      // The day of the change has 25 hours.
      {"today", sys_days(2026y / 10 / 24) + 22h, sys_days(2026y / 10 / 25) + 23h},
      {"this-week", sys_days(2026y / 10 / 18) + 22h, sys_days(2026y / 10 / 25) + 23h},
      {"last-2-days", sys_days(2026y / 10 / 23) + 22h, sys_days(2026y / 10 / 25) + 23h},
      {"last-48-hours", now - 48h, now + 1s},
      {"2026-10-25", sys_days(2026y / 10 / 24) + 22h, sys_days(2026y / 10 / 25) + 23h},
      {"since 2026-10-25T02:30 before 2026-10-25T03:00", sys_days(2026y / 10 / 25) + 30min,
       sys_days(2026y / 10 / 25) + 2h},
      {"since 1980-01-01 before 1980-01-01T00:00:02Z", sys_days(1979y / 12 / 31) + 23h,
       sys_days(1980y / 1 / 1) + 2s},
      {"2000-01-01 to 2000-01-31", sys_days(1999y / 12 / 31) + 23h, sys_days(2000y / 1 / 31) + 23h},
      {"before 1970-01-01T00:00Z", sys_days(1700y / 1 / 1), sys_seconds(0s)},
      {"since 2038-01-19T03:14:08Z", sys_seconds(seconds(1LL << 31)), sys_days(2262y / 1 / 1)},
  };
  for (const auto& [when, start, end] : rows) {
    const auto selector = selectorOf("modified " + std::string(when));
    const auto answer = [&](Date date) {
      return selector.answer({{FileAttributeKey::NSFileModificationDate, date}}) == Answer::yes;
    };
    EXPECT_TRUE(answer(start) && answer(end - 1ns)) << when;
    // Where a bound is absent the rows have one that dates do not reach.
    EXPECT_FALSE(start > Date::min() + 8760h * 50 && answer(start - 1ns)) << when;
    EXPECT_FALSE(end < Date::max() - 8760h && answer(end)) << when;
  }
}

TEST(Selector, NamesEachVolumeThatIsNotThereOnce) {
  const auto selector = selectorOf("(volume /nowhere or volume / or not volume /nowhere) and volume /gone");
  std::string places;
  for (const auto& [place, error] : selector.unseenVolumes()) {
    places += place.native() + (error == std::errc::no_such_file_or_directory ? " " : "?");
  }
  EXPECT_EQ(places, "/nowhere /gone ");
}

TEST(Selector, LeavesOpenWhatIsNotKnown) {
  auto attributes = named("clip.mov");
  attributes.set(FileAttributeKey::NSFileSize, std::uint64_t{1000});
  std::string answers;
  for (const auto* text :
       {"created today", "not created today", "created today and kind audio", "created today or kind video",
        "not (created today or kind video)", "size 1000 to 1000", "size > 1 kB", "accessed today",
        "volume /nowhere", "kind folder", "everything", "nothing"})
    answers += letterOf(selectorOf(text).answer(attributes));
  EXPECT_EQ(answers, "??nynyn??nyn");
  EXPECT_EQ(selectorOf("size < 1 MB").answer(named("folder", FileType::directory)), Answer::no);
}

// Writes down what a walk tells.
class Recorder : public WalkObserver {
 public:
  void chosen(const WalkItem& item, bool& stop) override {
    paths.emplace_back(item.path);
    stop = paths.size() == stopsAfter;
  }
  void undecided(const WalkItem& item) override { open.emplace_back(item.path); }
  void unread(std::string_view path, std::error_code error) override {
    missed.push_back(std::string(path) + ": " + error.message());
  }
  void progressed(const WalkSummary& soFar, bool& /*stop*/) override {
    EXPECT_GE(soFar.seen, last.seen);
    last = soFar;
  }

  std::size_t stopsAfter = 0;
  std::vector<std::string> paths;
  std::vector<std::string> open;
  std::vector<std::string> missed;
  WalkSummary last;
};

TEST(TreeWalk, ChoosesWhatPathsAndAttributesDo) {
  const TemporaryFolder root;
  for (const auto* file :
       {"b/2.mov", "b/10.MOV", "a.mov", "b.wav", "b/.c/5.mov", ".x.mov", "é.mov", "a b.xml"}) {
    root.file(file, std::string(fs::path(file).native().size() * 100, '.'));
  }
  root.link("link.mov", "a.mov");
  root.link("loop", ".");
  root.folder("folder.mov");
  fs::last_write_time(root / "a.mov", file_clock::from_sys(sys_seconds(sys_days(1980y / 1 / 1))));
  ExpandedAttributesReader reader;
  const std::string texts[] = {"",
                               "kind video",
                               "not kind video, folder",
                               "size > 600 B",
                               "kind file and size <= 600 or hidden",
                               "name *.mov",
                               "modified before 2000-01-01",
                               "hidden or not hidden",
                               "kind link",
                               "created since 1970-01-01",
                               "accessed since 1970-01-01",
                               "volume " + root.path().native(),
                               "volume /proc"};
  for (const auto& text : texts) {
    const auto selector = selectorOf(text);
    Recorder recorder;
    const auto summary =
        walkTree(root.path(), selector, {.seesHidden = true, .entersMountPoints = false}, recorder);
    std::vector<std::string> expected;
    for (const auto& entry : fs::recursive_directory_iterator(root.path())) {
      const auto attributes = reader.attributesOfItem(entry.path());
      const auto byPath = selector.answer(entry.path());
      // The date of access is no attribute.
      EXPECT_EQ(selector.answer(*attributes), text.starts_with("accessed") ? Answer::unknown : byPath)
          << text;
      if (byPath == Answer::yes) expected.push_back(entry.path());
    }
    // The order of walks: by names, a folder before what is in it.
    std::ranges::sort(expected, {}, [](const std::string& path) {
      auto components = path;
      std::ranges::replace(components, '/', '\x01');
      return components;
    });
    EXPECT_EQ(recorder.paths, expected) << text;
    EXPECT_EQ(summary.chosen, expected.size());
    EXPECT_EQ(summary.undecided, recorder.open.size());
    EXPECT_EQ(summary.seen, 13U) << text;
  }
}

TEST(TreeWalk, LeavesHiddenItemsOutUnlessTheyAreWanted) {
  const TemporaryFolder root;
  for (const auto* file : {"a", ".b/c", ".d"}) root.file(file);
  for (const auto& [text, seesHidden, seen] :
       {std::tuple("", false, 1U), {"", true, 4U}, {"kind file and not hidden", false, 4U}}) {
    Recorder recorder;
    EXPECT_EQ(walkTree(root.path(), selectorOf(text), {seesHidden, false}, recorder).seen, seen) << text;
  }
}

TEST(TreeWalk, GoesAsDeepAsFoldersDo) {
  const TemporaryFolder root;
  const auto before = fs::current_path();
  fs::current_path(root.path());
  constexpr int depth = 300;
  for (int i = 0; i < depth; ++i) {
    const std::string name(100, 'x');
    fs::create_directory("z" + name);
    fs::create_directory("zz" + name);
    fs::current_path("z" + name);
  }
  fs::current_path(before);
  Recorder recorder;
  EXPECT_EQ(
      walkTree(root.path(), selectorOf("name zz*"), {}, recorder),
      (WalkSummary{.seen = 2 * depth, .chosen = depth, .undecided = 0, .unread = 0, .isStopped = false}));
  EXPECT_TRUE(recorder.missed.empty());
  EXPECT_EQ(recorder.paths.back().size(), root.path().native().size() + 103);
}

TEST(TreeWalk, StopsAndTellsWhatItCannotRead) {
  const TemporaryFolder root;
  for (const auto* file : {"a", "b", "c"}) root.file(file);
  Recorder recorder;
  recorder.stopsAfter = 2;
  EXPECT_TRUE(walkTree(root.path(), selectorOf(""), {}, recorder).isStopped);
  EXPECT_EQ(recorder.paths.size(), 2U);

  Recorder none;
  EXPECT_EQ(walkTree(root / "d", selectorOf(""), {}, none).unread, 1U);
  EXPECT_EQ(walkTree(root / "a", selectorOf(""), {}, none).unread, 1U);
  EXPECT_EQ(walkTree("", selectorOf(""), {}, none).unread, 1U);
  EXPECT_EQ(none.missed[0], (root / "d").native() + ": " + std::system_category().message(ENOENT));
  // What the system's own files cannot tell is left open, not guessed.
  EXPECT_GT(walkTree("/proc/self/fdinfo", selectorOf("created today"), {}, none).undecided, 0U);
}

TEST(TreeWalk, AsksOnlyForWhatItNeeds) {
  const TemporaryFolder root;
  for (const auto* file : {"card/a.mov", "card/b.wav", "card/c.mov"}) root.file(file);
  fs::permissions(root.path(), fs::perms(0755));
  // The names and kinds can be read, but nothing more.
  fs::permissions(root / "card", fs::perms(0744));
  runPrivately([&] {
    becomeNobody();
    for (const auto& [text, chosen, unread] : {std::tuple("kind video", 2U, 0U),
                                               {"kind file and not name b*", 2U, 0U},
                                               {"size > 1 GB and kind audio", 0U, 1U}}) {
      Recorder recorder;
      const auto summary = walkTree(root / "card", selectorOf(text), {}, recorder);
      EXPECT_EQ(summary.chosen, chosen) << text;
      EXPECT_EQ(summary.unread, unread) << text;
    }
  });
}

TEST(TreeWalk, EntersMountedVolumesOnRequest) {
  const TemporaryFolder root;
  root.folder("card");
  runPrivately([&] {
    mountAt(root / "card");
    root.file("card/a.mov");
    for (const bool enters : {false, true}) {
      Recorder recorder;
      EXPECT_EQ(walkTree(root.path(), selectorOf(""), {false, enters}, recorder).seen, enters ? 2U : 1U);
      Recorder other;
      const auto elsewhere = selectorOf("not volume '" + root.path().native() + "'");
      EXPECT_EQ(walkTree(root.path(), elsewhere, {false, enters}, other).chosen, enters ? 2U : 1U);
    }
  });
}

}  // namespace
}  // namespace quillonic::selection
