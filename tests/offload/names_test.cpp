#include <quillonic/offload.hpp>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

#include "temporary_folder.hpp"

namespace quillonic::offload {
namespace {

using Names = std::vector<std::string>;

TEST(WrittenNames, AreLegalOnTheirVolumes) {
  const std::string longName(300, 'n');
  struct Row {
    const char* kind;
    std::string name, written;
  };
  const Row rows[] = {
      {"exfat", "take: 1?.mov", "take_ 1_.mov"},
      {"vfat", "ends with. .", "ends with___"},
      {"ntfs", "CoM1.tar.gz", "CoM1_.tar.gz"},
      {"exfat", "tab\tand\x7f", "tab_and_"},
      {"fuseblk", "a:b", "a_b"},
      {"fuse", "a:b", "a:b"},
      {"exfat", "latin-\xe9", "latin-_"},
      {"ext4", "latin-\xe9: con. ", "latin-\xe9: con. "},
      {"hfsplus", "a:b?", "a_b?"},
      {"ltfs", "\u00e9 a:b*", "_ a:b_"},
      {"ntfs", "", "_"},
      {"ext4", "..", "__"},
      {"ext4", longName + ".mov", longName.substr(0, 251) + ".mov"},
      // Two units of UTF-16 and four bytes each.
      {"exfat", std::string(4 * 130, '\0'), ""},
  };
  for (auto [kind, name, written] : rows) {
    for (std::size_t at = 0; written.empty() && at < name.size(); at += 4) name.replace(at, 4, "\U0001F3A5");
    if (written.empty()) written = name.substr(0, std::size_t{4} * 127);
    EXPECT_EQ(writtenName(name, kind), written) << kind << ' ' << name;
  }
}

TEST(WrittenNames, AreUniqueAndStayAsTheyAre) {
  EXPECT_EQ(writtenNames(Names{"a?", "A*", "a_", "e\u0301", "\u00c9"}, "exfat"),
            (Names{"a_ 2", "A_ 3", "a_", "e\u0301", "\u00c9 2"}));
  EXPECT_EQ(writtenNames(Names{"a", "A"}, "ext4"), (Names{"a", "A"}));
  std::mt19937 random(25);
  constexpr std::string_view pieces[] = {"a",      "A",       ".",    " ",  "?", ":", "con",
                                         "\u00e9", "e\u0301", "\xff", "\t", "_", "2"};
  for (const auto* kind : {"vfat", "ntfs", "ext4", "ltfs", "hfsplus"}) {
    Names names;
    for (int i = 0; i < 1000; ++i) {
      std::string name;
      for (auto left = random() % 6; left > 0; --left) name += pieces[random() % std::size(pieces)];
      names.push_back(i % 50 == 0 ? name + std::string(260, 'x') : name);
    }
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    const auto written = writtenNames(names, kind);
    // Written to the same volume again, they need no other names.
    EXPECT_EQ(writtenNames(written, kind), written) << kind;
  }
}

// Each process takes as many names as it can of the same kinds.
TEST(FreeNames, AreTakenByOneProcessOnly) {
  const TemporaryFolder folder;
  constexpr int processes = 4;
  constexpr int each = 25;
  for (int process = 0; process < processes; ++process) {
    if (fork() != 0) continue;
    std::ofstream own(folder / ("list" + std::to_string(process)));
    for (int i = 0; i < each; ++i) {
      own << createFileAtFreeName(folder / "clip.mov").native() << '\n';
      own << createFolderAtFreeName(folder / "clip").native() << '\n';
      const std::string extensions[] = {"mov", process % 2 == 0 ? "xml" : "a"};
      for (const auto& [extension, path] : createFilesAtFreeNames(folder.path(), "take", extensions)) {
        own << path.native() << '\n';
      }
    }
    own.close();
    _exit(0);
  }
  for (int process = 0; process < processes; ++process) wait(nullptr);
  std::multiset<std::string> all;
  for (int process = 0; process < processes; ++process) {
    std::ifstream list(folder / ("list" + std::to_string(process)));
    for (std::string line; std::getline(list, line);) all.insert(line);
  }
  EXPECT_EQ(all.size(), std::size_t{processes * each * 4});
  EXPECT_EQ(std::set(all.begin(), all.end()).size(), all.size());
  const auto items = std::distance(std::filesystem::directory_iterator(folder.path()), {});
  EXPECT_EQ(static_cast<std::size_t>(items), all.size() + processes);
}

}  // namespace
}  // namespace quillonic::offload
