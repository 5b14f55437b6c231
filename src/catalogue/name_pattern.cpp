#include "catalogue/name_pattern.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "text/number_text.hpp"

namespace quillonic::catalogue {
namespace {

#include "catalogue/byte_sets_table.inc"

}  // namespace

std::optional<std::size_t> fixedEnd(const Pattern& pattern, std::string_view name) noexcept {
  std::size_t count = 0;
  for (auto i = pattern.atoms.size(); i-- > 0;) {
    const auto& atom = pattern.atoms[i];
    if (atom.isOptional || atom.repeats || count == name.size()) break;
    ++count;
    const auto byte = static_cast<unsigned char>(ascii::raised(name[name.size() - count]));
    if (!byteSets[atom.set].contains(byte)) return std::nullopt;
  }
  return count;
}

PatternMatch::PatternMatch(const Pattern& pattern) : pattern_(&pattern), ways_(1) {}

// Notes where the segments that an atom begins do so.
void PatternMatch::go(Way& way, std::size_t atom, std::size_t at) const noexcept {
  const auto atoms = pattern_->atoms;
  const auto begun = way.taken == 0 ? 0U : atoms[way.taken - 1U].segment + 1U;
  for (auto segment = begun; segment <= atoms[atom].segment; ++segment)
    way.starts[segment] = static_cast<std::uint16_t>(at);
  way.taken = static_cast<std::uint16_t>(atom + 1);
}

bool PatternMatch::feed(std::string_view text) {
  const auto atoms = pattern_->atoms;
  if (text.size() > std::size_t{std::numeric_limits<std::uint16_t>::max()} - length_) ways_.clear();
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(ascii::raised(c));
    // Of two ways to one atom, the one that was found first stays: the earliest repetition takes most.
    std::uint64_t reached = 0;
    next_.clear();
    for (const auto& way : ways_) {
      const std::size_t next = way.taken;
      const bool canRepeat = next > 0 && atoms[next - 1].repeats;
      for (auto atom = canRepeat ? next - 1 : next; atom < atoms.size(); ++atom) {
        const auto bit = std::uint64_t{1} << atom;
        if ((reached & bit) == 0 && byteSets[atoms[atom].set].contains(byte)) {
          reached |= bit;
          next_.push_back(way);
          if (atom >= next) go(next_.back(), atom, length_);
        }
        if (atom >= next && !atoms[atom].isOptional) break;
      }
    }
    std::swap(ways_, next_);
    if (ways_.empty()) return false;
    ++length_;
  }
  return !ways_.empty();
}

std::optional<PatternMatch::Bounds> PatternMatch::finish(std::string_view name, std::size_t fixed) {
  if (!feed(name.substr(0, name.size() - fixed))) return std::nullopt;
  const auto head = pattern_->atoms.size() - fixed;
  const auto atoms = pattern_->atoms.first(head);
  const auto way = std::ranges::find_if(ways_, [&](const Way& each) {
    return each.taken <= head && std::ranges::all_of(atoms.subspan(each.taken), &Atom::isOptional);
  });
  if (way == ways_.end()) return std::nullopt;
  for (std::size_t i = 0; i < fixed; ++i) go(*way, head + i, length_ + i);
  Bounds bounds;
  bounds.fill(length_ + fixed);
  const auto begun = way->taken == 0 ? 0U : pattern_->atoms[way->taken - 1U].segment + 1U;
  std::copy_n(way->starts.begin(), begun, bounds.begin());
  return bounds;
}

Captured captured(const Pattern& pattern, const PatternMatch::Bounds& bounds, std::string_view folder,
                  std::string_view name) {
  Captured found;
  const auto segments = pattern.segments;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const auto inFolder = [&](std::size_t at) { return std::min(at, folder.size()); };
    const auto inName = [&](std::size_t at) { return at - inFolder(at); };
    const auto above = folder.substr(inFolder(bounds[i]), inFolder(bounds[i + 1]) - inFolder(bounds[i]));
    const auto text = name.substr(inName(bounds[i]), inName(bounds[i + 1]) - inName(bounds[i]));
    if (segments[i] == 'k') found.key.append(above).append(text);
    if (segments[i] == 'f') found.folder.append(above).append(text);
    if (segments[i] == 'p' || segments[i] == 'z' || segments[i] == 'o') {
      found.counts = segments[i];
      found.number = number_text::read<std::uint64_t>(text);
      // The first part often has no number.
      if (text.empty()) found.number = segments[i] == 'p' ? 1 : 0;
    }
  }
  return found;
}

bool matches(const Pattern& pattern, std::string_view name) {
  const auto fixed = fixedEnd(pattern, name);
  return fixed && PatternMatch(pattern).finish(name, *fixed);
}

bool matchesAny(std::span<const Pattern> patterns, std::string_view name) {
  return std::ranges::any_of(patterns, [&](const Pattern& pattern) { return matches(pattern, name); });
}

}  // namespace quillonic::catalogue
