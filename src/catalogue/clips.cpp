#include <quillonic/catalogue/clip.hpp>
#include <quillonic/catalogue/identification.hpp>
#include <quillonic/media/media_format.hpp>
#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <deque>
#include <functional>
#include <unordered_map>
#include <utility>

#include "catalogue/card_search.hpp"
#include "catalogue/clip_draft.hpp"
#include "catalogue/folder_tree.hpp"
#include "catalogue/image_sequences.hpp"
#include "catalogue/layouts.hpp"
#include "text/ascii.hpp"

namespace quillonic::catalogue {
namespace {

using Index = FolderTree::Index;

// A clip with its description, proxy and thumbnail.
constexpr std::size_t usualFileCount = 4;

// A rule's patterns, matched as far as the folder that is visited.
struct OpenRule {
  RuleRole role;
  PatternMatch match;
};

// A card around the folder that is visited.
struct OpenCard {
  std::size_t card;
  const LayoutRow* row;
  // The folder's path from the card's root, with a trailing slash unless it is empty.
  std::string path;
  std::vector<OpenRule> rules;
};

ClipRole roleOf(std::optional<FileExtension> extension) noexcept {
  switch (extension ? mainKind(*extension) : FileKind::sidecar) {
    case FileKind::video:
    case FileKind::rawVideo:
      return ClipRole::video;
    case FileKind::audio:
      return ClipRole::sound;
    case FileKind::still:
    case FileKind::raw:
    case FileKind::frame:
      return ClipRole::still;
    case FileKind::proxy:
      return ClipRole::proxy;
    case FileKind::thumb:
      return ClipRole::thumbnail;
    default:
      return ClipRole::sidecar;
  }
}

ClipRole roleOf(RuleRole role, std::string_view name) noexcept {
  return role == RuleRole::any ? roleOf(fileExtensionOfName(name)) : static_cast<ClipRole>(role);
}

// Sony's cameras name what accompanies a clip with a letter and two digits more, such as "C0001M01.XML".
std::string withoutSonySuffix(std::string stem) {
  constexpr std::size_t length = 3;
  if (stem.size() <= length) return stem;
  const auto suffix = std::string_view(stem).substr(stem.size() - length);
  const bool isSuffix = std::string_view("MRICE").find(suffix[0]) != std::string_view::npos &&
                        suffix.find_first_not_of("0123456789", 1) == std::string_view::npos;
  if (isSuffix) stem.resize(stem.size() - length);
  return stem;
}

class Collection {
 public:
  Collection(FolderTree& tree, CardContents& contents) : tree_(tree), contents_(contents) {}

  void collect() {
    std::vector<OpenCard> open;
    visit(FolderTree::root, open);
    joinGoProChapters(drafts_);
    for (auto& draft : drafts_) {
      if (!draft.isJoined) nameClip(draft);
    }
    joinP2Spans(drafts_, tree_);
    joinAvchdSpans(drafts_, tree_, playLists_);
    contents_.clips.reserve(drafts_.size());
    for (auto& draft : drafts_) {
      if (!draft.isJoined) contents_.clips.push_back(finishedClip(std::move(draft)));
    }
  }

 private:
  // The files of a folder that no rule fits, by their stem.
  struct Group {
    std::size_t draft;
    bool hasRawVideo = false;
    bool hasVideo = false;
  };

  void visit(Index folder, std::vector<OpenCard>& open) {
    openCardsAt(folder, open);
    const auto path = tree_.path(folder);
    prefix_ = path.empty() ? path : path + "/";
    std::vector<Index> rest;
    std::vector<Index> folders;
    for (const auto child : tree_.children(folder)) {
      if (tree_[child].isFolder()) {
        folders.push_back(child);
      } else {
        place(child, open, rest);
      }
    }
    checkNames(folder);
    group(rest, open);
    for (const auto child : folders) {
      auto below = opened(open, tree_[child].name);
      // What a desktop threw away or indexed is no media, whatever it was.
      const bool isLeftover = isInLeftover_ || nameRole(tree_[child].name) == NameRole::leftover;
      const bool wasInLeftover = std::exchange(isInLeftover_, isLeftover);
      visit(child, below);
      isInLeftover_ = wasInLeftover;
    }
  }

