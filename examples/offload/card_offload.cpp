#include "card_offload.hpp"

#include <quillonic/checksums.hpp>
#include <quillonic/filesystem.hpp>
#include <quillonic/json.hpp>
#include <quillonic/media.hpp>
#include <quillonic/offload.hpp>
#include <quillonic/support/path_coding.hpp>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <unistd.h>

#include "child.hpp"

namespace fs = std::filesystem;
using namespace quillonic;

namespace {

// Reading one file overlaps with waiting for another.
constexpr int threadCount = 2;

std::atomic<bool> isInterrupted = false;

bool isTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

// One bar per target, each on its line.
class Bars {
 public:
  // How many bytes will be copied to and verified in each target.
  explicit Bars(std::vector<std::int64_t> wanted) : done_(wanted.size()), wanted_(std::move(wanted)) {}

  void add(const offload::OffloadProgress& progress) {
    const std::lock_guard lock(mutex_);
    done_[progress.target] += static_cast<std::int64_t>(progress.copied + progress.verified);
    if (!isTerminal()) return;
    const auto now = std::chrono::steady_clock::now();
    if (now - shown_ < std::chrono::milliseconds(100)) return;
    shown_ = now;
    show();
  }

  void end() {
    if (isTerminal()) show();
  }

 private:
  void show() {
    if (isShown_) std::cerr << "\033[" << done_.size() << 'A';
    isShown_ = true;
    for (std::size_t i = 0; i < done_.size(); ++i) {
      const auto part = wanted_[i] > 0 ? std::clamp<std::int64_t>(done_[i] * 40 / wanted_[i], 0, 40) : 40;
      const auto hashes = static_cast<std::size_t>(part);
      std::cerr << '[' << std::string(hashes, '#') << std::string(40 - hashes, '.') << "] " << part * 100 / 40
                << "%\033[K\n";
    }
  }

