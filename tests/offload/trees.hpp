// A card with what cards and volumes make hard, and what must hold of its copy.
#pragma once

#include <quillonic/filesystem.hpp>
#include <quillonic/offload.hpp>

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/stat.h>

#include "temporary_folder.hpp"

namespace quillonic {

namespace fs = std::filesystem;

inline fs::path oddCard(const TemporaryFolder& folder) {
  std::string noise(100'000, '\0');
  for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<char>(i * i >> 3);
  folder.file("card/DCIM/100/A001.mov", noise);
  folder.file("card/DCIM/100/a001.MOV", "another, but for case");
  folder.file("card/empty", "");
  folder.file("card/odd: name? .", "odd");
  folder.file("card/con.txt", "a device");
  folder.file("card/latin-\xe9", "not UTF-8");
  folder.file("card/e\u0301", "decomposed");
  folder.file("card/\u00e9", "composed");
  folder.file("card/" + std::string(250, 'l') + ".mov", "long");
  fs::resize_file(folder.file("card/sparse", "start"), 300'000);
  folder.folder("card/nothing/in here");
  folder.link("card/latest", "DCIM/100/A001.mov");
  folder.link("card/dangling", "nowhere");
  fs::create_hard_link(folder / "card/empty", folder / "card/second name");
  for (const auto& item : fs::recursive_directory_iterator(folder / "card")) {
    if (item.is_regular_file())
      fs::last_write_time(item, fs::file_time_type::clock::now() - std::chrono::hours(48));
  }
  return folder / "card";
}

// The access times of all files.
inline std::map<fs::path, std::pair<long, long>> accessTimes(const fs::path& folder) {
  std::map<fs::path, std::pair<long, long>> times;
  for (const auto& item : fs::recursive_directory_iterator(folder)) {
    struct stat status {};
    if (lstat(item.path().c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
      times[item.path()] = {status.st_atim.tv_sec, status.st_atim.tv_nsec};
    }
  }
  return times;
}

// Requires that each planned file that has its name in the target has its bytes too, and that it has its name
// if `isWhole`.
inline void expectOnlyWholeFiles(const offload::OffloadPlan& plan, std::size_t index, bool isWhole) {
  const auto& target = plan.targets[index];
  for (const auto& item : plan.items) {
    const auto copy = fs::path(target.root) / target.writtenPath(item.path);
    if (item.kind != offload::PlannedKind::file && item.kind != offload::PlannedKind::hardName) continue;
    const bool isThere = fs::exists(fs::symlink_status(copy));
    EXPECT_TRUE(isThere || !isWhole) << copy;
    if (!isThere) continue;
    const auto source = fs::path(plan.source) / item.path;
    EXPECT_TRUE(contentOf(copy) == contentOf(source)) << copy;
    const offload::CopyMatchOptions options{.volume = target.volume};
    const auto match =
        offload::matchOfCopy(*expandedAttributesOfItem(source), *expandedAttributesOfItem(copy), options);
    EXPECT_TRUE(match.level == MatchLevel::full || target.writtenPaths.contains(item.path)) << copy;
  }
}

inline const offload::OffloadReport& runAll(offload::OffloadRun& run) {
  for (std::size_t step = 0; step < run.stepCount(); ++step) run.run(step);
  return run.finish();
}

inline std::size_t partialCount(const fs::path& folder) {
  std::size_t count = 0;
  for (const auto& item : fs::recursive_directory_iterator(folder)) {
    if (item.path().extension() == ".partial") ++count;
  }
  return count;
}

}  // namespace quillonic