  void openCardsAt(Index folder, std::vector<OpenCard>& open) const {
    const auto path = tree_.path(folder);
    for (std::size_t i = 0; i < contents_.cards.size(); ++i) {
      const auto& card = contents_.cards[i];
      if (card.root != path) continue;
      auto& opened = open.emplace_back(OpenCard{i, &rowOfLayout(card.layout), {}, {}});
      for (const auto& rule : opened.row->rules) {
        for (const auto& pattern : rule.patterns) opened.rules.push_back({rule.role, PatternMatch(pattern)});
      }
    }
    // The first card that has a rule takes a file.
    std::ranges::sort(open, {}, &OpenCard::card);
  }

  static std::vector<OpenCard> opened(const std::vector<OpenCard>& open, std::string_view folder) {
    std::vector<OpenCard> below;
    for (const auto& card : open) {
      auto& next = below.emplace_back(OpenCard{card.card, card.row, card.path, {}});
      next.path.append(folder).append("/");
      for (auto rule : card.rules) {
        if (rule.match.feed(folder) && rule.match.feed("/")) next.rules.push_back(std::move(rule));
      }
    }
    return below;
  }

  void place(Index file, const std::vector<OpenCard>& open, std::vector<Index>& rest) {
    const auto& item = tree_[file];
    if (item.type != FileType::regular) return loose(contents_.other, file);
    if (isInLeftover_ || nameRole(item.name) != NameRole::ordinary) return loose(contents_.other, file, true);
    for (const auto& card : open) {
      for (const auto& rule : card.rules) {
        const auto fixed = fixedEnd(rule.match.pattern(), item.name);
        if (!fixed) continue;
        scratch_ = rule.match;
        if (const auto bounds = scratch_->finish(item.name, *fixed))
          return placeByRule(file, card, rule, *bounds);
      }
    }
    rest.push_back(file);
  }

  void placeByRule(Index file, const OpenCard& card, const OpenRule& rule,
                   const PatternMatch::Bounds& bounds) {
    const auto name = tree_[file].name;
    if (rule.role == RuleRole::index) {
      const auto extension = fileExtensionOfName(name);
      if (card.row->layout == CardLayout::avchd && extension &&
          formatOf(*extension) == MediaFormat::avchdPlayList)
        playLists_.push_back({card.card, file});
      return loose(contents_.bookkeeping, file);
    }
    auto found = captured(rule.match.pattern(), bounds, card.path, name);
    auto key = std::to_string(card.card);
    key.push_back('/');
    appendCapitals(key, found.folder);
    key.push_back('\0');
    appendCapitals(key, found.key);
    const auto [place, isNew] = byKey_.try_emplace(std::move(key), drafts_.size());
    if (isNew) {
      auto& draft = drafts_.emplace_back();
      draft.row = card.row;
      draft.card = card.card;
      draft.name = found.key.empty() ? folderName(contents_.cards[card.card].root) : std::move(found.key);
      draft.files.reserve(usualFileCount);
    }
    add(drafts_[place->second], file, roleOf(rule.role, name), found.number, found.counts);
  }

  void add(Draft& draft, Index file, ClipRole role, std::optional<std::uint64_t> number = {},
           char counts = ' ') {
    const auto& item = tree_[file];
    draft.files.push_back({{pathOf(item.name), role, number, item.size}, file, counts});
  }

  // Of an item in the folder that is visited.
  std::string pathOf(std::string_view name) const { return std::string(prefix_).append(name); }

  // Of a folder, by its path.
  std::string folderName(std::string_view path) const {
    return path.empty() ? tree_.rootName() : std::string(fileName(path));
  }

  void loose(std::vector<LooseFile>& place, Index file, bool isLeftover = false) const {
    const auto& item = tree_[file];
    place.push_back({pathOf(item.name), item.type == FileType::regular ? item.size : 0, isLeftover});
  }

