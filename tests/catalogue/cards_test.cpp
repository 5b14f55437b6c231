// The layouts of cards.txt, at any depth and in any case: what is found, and that nothing is lost.
#include <quillonic/catalogue.hpp>

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "temporary_folder.hpp"
#include "texts.hpp"

namespace quillonic::catalogue {
namespace {

namespace fs = std::filesystem;

// The name that one layout expects of a card's folder.
constexpr auto reel = "A001R1AB";

struct MadeCard {
  std::string layouts;
  std::vector<std::string> files;
  std::string clips;
  std::string left;
};

std::vector<MadeCard> madeCards() {
  std::vector<MadeCard> cards;
  std::istringstream text(contentOf(CARDS));
  for (std::string line; std::getline(text, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    if (!line.starts_with(' ')) {
      cards.push_back({line == "none" ? "" : line, {}, {}, {}});
      continue;
    }
    std::istringstream words(line);
    std::string word;
    std::string rest;
    words >> word;
    if (word == "in") {
      std::string folder;
      words >> folder;
      std::ranges::replace(folder, '%', ' ');
      for (std::string name; words >> name;)
        cards.back().files.push_back(folder == "=" ? name : folder + "/" + name);
    } else {
      std::getline(words >> std::ws, rest);
      auto& field = word == "clips" ? cards.back().clips : cards.back().left;
      field += (field.empty() ? "" : " ") + rest;
    }
  }
  return cards;
}

std::string lowered(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::string layoutsOf(const std::vector<Card>& cards) {
  return joined(cards, ' ', [](const Card& card) {
    constexpr const char* marks[] = {"?", "~", ""};
    return std::string(rawValue(card.layout)) + marks[static_cast<int>(card.confidence)];
  });
}

std::string clipsOf(const CardContents& contents) {
  return joined(contents.clips, ' ', [](const Clip& clip) {
    const auto essence = std::span(clip.files).first(clip.essenceCount());
    auto text = clip.name + ":" + std::string(rawValue(clip.kind)) + ":";
    text += clip.frames ? std::to_string(essence.size()) : joined(essence, '+', [](const ClipFile& file) {
      return fs::path(file.path).filename().native();
    });
    text += ":" + std::to_string(clip.files.size() - essence.size());
    for (const auto& problem : clip.problems) text += "!" + problem.subject;
    return text;
  });
}

// Every file in its one place, by path.
std::vector<std::string> placesOf(const CardContents& contents) {
  std::vector<std::string> all;
  for (const auto& clip : contents.clips) {
    for (const auto& file : clip.files) all.push_back(file.path);
  }
  for (const auto* files : {&contents.bookkeeping, &contents.other}) {
    for (const auto& file : *files) all.push_back(file.path);
  }
  std::ranges::sort(all);
  return all;
}

std::vector<std::string> itemsIn(const fs::path& folder) {
  std::vector<std::string> all;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory() || entry.is_symlink()) all.push_back(entry.path().lexically_relative(folder));
  }
  std::ranges::sort(all);
  return all;
}

TEST(Cards, AreFoundWithTheirClips) {
  std::set<std::string> met;
  for (const auto& made : madeCards()) {
    const TemporaryFolder folder;
    for (const auto& file : made.files) folder.file(fs::path(reel) / file);
    const auto contents = contentsOf(folder / reel);
    EXPECT_EQ(layoutsOf(contents.cards), made.layouts);
    EXPECT_EQ(clipsOf(contents), made.clips);
    EXPECT_EQ(std::to_string(contents.bookkeeping.size()) + " " + std::to_string(contents.other.size()),
              made.left);
    EXPECT_EQ(placesOf(contents), itemsIn(folder / reel)) << made.layouts;
    EXPECT_EQ(cardsIn(folder / reel).cards, contents.cards);
    for (const auto& clip : contents.clips)
      EXPECT_NE(clip.card.has_value(), contents.cards.empty()) << clip.name;
    for (const auto& card : contents.cards) met.emplace(rawValue(card.layout));
  }
  for (const auto layout : allCases<CardLayout>())
    EXPECT_TRUE(met.contains(std::string(rawValue(layout)))) << rawValue(layout);
}

TEST(Cards, AreFoundDownToTheThirdLevelInAnyCase) {
  for (const auto& made : madeCards()) {
    for (const std::string above : {"", "a/", "a/b/", "a/b/c/"}) {
      const TemporaryFolder folder;
      for (const auto& file : made.files) folder.file("card/" + above + reel + "/" + lowered(file));
      const auto contents = contentsOf(folder / "card");
      EXPECT_EQ(placesOf(contents), itemsIn(folder / "card")) << made.layouts << " in " << above;
      const bool isTooDeep = above == "a/b/c/";
      // Without markers, files tell wherever the search came by; and a recorder's folder is a level itself.
      const bool isByMarkers =
          !made.layouts.empty() && !contents.cards.empty() && !contents.cards[0].isByFiles;
      EXPECT_FALSE(isTooDeep && isByMarkers) << made.layouts;
      EXPECT_EQ(isTooDeep ? made.layouts : layoutsOf(contents.cards), made.layouts) << above;
    }
  }
}

TEST(Cards, NeedAllTheirMarkers) {
  const TemporaryFolder folder;
  for (const auto* file :
       {"CONTENTS/notes.txt", "Clip/C0001.MXF", "DCIM/IMG_0001.JPG", "PRIVATE/x", "Sound/take.wav"})
    folder.file(file);
  EXPECT_TRUE(cardsIn(folder.path()).cards.empty());
}

TEST(Cards, OfSeveralFamiliesAreListedTogether) {
  const TemporaryFolder folder;
  for (const auto* file : {"DCIM/100CANON/IMG_0001.CR3", "PRIVATE/M4ROOT/CLIP/C0001.MP4",
                           "b/DCIM/100GOPRO/GH010001.MP4", "c/A001_C001_0101AB_001.R3D"})
    folder.file(file);
  const auto cards = cardsIn(folder.path()).cards;
  EXPECT_EQ(layoutsOf(cards), "xavcS canonStills goPro red~");
  EXPECT_EQ(cards[2].root, "b");
  EXPECT_EQ(joined(cards[2].evidence), "DCIM/100GOPRO/");
  EXPECT_TRUE(cards[3].isByFiles);
}

std::string p2Clip(const std::string& id, const std::string& shot, int offset, const std::string& next) {
  return "<?xml version=\"1.0\"?><P2Main><ClipContent><GlobalClipID>" + id +
         "</GlobalClipID><Relation><OffsetInShot>" + std::to_string(offset) +
         "</OffsetInShot><GlobalShotID>" + shot + "</GlobalShotID><Connection>" +
         (next.empty() ? "" : "<Next><GlobalClipID>" + next + "</GlobalClipID></Next>") +
         "</Connection></Relation></ClipContent></P2Main>";
}

TEST(Cards, JoinP2ClipsOfOneShot) {
  const TemporaryFolder folder;
  for (const auto* name : {"0001AA", "0002BB", "0003CC"})
    folder.file("CONTENTS/VIDEO/" + std::string(name) + ".MXF");
  folder.file("CONTENTS/CLIP/0001AA.XML", p2Clip("id1", "shot", 500, "id4"));
  folder.file("CONTENTS/CLIP/0002BB.XML", p2Clip("id2", "shot", 0, "id1"));
  folder.file("CONTENTS/CLIP/0003CC.XML", p2Clip("id3", "other", 0, ""));
  EXPECT_EQ(clipsOf(contentsOf(folder.path())),
            "0002BB:video:0002BB.MXF+0001AA.MXF:2!id4 0003CC:video:0003CC.MXF:1");
}

TEST(Cards, JoinAvchdClipsByTheirPlayList) {
  const auto item = [](const std::string& clip, char condition) {
    return std::string("\0\x14", 2) + clip + "M2TS" + std::string(1, '\0') + condition + std::string(9, '\0');
  };
  // The first continues in the second; the third is its own clip.
  auto list = std::string("MPLS0100\0\0\0\x10\0\0\0\0\0\0\0\x60\0\0\0\x03\0\0", 26);
  list += item("00000", 1) + item("00001", 6) + item("00002", 5);
  for (const bool isWhole : {true, false}) {
    const TemporaryFolder folder;
    for (const auto* name : {"00000", "00001", "00002"}) {
      folder.file("AVCHD/BDMV/STREAM/" + std::string(name) + ".MTS");
      folder.file("AVCHD/BDMV/CLIPINF/" + std::string(name) + ".CPI");
    }
    folder.file("AVCHD/BDMV/PLAYLIST/00000.MPL", isWhole ? list : list.substr(0, 60));
    EXPECT_EQ(clipsOf(contentsOf(folder.path())),
              isWhole ? "00000:video:00000.MTS+00001.MTS:2 00002:video:00002.MTS:1"
                      : "00000:video:00000.MTS:1 00001:video:00001.MTS:1 00002:video:00002.MTS:1");
  }
}

TEST(Cards, KeepWhatIsHostile) {
  const TemporaryFolder folder;
  folder.file("DCIM/100GOPRO/GH010001.MP4", "1234");
  folder.file("DCIM/100GOPRO/gh010001.mp4");
  folder.file("DCIM/100GOPRO/\xFF\xFE.MP4");
  folder.file("DCIM/100GOPRO/._GH010001.MP4");
  folder.file(".DS_Store");
  folder.link("DCIM/100GOPRO/GH020001.MP4", "/etc/passwd");
  folder.link("DCIM/loop", "..");
  folder.file("locked/clip.mov");
  const auto items = itemsIn(folder.path());
  fs::permissions(folder / "locked", fs::perms::none);
  const auto contents = contentsOf(folder.path());
  const bool isRoot = contents.unread.empty();
  fs::permissions(folder / "locked", fs::perms::owner_all);
  if (!isRoot) {
    ASSERT_EQ(contents.unread.size(), 1U);
    EXPECT_EQ(contents.unread[0].path, "locked");
    EXPECT_EQ(contents.unread[0].error, std::errc::permission_denied);
  }
  EXPECT_EQ(placesOf(contents).size(), items.size() - (isRoot ? 0 : 1));
  EXPECT_EQ(joined(contents.problems, ' ', [](const Problem& each) { return rawValue(each.kind); }),
            "nameNotUtf8 differsByCaseOnly");
  EXPECT_EQ(joined(contents.other, ' ', &LooseFile::path),
            ".DS_Store DCIM/loop DCIM/100GOPRO/._GH010001.MP4 DCIM/100GOPRO/GH020001.MP4");
}

TEST(Cards, AreGivenInPartWhenStoppedOrPulled) {
  const TemporaryFolder folder;
  for (int i = 0; i < 50; ++i) folder.file("card/" + std::to_string(i) + "/clip.mov");
  std::size_t calls = 0;
  const auto stopped = contentsOf(folder.path(), [&](std::uint64_t count, bool& stop) {
    ++calls;
    stop = count > 60;
  });
  EXPECT_TRUE(stopped.isStopped);
  EXPECT_TRUE(stopped.clips.size() > 5 && stopped.clips.size() < 50);
  const auto pulled = contentsOf(folder / "card", {}, [&](std::uint64_t count, bool& /*stop*/) {
    if (count > 60) fs::remove_all(folder / "card");
  });
  EXPECT_EQ(pulled.clips.size() + pulled.unread.size(), 50U);
  EXPECT_FALSE(pulled.clips.empty() || pulled.unread.empty());
  const auto missing = contentsOf(folder / "missing");
  ASSERT_EQ(missing.unread.size(), 1U);
  EXPECT_EQ(missing.unread[0].error, std::errc::no_such_file_or_directory);
}

TEST(Cards, AreReadToADepthThatNoneHas) {
  // The walk comes back to what is beside each folder after all that is below it.
  const TemporaryFolder folder;
  std::string place;
  for (int depth = 1; depth <= 201; ++depth) {
    folder.file(place + "z/clip.mov");
    place += "d/";
  }
  const auto contents = contentsOf(folder.path());
  EXPECT_EQ(contents.clips.size(), 200U);
  ASSERT_EQ(contents.unread.size(), 1U);
  EXPECT_EQ(contents.unread[0].error, std::errc::filename_too_long);
}

TEST(Cards, TakeLinearTimeForHostileNames) {
  // Every layout compares these names; an engine that goes back would not end.
  const TemporaryFolder folder;
  for (const auto* place : {"Clip", "XDROOT/Clip", "CONTENTS/CLIPS001/AA0001", "DCIM/100GOPRO", "A.RDM/A.RDC",
                            "FALSETAKES", "TRASH"}) {
    for (char last = 'a'; last <= 'z'; ++last) {
      const auto beginning = last % 2 == 0 ? std::string(250, '_') : std::string(250, 'T');
      folder.file(fs::path(place) / (beginning + last + ".MX"), "");
    }
  }
  folder.file("MEDIAPRO.XML");
  folder.file("XDROOT/MEDIAPRO.XML");
  EXPECT_EQ(placesOf(contentsOf(folder.path())), itemsIn(folder.path()));
}

}  // namespace
}  // namespace quillonic::catalogue
