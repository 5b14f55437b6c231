#include "card_offload.hpp"

#include <quillonic/checksums.hpp>
#include <quillonic/json.hpp>
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
#include <iterator>
#include <mutex>
#include <string>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace quillonic;

namespace {

// Reading one file overlaps with waiting for another.
constexpr int threadCount = 2;

std::atomic<bool> isInterrupted = false;

// One bar per target, each on its line.
class Bars {
 public:
  explicit Bars(const offload::OffloadPlan& plan) : done_(plan.targets.size()) {
    // Every byte is written and read back.
    for (const auto& target : plan.targets) wanted_.push_back(2 * target.missingBytes);
  }

  void add(const offload::OffloadProgress& progress) {
    const std::lock_guard lock(mutex_);
    done_[progress.target] += static_cast<std::int64_t>(progress.copied + progress.verified);
    if (!isTerminal_) return;
    const auto now = std::chrono::steady_clock::now();
    if (now - shown_ < std::chrono::milliseconds(100)) return;
    shown_ = now;
    show();
  }

  void end() {
    if (isTerminal_) show();
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
  bool isTerminal_ = isatty(STDERR_FILENO) == 1;
  bool isShown_ = false;
};

// The files that earlier runs verified, from the lists beside them.
offload::HashList verifiedBefore(const fs::path& root) {
  offload::HashList all;
  for (const auto& item : fs::directory_iterator(root)) {
    if (item.path().extension() != ".mhl") continue;
    std::ifstream file(item.path(), std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const auto list = offload::HashList::fromText(text);
    if (list) {
      std::ranges::copy(list->entries, std::back_inserter(all.entries));
    } else {
      std::cerr << item.path().native() << ": " << list.error().description() << '\n';
    }
  }
  return all;
}

void writeList(offload::HashList list, const fs::path& root, Date started) {
  const auto* user = std::getenv("USER");
  char host[256] = "";
  gethostname(host, sizeof host - 1);
  list.name = list.username = user ? user : "";
  list.hostname = host;
  list.tool = "offload_app";
  list.started = started;
  list.finished = std::chrono::system_clock::now();
  const auto path = offload::createFileAtFreeName(root / (root.filename().native() + ".mhl"));
  std::ofstream(path, std::ios::binary) << list.text();
}

//! [report]
// What is not good, by item and target.
CodedList problemsOf(const offload::OffloadPlan& plan, const offload::OffloadReport& report) {
  CodedList problems;
  for (std::size_t item = 0; item < plan.items.size(); ++item) {
    for (std::size_t target = 0; target < plan.targets.size(); ++target) {
      const auto& copy = report.copy(item, target);
      const bool isThere = copy.state != offload::CopyState::failed &&
                           copy.state != offload::CopyState::unheld &&
                           copy.state != offload::CopyState::waiting;
      if (isThere && copy.unheld == Unheld()) continue;
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
                        bool verifies) {
  const Date started = std::chrono::system_clock::now();
  const auto name = fs::canonical(card).filename();
  std::vector<fs::path> roots;
  for (const auto& target : targets) {
    roots.push_back(target / name);
    fs::create_directories(roots.back());
  }
  const auto plan = offload::planOffload(card, roots);
  offload::RunOptions options{
      .checksum = verifies ? &offload::xxh64 : nullptr, .verified = {}, .progress = {}};
  for (std::size_t i = 0; i < plan.targets.size(); ++i) {
    const auto& target = plan.targets[i];
    options.verified.push_back(verifiedBefore(target.root));
    if (!target.fits())
      std::cerr << target.root << ": " << target.missingBytes - target.freeBytes << " bytes short\n";
  }
  Bars bars(plan);
  options.progress = [&](const offload::OffloadProgress& progress) {
    bars.add(progress);
    return !isInterrupted;
  };
  std::signal(SIGINT, [](int) { isInterrupted = true; });

  offload::OffloadRun run(plan, options);
  {
    std::atomic<std::size_t> next = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < threadCount; ++i) {
      threads.emplace_back([&] {
        for (std::size_t step = next++; step < run.stepCount(); step = next++) run.run(step);
      });
    }
  }
  const auto& report = run.finish();
  bars.end();
  CardOffload result;
  result.isGood = report.isGood();
  for (std::size_t i = 0; verifies && i < plan.targets.size(); ++i) {
    auto list = offload::hashListOf(plan, report, i, *options.checksum);
    if (i == 0) {
      for (const auto& entry : list.entries)
        result.newFiles.push_back(fs::path(plan.targets[i].root) / entry.file);
    }
    if (!list.entries.empty()) writeList(std::move(list), plan.targets[i].root, started);
  }
  print(plan, report, asJson);
  return result;
}
