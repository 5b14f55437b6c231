// How cards tell which of their clips continue each other.
#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "catalogue/clip_draft.hpp"
#include "text/number_text.hpp"

namespace quillonic::catalogue {
namespace {

// Far more than cards write.
constexpr std::size_t greatestDescriptionSize = std::size_t{1024} * 1024;

// Moves a clip's files to the one that it continues.
void join(Draft& draft, Draft& continued, std::size_t span) {
  for (auto& each : draft.files) {
    each.span = span;
    continued.files.push_back(std::move(each));
  }
  std::ranges::move(draft.problems, std::back_inserter(continued.problems));
  draft.isJoined = true;
}

// The whole of a card's own file; nothing, and missed, if it cannot be read.
std::optional<std::string> contentOf(FolderTree::Index file, FolderTree& tree) {
  auto bytes = tree.firstBytes(file, greatestDescriptionSize);
  const bool isCut = bytes && bytes->size() == greatestDescriptionSize;
  if (isCut) bytes = items::systemError(std::errc::file_too_large);
  if (!bytes) tree.miss(file, bytes.error());
  return std::move(bytes).asOptional();
}

// The text of the first element of a name, which machines write without attributes; empty when there is none.
std::string_view elementText(std::string_view xml, const std::string& name) noexcept {
  const auto begin = xml.find("<" + name + ">");
  if (begin == std::string_view::npos) return {};
  const auto text = xml.substr(begin + name.size() + 2);
  const auto end = text.find("</" + name + ">");
  return end == std::string_view::npos ? std::string_view() : text.substr(0, end);
}

struct P2Description {
  std::size_t draft;
  std::string clip;
  std::string shot;
  std::uint64_t offset;
  // The clips before and after it; empty when there is none.
  std::array<std::string, 2> neighbours;
};

std::optional<P2Description> descriptionOf(std::size_t number, const Draft& draft, FolderTree& tree) {
  const auto isXml = [](const DraftFile& each) { return endsInCapitals(each.file.path, ".XML"); };
  const auto file = std::ranges::find_if(draft.files, isXml);
  if (file == draft.files.end()) return std::nullopt;
  const auto bytes = contentOf(file->item, tree);
  if (!bytes) return std::nullopt;
  const auto relation = elementText(*bytes, "Relation");
  const auto neighbour = [&](const char* name) {
    return std::string(elementText(elementText(relation, name), "GlobalClipID"));
  };
  return P2Description{
      .draft = number,
      .clip = std::string(elementText(*bytes, "GlobalClipID")),
      .shot = std::string(elementText(relation, "GlobalShotID")),
      .offset = number_text::read<std::uint64_t>(elementText(relation, "OffsetInShot")).value_or(0),
      .neighbours = {neighbour("Previous"), neighbour("Next")}};
}

constexpr std::uint32_t bigEndian(std::string_view bytes) noexcept {
  std::uint32_t number = 0;
  for (const char c : bytes) number = number << 8U | static_cast<unsigned char>(c);
  return number;
}

struct PlayItem {
  std::string clip;
  // 6 for one that continues the item before.
  unsigned condition;
};

// The items of a play list; those before the first that is cut short.
std::vector<PlayItem> playItems(std::string_view bytes) {
  std::vector<PlayItem> items;
  if (!bytes.starts_with("MPLS") || bytes.size() < 12) return items;
  const auto start = bigEndian(bytes.substr(8, 4));
  if (start > bytes.size() || bytes.size() - start < 10) return items;
  auto rest = bytes.substr(start);
  auto count = bigEndian(rest.substr(6, 2));
  rest.remove_prefix(10);
  constexpr std::size_t least = 13;
  for (; count > 0 && rest.size() >= least; --count) {
    const auto length = bigEndian(rest.substr(0, 2)) + 2U;
    if (length < least || length > rest.size()) break;
    items.push_back({std::string(rest.substr(2, 5)), static_cast<unsigned char>(rest[12]) & 0xFU});
    rest.remove_prefix(length);
  }
  return items;
}

}  // namespace

void joinGoProChapters(std::deque<Draft>& drafts) {
  struct Chapters {
    Draft* whole;
    std::uint64_t last;
  };
  std::map<std::tuple<std::optional<std::size_t>, std::string, char>, Chapters> earlier;
  for (auto& draft : drafts) {
    if (!draft.row || draft.row->layout != CardLayout::goPro) continue;
    std::vector<std::uint64_t> numbers;
    char counts = ' ';
    for (const auto& each : draft.files) {
      if (each.file.role != ClipRole::video) continue;
      numbers.push_back(*each.file.number);
      counts = each.counts;
    }
    if (numbers.empty()) continue;
    const auto [first, last] = std::ranges::minmax(numbers);
    auto& [whole, end] = earlier[{draft.card, draft.name, counts}];
    // Another clip of the number has a first chapter of its own.
    if (whole && first == end + 1) {
      join(draft, *whole, 0);
    } else {
      whole = &draft;
    }
    end = last;
  }
}

void joinP2Spans(std::deque<Draft>& drafts, FolderTree& tree) {
  std::map<std::string, std::vector<P2Description>> shots;
  std::set<std::string> clips;
  for (std::size_t i = 0; i < drafts.size(); ++i) {
    if (!drafts[i].row || drafts[i].row->layout != CardLayout::p2) continue;
    auto found = descriptionOf(i, drafts[i], tree);
    if (!found || found->shot.empty()) continue;
    clips.insert(found->clip);
    auto& parts = shots[found->shot];
    parts.push_back(*std::move(found));
  }
  for (auto& [shot, parts] : shots) {
    std::ranges::stable_sort(parts, {}, &P2Description::offset);
    auto& whole = drafts[parts.front().draft];
    std::set<std::string> missing;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      // The rest of a shot may be on another card.
      for (const auto& neighbour : parts[i].neighbours) {
        // The clips before and after it both name it.
        if (!neighbour.empty() && !clips.contains(neighbour) && missing.insert(neighbour).second)
          whole.problems.push_back({ProblemKind::missingPart, neighbour});
      }
      if (i > 0) join(drafts[parts[i].draft], whole, i);
    }
  }
}

void joinAvchdSpans(std::deque<Draft>& drafts, FolderTree& tree, const std::vector<PlayList>& playLists) {
  std::map<std::pair<std::optional<std::size_t>, std::string>, std::size_t> byName;
  for (std::size_t i = 0; i < drafts.size(); ++i) {
    if (drafts[i].row && drafts[i].row->layout == CardLayout::avchd)
      byName[{drafts[i].card, drafts[i].name}] = i;
  }
  for (const auto& playList : playLists) {
    const auto bytes = contentOf(playList.item, tree);
    if (!bytes) continue;
    std::optional<std::size_t> whole;
    std::size_t span = 0;
    for (const auto& item : playItems(*bytes)) {
      const auto found = byName.find({playList.card, item.clip});
      const bool continues = item.condition == 6;
      if (found == byName.end()) {
        if (continues && whole) drafts[*whole].problems.push_back({ProblemKind::missingPart, item.clip});
      } else if (!continues || !whole) {
        if (!drafts[found->second].isJoined) whole = found->second;
        span = 0;
      } else if (found->second != *whole && !drafts[found->second].isJoined) {
        join(drafts[found->second], drafts[*whole], ++span);
      }
    }
  }
}

}  // namespace quillonic::catalogue
