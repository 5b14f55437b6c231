#include <quillonic/host/process_meter.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/rate_window.hpp"
#include "platform/processes_linux.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic::host {
namespace {

// What the system counts for a process, in the order of its lines.
constexpr auto countNames = std::to_array<std::string_view>(
    {"rchar: ", "wchar: ", "syscr: ", "syscw: ", "read_bytes: ", "write_bytes: "});

RateWindow<4>::Counts channels(const ProcessBytes& bytes) {
  return {bytes.readByCalls, bytes.writtenByCalls, bytes.readFromDrives, bytes.writtenToDrives};
}

std::optional<ProcessSpeeds> speedsOf(const RateWindow<4>& window) {
  const auto rates = window.rates();
  return rates ? std::optional(ProcessSpeeds{(*rates)[0], (*rates)[1], (*rates)[2], (*rates)[3]})
               : std::nullopt;
}

void add(ProcessBytes& sum, const ProcessBytes& bytes) {
  sum.readByCalls += bytes.readByCalls;
  sum.writtenByCalls += bytes.writtenByCalls;
  sum.readFromDrives += bytes.readFromDrives;
  sum.writtenToDrives += bytes.writtenToDrives;
}

}  // namespace

struct ProcessMeter::State {
  class Counts {
   public:
    static std::optional<Counts> fromText(std::string_view text) {
      Counts counts;
      for (std::size_t i = 0; i < countNames.size(); ++i) {
        const auto value = text::valueInLines(text, countNames[i]);
        const auto number = value ? number_text::read<std::uint64_t>(*value) : std::nullopt;
        if (!number) return std::nullopt;
        counts.values_[i] = *number;
      }
      return counts;
    }

    bool covers(const Counts& other) const {
      return std::ranges::equal(values_, other.values_, std::greater_equal<>());
    }
    Counts& operator+=(const Counts& other) {
      std::ranges::transform(values_, other.values_, values_.begin(), std::plus<>());
      return *this;
    }
    // A count that fell was not the same one, and did not grow.
    Counts operator-(const Counts& other) const {
      Counts difference;
      std::ranges::transform(values_, other.values_, difference.values_.begin(),
                             [](std::uint64_t a, std::uint64_t b) { return a - std::min(a, b); });
      return difference;
    }
    ProcessBytes bytes() const { return {values_[0], values_[1], values_[4], values_[5]}; }

   private:
    std::array<std::uint64_t, countNames.size()> values_{};
  };

  struct Followed {
    Followed(std::int32_t process, const Processes::Facts& facts, bool withChildren, Clock::duration length)
        : began(facts.began), includesChildren(withChildren), window(length) {
      activity.process = process;
      activity.parent = facts.parent;
    }

    bool hasEnded() const { return activity.answer == ProcessAnswer::ended; }
    // A parent never sorts after its child.
    auto order() const { return std::pair(began, activity.process); }

    ProcessActivity activity;
    std::uint64_t began;
    bool includesChildren;
    KeptFile file;
    Counts counts;
    // Those of the sample before.
    Counts earlier;
    // The part of the counts that others have counted before.
    Counts inherited;
    RateWindow<4> window;
  };

  State(const std::filesystem::path& root, Clock::duration window)
      : processes(root), length(window), totalWindow(window) {}

  Followed* find(std::int32_t process) {
    const auto found =
        std::ranges::find(followed, process, [](const Followed& f) { return f.activity.process; });
    return found != followed.end() ? &*found : nullptr;
  }

  Followed& insert(Followed&& process) {
    const auto place = std::ranges::upper_bound(followed, process.order(), {}, &Followed::order);
    return *followed.insert(place, std::move(process));
  }

  ProcessAnswer read(Followed& process) {
    const auto identifier = process.activity.process;
    if (!process.file.isOpen()) {
      process.file = processes.counts(identifier);
      // Another process may have got the identifier before the file was open, but not later.
      const auto facts = processes.factsOf(identifier);
      if (!facts || facts->began != process.began) return ProcessAnswer::ended;
    }
    const auto error = process.file.read(buffer);
    if (!error) {
      const auto counts = Counts::fromText(buffer);
      if (counts) process.counts = *counts;
      return counts ? ProcessAnswer::counted : ProcessAnswer::notKnown;
    }
    if (error.value() == ESRCH) return ProcessAnswer::ended;
    const bool isRefused = error.value() == EACCES || error.value() == EPERM;
    return isRefused ? ProcessAnswer::notAllowed : ProcessAnswer::notKnown;
  }

  // Follows the children that the last sample did not see.
  void discover() {
    if (std::ranges::none_of(followed, &Followed::includesChildren)) return;
    processes.list(listed);
    candidates.clear();
    auto known = seen.cbegin();
    for (const auto process : listed) {
      known = std::lower_bound(known, seen.cend(), process);
      if (known != seen.cend() && *known == process) continue;
      const auto facts = find(process) ? std::nullopt : processes.factsOf(process);
      if (facts) candidates.emplace_back(process, *facts);
    }
    std::swap(seen, listed);
    listed.reserve(seen.size());
    const auto isChild = [&](const auto& candidate) {
      const auto& [process, facts] = candidate;
      const auto* parent = find(facts.parent);
      if (!parent || !parent->includesChildren || parent->began > facts.began) return false;
      insert(Followed(process, facts, true, length));
      return true;
    };
    // A child may be listed before its parent.
    while (std::erase_if(candidates, isChild) > 0) continue;
  }