  void checkNames(Index folder) {
    bool hasSmall = false;
    for (const auto child : tree_.children(folder)) {
      const auto name = tree_[child].name;
      const auto isOther = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
      if (std::ranges::any_of(name, isOther) && !isUtf8(name))
        contents_.problems.push_back({ProblemKind::nameNotUtf8, pathOf(name)});
      hasSmall = hasSmall || std::ranges::any_of(name, [](char c) { return c != ascii::raised(c); });
    }
    if (!hasSmall) return;
    // Hashes are enough to rule out almost all names.
    std::vector<std::pair<std::size_t, Index>> folded;
    std::string name;
    for (const auto child : tree_.children(folder)) {
      name.clear();
      appendCapitals(name, tree_[child].name);
      folded.emplace_back(std::hash<std::string_view>()(name), child);
    }
    std::ranges::sort(folded);
    for (std::size_t i = 1; i < folded.size(); ++i) {
      if (folded[i].first != folded[i - 1].first) continue;
      const auto second = tree_[folded[i].second].name;
      if (capitals(second) == capitals(tree_[folded[i - 1].second].name))
        contents_.problems.push_back({ProblemKind::differsByCaseOnly, pathOf(second)});
    }
  }

  // The card whose folder of markers is around the files; nothing for files outside of all of them.
  static std::optional<std::size_t> cardOf(const std::vector<OpenCard>& open, const CardContents& contents) {
    for (const auto& card : open) {
      const auto& evidence = contents.cards[card.card].evidence;
      // Files in the root itself mark all of it.
      const bool isWhole = std::ranges::none_of(
          evidence, [](const std::string& marker) { return marker.find('/') != std::string::npos; });
      const bool isWithin = isWhole || std::ranges::any_of(evidence, [&](const std::string& marker) {
                              return marker.ends_with('/') && card.path.starts_with(marker);
                            });
      if (isWithin || contents.cards[card.card].isByFiles) return card.card;
    }
    // Other folders of the same markers, such as the second of several with pictures.
    for (const auto& card : open) {
      const auto& evidence = contents.cards[card.card].evidence;
      const bool isBeside = std::ranges::any_of(evidence, [&](const std::string& marker) {
        const auto first = marker.substr(0, marker.find('/') + 1);
        return !first.empty() && card.path.starts_with(first);
      });
      if (isBeside) return card.card;
    }
    return std::nullopt;
  }

  void group(const std::vector<Index>& files, const std::vector<OpenCard>& open) {
    const auto card = cardOf(open, contents_);
    std::unordered_map<std::string, Group> groups;
    std::vector<bool> isPlaced(files.size());
    groupSequences(files, card, groups, isPlaced);
    for (std::size_t i = 0; i < files.size(); ++i) {
      if (!isPlaced[i]) isPlaced[i] = groupEssence(files[i], card, groups);
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
      if (!isPlaced[i]) groupCompanion(files[i], groups);
    }
  }

  Draft& newDraft(std::optional<std::size_t> card, std::string_view name) {
    auto& draft = drafts_.emplace_back();
    draft.card = card;
    draft.name = name;
    return draft;
  }

  void groupSequences(const std::vector<Index>& files, std::optional<std::size_t> card,
                      std::unordered_map<std::string, Group>& groups, std::vector<bool>& isPlaced) {
    std::vector<std::string_view> names;
    names.reserve(files.size());
    for (const auto file : files) names.push_back(tree_[file].name);
    const auto folders = "/" + capitals(prefix_);
    const bool hasStills = folders.find("/DCIM/") != std::string::npos;
    for (const auto& sequence : imageSequences(names, hasStills)) {
      groups.try_emplace(capitals(sequence.stem), Group{drafts_.size()});
      const auto folder = std::string_view(prefix_).substr(0, prefix_.size() - (prefix_.empty() ? 0 : 1));
      auto& draft = newDraft(card, sequence.stem.empty() ? folderName(folder) : sequence.stem);
      draft.frames = FrameSpan{sequence.frames.front().number, sequence.frames.back().number};
      draft.missingFrames = sequence.missing;
      for (const auto& frame : sequence.frames) {
        add(draft, files[frame.name], ClipRole::still, frame.number);
        isPlaced[frame.name] = true;
      }
    }
  }

