#include "catalogue/name_pattern.hpp"

#include <algorithm>
#include <limits>
#include <utility>

namespace quillonic::catalogue {
namespace {

#include "catalogue/byte_sets_table.inc"

}  // namespace

bool fitsEnd(const Pattern& pattern, std::string_view name) noexcept {
  for (auto atom = pattern.atoms.rbegin(); atom != pattern.atoms.rend(); ++atom) {
    if (atom->isOptional || atom->repeats || name.empty()) break;
    if (!byteSets[atom->set].contains(static_cast<unsigned char>(ascii::raised(name.back())))) return false;
    name.remove_suffix(1);
  }
  return true;
}

PatternMatch::PatternMatch(const Pattern& pattern) : pattern_(&pattern), ways_(1) {}

bool PatternMatch::canEndAfter(std::size_t taken) const noexcept {
  return std::ranges::all_of(pattern_->atoms.subspan(taken), &Atom::isOptional);
}

// Of two ways to one atom, the one that was found first stays: the earliest repetition takes most.
void PatternMatch::take(const Way& way, std::size_t atom, std::uint64_t& reached) {
  const auto bit = std::uint64_t{1} << atom;
  if ((reached & bit) != 0) return;
  reached |= bit;
  auto& next = next_.emplace_back(way);
  next.taken = static_cast<std::uint8_t>(atom + 1);
  const auto begun = way.taken == 0 ? 0U : pattern_->atoms[way.taken - 1U].segment + 1U;
  for (auto segment = begun; segment <= pattern_->atoms[atom].segment; ++segment)
    next.starts[segment] = length_;
}

bool PatternMatch::feed(std::string_view text) {
  const auto atoms = pattern_->atoms;
  for (const char c : text) {
    if (ways_.empty()) return false;
    if (length_ == std::numeric_limits<std::uint16_t>::max()) ways_.clear();
    const auto byte = static_cast<unsigned char>(ascii::raised(c));
    std::uint64_t reached = 0;
    next_.clear();
    for (const auto& way : ways_) {
      const std::size_t last = way.taken;
      if (last > 0 && atoms[last - 1].repeats && byteSets[atoms[last - 1].set].contains(byte))
        take(way, last - 1, reached);
      for (auto atom = last; atom < atoms.size(); ++atom) {
        if (byteSets[atoms[atom].set].contains(byte)) take(way, atom, reached);
        if (!atoms[atom].isOptional) break;
      }
    }
    std::swap(ways_, next_);
    ++length_;
  }
  return !ways_.empty();
}

bool PatternMatch::isWhole() const noexcept {
  return std::ranges::any_of(ways_, [&](const Way& way) { return canEndAfter(way.taken); });
}

std::array<std::size_t, PatternMatch::greatestSegmentCount + 1> PatternMatch::bounds() const noexcept {
  const auto way = std::ranges::find_if(ways_, [&](const Way& each) { return canEndAfter(each.taken); });
  std::array<std::size_t, greatestSegmentCount + 1> found{};
  found.fill(length_);
  if (way == ways_.end()) return found;
  const auto begun = way->taken == 0 ? 0U : pattern_->atoms[way->taken - 1U].segment + 1U;
  std::copy_n(way->starts.begin(), begun, found.begin());
  return found;
}

bool matches(const Pattern& pattern, std::string_view name) {
  PatternMatch match(pattern);
  return match.feed(name) && match.isWhole();
}

bool matchesAny(std::span<const Pattern> patterns, std::string_view name) {
  return std::ranges::any_of(patterns, [&](const Pattern& pattern) { return matches(pattern, name); });
}

}  // namespace quillonic::catalogue