  // A parent is read before its children, and all are read again when one has ended: so the counts of a child
  // that still runs are not yet in those of its parent, and those of one that ended are.
  void readAll() {
    for (auto& process : followed) process.earlier = process.counts;
    for (bool isSettled = false; !isSettled;) {
      isSettled = true;
      for (auto& process : followed) {
        if (process.hasEnded()) continue;
        process.activity.answer = read(process);
        if (process.hasEnded()) isSettled = false;
      }
    }
  }

  // Finds who inherited the counts of a process that ended: the first of its ancestors whose own have grown
  // by as much. Nobody has where no one waited for it.
  void settle(const Followed& ended) {
    const auto* child = &ended;
    for (auto* heir = find(child->activity.parent); heir; heir = find(child->activity.parent)) {
      // Another process has the parent's identifier.
      if (heir->order() >= child->order()) return;
      const auto growth = heir->counts - heir->earlier;
      if (growth.covers(ended.counts)) {
        heir->inherited += ended.counts;
        // What has been found is not found again for the next one.
        heir->earlier += ended.counts;
        return;
      }
      if (!heir->hasEnded()) return;
      child = heir;
    }
  }

  void sample(Clock::time_point now) {
    std::erase_if(followed, std::mem_fn(&Followed::hasEnded));
    discover();
    readAll();
    for (const auto& process : followed) {
      if (!process.hasEnded()) continue;
      settle(process);
      for (auto& child : followed) {
        if (child.activity.parent != process.activity.process || child.hasEnded()) continue;
        if (const auto facts = processes.factsOf(child.activity.process))
          orphans.emplace_back(&child, facts->parent);
      }
    }
    for (const auto& [child, parent] : orphans) child->activity.parent = parent;
    orphans.clear();

    shown.clear();
    total = ofEnded;
    for (auto& process : followed) {
      const auto isKnown = process.hasEnded() || process.activity.answer == ProcessAnswer::counted;
      const auto bytes = (process.counts - process.inherited).bytes();
      const auto before = channels(std::exchange(process.activity.bytes, bytes));
      const auto after = channels(bytes);
      for (std::size_t i = 0; i < after.size(); ++i) moved[i] += after[i] - before[i];
      process.window.add(now, after);
      process.activity.speeds = isKnown ? speedsOf(process.window) : std::nullopt;
      add(total, bytes);
      if (process.hasEnded()) add(ofEnded, bytes);
      shown.push_back(process.activity);
    }
    totalWindow.add(now, moved);
  }

  Processes processes;
  const Clock::duration length;
  std::vector<Followed> followed;
  std::vector<ProcessActivity> shown;
  ProcessBytes ofEnded;
  ProcessBytes total;
  // What was read and written while it was followed: without what came before, which would look like speed.
  RateWindow<4>::Counts moved{};
  RateWindow<4> totalWindow;
  // Processes of the last sample, in ascending order; and what is used again in each.
  std::vector<std::int32_t> seen;
  std::vector<std::int32_t> listed;
  std::vector<std::pair<std::int32_t, Processes::Facts>> candidates;
  std::vector<std::pair<Followed*, std::int32_t>> orphans;
  std::string buffer;
};

ProcessMeter::ProcessMeter(const std::filesystem::path& root, std::chrono::milliseconds window)
    : state_(std::make_unique<State>(root, window)) {}

ProcessMeter::~ProcessMeter() = default;

ProcessAnswer ProcessMeter::follow(std::int32_t process, Children children) {
  const bool isIncluded = children == Children::included;
  auto* followed = state_->find(process);
  if (followed && followed->hasEnded()) return ProcessAnswer::ended;
  if (!followed) {
    const auto facts = state_->processes.factsOf(process);
    if (!facts) {
      if (state_->processes.isHidden(process)) return ProcessAnswer::notAllowed;
      return state_->processes.areShown() ? ProcessAnswer::ended : ProcessAnswer::notKnown;
    }
    followed = &state_->insert(State::Followed(process, *facts, isIncluded, state_->length));
    followed->activity.answer = state_->read(*followed);
    followed->activity.bytes = followed->counts.bytes();
  }
  followed->includesChildren |= isIncluded;
  // Its children may be known from samples that did not look for them.
  state_->seen.clear();
  return followed->activity.answer;
}

void ProcessMeter::sample(Clock::time_point now) {
  state_->sample(now);
}

std::span<const ProcessActivity> ProcessMeter::processes() const noexcept {
  return state_->shown;
}

ProcessBytes ProcessMeter::total() const noexcept {
  return state_->total;
}

std::optional<ProcessSpeeds> ProcessMeter::totalSpeeds() const noexcept {
  return speedsOf(state_->totalWindow);
}

}  // namespace quillonic::host
