// A clip while its files are collected.
#pragma once

#include <quillonic/catalogue/clip.hpp>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/folder_tree.hpp"
#include "catalogue/layouts.hpp"

namespace quillonic::catalogue {

struct DraftFile {
  ClipFile file;
  FolderTree::Index item;
  // What its number is: 'p' of a part from 1, 'z' of one from 0, 'o' or ' ' of something else.
  char counts = ' ';
  // Which of several clips, which continue each other, it is from.
  std::size_t span = 0;
};

struct Draft {
  // Of a card's layout; null for files that belong together by their stem.
  const LayoutRow* row = nullptr;
  std::optional<std::size_t> card;
  std::string name;
  std::vector<DraftFile> files;
  std::optional<FrameSpan> frames;
  std::vector<FrameSpan> missingFrames;
  std::vector<Problem> problems;
  // Whether its files went to the clip that it continues.
  bool isJoined = false;

  bool has(ClipRole role) const noexcept;
};

// The last component of a path.
constexpr std::string_view fileName(std::string_view path) noexcept {
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

// A name without its extension.
constexpr std::string_view stemOf(std::string_view name) noexcept {
  const auto point = name.rfind('.');
  return point == 0 ? name : name.substr(0, point);
}

// Gives a clip of a layout its name, and names the files that the layout requires and that are not there.
void nameClip(Draft& draft);

struct PlayList {
  std::optional<std::size_t> card;
  FolderTree::Index item;
};

// Joins the clips whose chapters go on in another folder. Their names must be the numbers that they share.
void joinGoProChapters(std::deque<Draft>& drafts);

// Joins the clips that continue each other according to what the cards themselves say.
void joinP2Spans(std::deque<Draft>& drafts, FolderTree& tree);
void joinAvchdSpans(std::deque<Draft>& drafts, FolderTree& tree, const std::vector<PlayList>& playLists);

// The clip of a draft, with its files in order and its problems named.
Clip finishedClip(Draft draft);

}  // namespace quillonic::catalogue