  // Places a file that is picture or sound. Files of one stem are one shot, but two films are two.
  bool groupEssence(Index file, std::optional<std::size_t> card,
                    std::unordered_map<std::string, Group>& groups) {
    const auto name = tree_[file].name;
    const auto extension = fileExtensionOfName(name);
    if (!extension) return false;
    const auto role = roleOf(extension);
    if (role != ClipRole::video && role != ClipRole::sound && role != ClipRole::still) return false;
    const auto [place, isNew] = groups.try_emplace(capitals(stemOf(name)), Group{drafts_.size()});
    auto& group = place->second;
    if (isNew) newDraft(card, stemOf(name));
    const bool isRawVideo = mainKind(*extension) == FileKind::rawVideo;
    if (role != ClipRole::video) {
      add(drafts_[group.draft], file, role);
    } else if (isRawVideo != group.hasRawVideo && group.hasVideo) {
      addBesideRawVideo(group, file, isRawVideo);
    } else if (group.hasVideo || drafts_[group.draft].frames) {
      add(newDraft(card, stemOf(name)), file, role);
    } else {
      group.hasVideo = true;
      group.hasRawVideo = isRawVideo;
      add(drafts_[group.draft], file, role);
    }
    return true;
  }

  // Of raw and ordinary motion of one stem, the ordinary is the proxy.
  void addBesideRawVideo(Group& group, Index file, bool isRawVideo) {
    auto& draft = drafts_[group.draft];
    if (isRawVideo) {
      for (auto& each : draft.files) {
        if (each.file.role == ClipRole::video) each.file.role = ClipRole::proxy;
      }
    }
    group.hasRawVideo = true;
    add(draft, file, isRawVideo ? ClipRole::video : ClipRole::proxy);
  }

  void groupCompanion(Index file, const std::unordered_map<std::string, Group>& groups) {
    const auto name = tree_[file].name;
    const auto extension = fileExtensionOfName(name);
    auto group = groups.find(capitals(stemOf(name)));
    if (group == groups.end()) group = groups.find(withoutSonySuffix(capitals(stemOf(name))));
    const bool isIndex = extension && mainKind(*extension) == FileKind::index;
    if (isIndex) {
      loose(contents_.bookkeeping, file);
    } else if (extension && group != groups.end()) {
      add(drafts_[group->second.draft], file, roleOf(extension));
    } else {
      loose(contents_.other, file);
    }
  }

  FolderTree& tree_;
  CardContents& contents_;
  std::deque<Draft> drafts_;
  std::unordered_map<std::string, std::size_t> byKey_;
  std::vector<PlayList> playLists_;
  // The path of the folder that is visited, with a trailing slash unless it is empty.
  std::string prefix_;
  bool isInLeftover_ = false;
  std::optional<PatternMatch> scratch_;
};

CardContents contentsOfTree(FolderTree& tree, std::vector<Card> cards) {
  CardContents contents;
  contents.cards = std::move(cards);
  Collection(tree, contents).collect();
  contents.unread = std::move(tree.unread);
  contents.isStopped = tree.isStopped;
  return contents;
}

}  // namespace

CardContents contentsOf(const std::filesystem::path& folder) {
  return contentsOf(folder, [](std::uint64_t /*itemCount*/, bool& /*stop*/) {});
}

CardContents contentsOf(const std::filesystem::path& folder, WalkProgress progress) {
  FolderTree tree(folder, true, progress);
  // Files tell of a recorder without markers at any depth.
  tree.listAll();
  auto cards = cardsInTree(tree);
  return contentsOfTree(tree, std::move(cards));
}

CardContents contentsOf(const std::filesystem::path& folder, std::span<const Card> cards,
                        WalkProgress progress) {
  FolderTree tree(folder, true, progress);
  return contentsOfTree(tree, {cards.begin(), cards.end()});
}

}  // namespace quillonic::catalogue