  std::mutex mutex_;
  std::vector<std::int64_t> done_;
  std::vector<std::int64_t> wanted_;
  std::chrono::steady_clock::time_point shown_;
  bool isShown_ = false;
};

// The files that earlier runs verified, from the lists beside them. A list that came from the card itself says
// nothing of the copies.
offload::HashList verifiedBefore(const offload::OffloadPlan& plan, const offload::PlannedTarget& target) {
  offload::HashList all;
  for (const auto& item : fs::directory_iterator(target.root)) {
    if (item.path().extension() != ".mhl" || !item.is_regular_file()) continue;
    const auto isItem = [&](const auto& planned) {
      return target.writtenPath(planned.path) == item.path().filename().native();
    };
    if (std::ranges::any_of(plan.items, isItem)) continue;
    std::ifstream file(item.path(), std::ios::binary);
    std::string text(item.file_size(), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    auto list = offload::HashList::fromText(text);
    if (list) {
      all.entries.reserve(all.entries.size() + list->entries.size());
      std::ranges::move((*std::move(list)).entries, std::back_inserter(all.entries));
    } else {
      std::cerr << item.path().native() << ": " << list.error().description() << '\n';
    }
  }
  return all;
}

bool isVideo(std::string_view path) {
  const auto extension = fileExtensionOfName(path.substr(path.rfind('/') + 1));
  return extension && isOfKind(*extension, FileKind::video);
}

// The list appears when it is whole.
void writeList(offload::HashList list, const fs::path& root, Date started) {
  const auto* user = std::getenv("USER");
  char host[256] = "";
  gethostname(host, sizeof host - 1);
  list.name = list.username = user ? user : "";
  list.hostname = host;
  list.tool = "offload_app";
  list.started = started;
  list.finished = std::chrono::system_clock::now();
  const auto path = FileManager().filePathAdjustedForCollision(root / (root.filename().native() + ".mhl"));
  child::PartFile part(path);
  std::ofstream file(part.path(), std::ios::binary);
  list.write([&](std::string_view piece) { file << piece; });
  file.close();
  const auto error = file ? part.finish(false) : std::make_error_code(std::errc::io_error);
  if (error) throw fs::filesystem_error("cannot write the list", path, error);
}

//! [report]
// What is not good, by item and target. What waits after a stop is only counted.
CodedList problemsOf(const offload::OffloadPlan& plan, const offload::OffloadReport& report) {
  CodedList problems;
  for (std::size_t item = 0; item < plan.items.size(); ++item) {
    for (std::size_t target = 0; target < plan.targets.size(); ++target) {
      const auto& copy = report.copy(item, target);
      const bool isFault =
          copy.state == offload::CopyState::failed || copy.state == offload::CopyState::unheld;
      if (!isFault && copy.unheld == Unheld()) continue;
      CodedRecord problem;
      problem.add("path", plan.items[item].path);
      problem.add("target", plan.targets[target].root);
      problem.add("state", std::string(rawValue(copy.state)));
      if (copy.error) problem.add("error", copy.error.message());
      if (copy.unheld != Unheld()) problem.add("unheld", std::int64_t{copy.unheld.rawValue()});
      problems.push_back(std::move(problem));
    }
  }
  return problems;
}
//! [report]

void print(const offload::OffloadPlan& plan, const offload::OffloadReport& report, bool asJson) {
  auto problems = problemsOf(plan, report);
  CodedList targets;
  for (std::size_t target = 0; target < plan.targets.size(); ++target) {
    CodedRecord counts;
    counts.add("root", plan.targets[target].root);
    for (const auto state : allCases<offload::CopyState>()) {
      const auto count = report.count(target, state);
      if (count != 0) counts.add(rawValue(state), static_cast<std::int64_t>(count));
    }
    targets.push_back(std::move(counts));
  }
  if (asJson) {
    CodedRecord result;
    result.add("good", report.isGood());
    result.add("targets", std::move(targets));
    result.add("problems", std::move(problems));
    std::cout << toJson(CodedValue(std::move(result))).dump(2) << '\n';
    return;
  }
  for (const auto* list : {&targets, &problems}) {
    for (const auto& row : *list) std::cout << toJson(row).dump() << '\n';
  }
}

}  // namespace

CardOffload offloadCard(const fs::path& card, const std::vector<fs::path>& targets, bool asJson,
                        Verification verification) {
  std::signal(SIGINT, [](int) {
    isInterrupted = true;
    std::signal(SIGINT, SIG_DFL);
  });
  const Date started = std::chrono::system_clock::now();
  const auto name = fs::canonical(card).filename();
  std::vector<fs::path> roots;
  for (const auto& target : targets) {
    roots.push_back(target / name);
    // Not the target itself, which may be a volume that is not mounted.
    fs::create_directory(roots.back());
  }
  offload::PlanOptions planning;
  std::int64_t allBytes = 0;
  planning.progress = [&](const offload::PlanProgress& progress) {
    allBytes = static_cast<std::int64_t>(progress.bytes);
    if (isTerminal() && progress.items % 1000 == 0) std::cerr << progress.items << " items\033[K\r";
    return !isInterrupted;
  };
  auto planned = offload::planOffload(card, roots, planning);

  const bool verifies = verification != Verification::none;
  offload::RunOptions options{
      .checksum = verifies ? &offload::xxh64 : nullptr, .verified = {}, .progress = {}};
  std::vector<std::int64_t> wanted;
  for (const auto& target : planned.targets) {
    auto& list = options.verified.emplace_back();
    if (verification == Verification::ofNewFiles) list = verifiedBefore(planned, target);
    const auto toVerify = list.entries.empty() ? allBytes : target.missingBytes;
    wanted.push_back(target.missingBytes + (verifies ? toVerify : 0));
    if (!target.fits())
      std::cerr << target.root << ": " << target.missingBytes - target.freeBytes << " bytes short\n";
  }
  Bars bars(std::move(wanted));
  options.progress = [&](const offload::OffloadProgress& progress) {
    bars.add(progress);
    return !isInterrupted;
  };

  offload::OffloadRun run(std::move(planned), std::move(options));
  {
    std::atomic<std::size_t> next = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < threadCount; ++i) {
      threads.emplace_back([&] {
        for (std::size_t step = next++; step < run.stepCount() && !isInterrupted; step = next++)
          run.run(step);
      });
    }
  }
  const auto& plan = run.plan();
  const auto& report = run.finish();
  if (isInterrupted) std::cerr << "stopped\n";
  const bool wasDone = std::ranges::all_of(
      report.copies, [](const auto& copy) { return copy.state == offload::CopyState::found; });
  if (!wasDone)
    bars.end();
  else if (isTerminal())
    std::cerr << "nothing to do: all " << plan.items.size() << " items are there\n";
  print(plan, report, asJson);
  CardOffload result{.isGood = report.isGood(), .newVideos = {}};
  for (std::size_t i = 0; verifies && i < plan.targets.size(); ++i) {
    auto list = offload::hashListOf(plan, report, i, offload::xxh64);
    if (!list.entries.empty()) writeList(std::move(list), plan.targets[i].root, started);
  }
  for (std::size_t i = 0; i < plan.items.size(); ++i) {
    const auto& path = plan.items[i].path;
    if (!report.copy(i, 0).isNew || plan.items[i].kind != offload::PlannedKind::file || !isVideo(path))
      continue;
    result.newVideos.push_back(fs::path(plan.targets[0].root) / plan.targets[0].writtenPath(path));
  }
  return result;
}
