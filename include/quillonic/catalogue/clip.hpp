/// Which files of a card belong together.
///
///     const auto contents = catalogue::contentsOf("/media/UNTITLED");
///     for (const auto& clip : contents.clips) {
///       for (const auto& problem : clip.problems) warn(clip.name, description(problem));
///     }
#pragma once

#include <quillonic/catalogue/card.hpp>
#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillonic::catalogue {

/// What a file is within its clip.
enum class ClipRole : std::uint8_t {
  /// Picture, with or without sound.
  video,
  /// Sound alone: a channel, a track, a recorder's file or a memo.
  sound,
  /// A picture, raw or finished; also one frame of a sequence.
  still,
  sidecar,
  /// A small copy of the clip.
  proxy,
  thumbnail,
};

/// What a clip is.
enum class ClipKind : std::uint8_t {
  /// Motion pictures in one file or several.
  video,
  sound,
  /// One shot: a picture, or a raw picture with its finished one.
  still,
  /// A picture and a short film of the same moment.
  livePhoto,
  /// One file a frame.
  imageSequence,
};

/// What is wrong with a clip or a file.
enum class ProblemKind : std::uint8_t {
  /// A part before or between others is not there, or a clip goes on with one that is not on this card.
  missingPart,
  /// The layout requires a file that is not there.
  missingSidecar,
  /// Only companions of the clip are there, neither picture nor sound.
  missingEssence,
  /// Numbers are left out between the first and the last frame.
  missingFrames,
  /// Two files have names that differ by case alone.
  differsByCaseOnly,
  /// A name is not UTF-8.
  nameNotUtf8,
};
}  // namespace quillonic::catalogue

namespace quillonic {
/// The roles and their texts.
template <> struct CaseTable<catalogue::ClipRole> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::ClipRole>>({
      {catalogue::ClipRole::video, "video"},
      {catalogue::ClipRole::sound, "sound"},
      {catalogue::ClipRole::still, "still"},
      {catalogue::ClipRole::sidecar, "sidecar"},
      {catalogue::ClipRole::proxy, "proxy"},
      {catalogue::ClipRole::thumbnail, "thumbnail"},
  });
};
/// The kinds of clips and their texts.
template <> struct CaseTable<catalogue::ClipKind> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::ClipKind>>({
      {catalogue::ClipKind::video, "video"},
      {catalogue::ClipKind::sound, "sound"},
      {catalogue::ClipKind::still, "still"},
      {catalogue::ClipKind::livePhoto, "livePhoto"},
      {catalogue::ClipKind::imageSequence, "imageSequence"},
  });
};
/// The kinds of problems and their texts.
template <> struct CaseTable<catalogue::ProblemKind> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::ProblemKind>>({
      {catalogue::ProblemKind::missingPart, "missingPart"},
      {catalogue::ProblemKind::missingSidecar, "missingSidecar"},
      {catalogue::ProblemKind::missingEssence, "missingEssence"},
      {catalogue::ProblemKind::missingFrames, "missingFrames"},
      {catalogue::ProblemKind::differsByCaseOnly, "differsByCaseOnly"},
      {catalogue::ProblemKind::nameNotUtf8, "nameNotUtf8"},
  });
};
}  // namespace quillonic

namespace quillonic::catalogue {

/// One thing that is wrong.
struct Problem {
  /// What kind of thing it is.
  ProblemKind kind{};
  /// What it is about: the number of a part or frame, the name of a missing file, or a path.
  std::string subject;

  friend bool operator==(const Problem&, const Problem&) = default;
};

/// A sentence for users, in their language: "File 2 of the clip is missing.".
QUILLONIC_EXPORT std::string description(const Problem& problem);

/// A file of a clip.
struct ClipFile {
  /// Relative to the folder that was read, in the bytes of the card.
  std::string path;
  /// What it is within the clip.
  ClipRole role{};
  /// The number of a part, channel or frame in its name.
  std::optional<std::uint64_t> number;
  /// In bytes; 0 if it could not be looked at.
  std::uint64_t size = 0;

  friend bool operator==(const ClipFile&, const ClipFile&) = default;
};

/// Numbers of frames from a first to a last one.
struct FrameSpan {
  /// The least number.
  std::uint64_t first = 0;
  /// The greatest number, at least `first`.
  std::uint64_t last = 0;

  friend bool operator==(const FrameSpan&, const FrameSpan&) = default;
};

/// Files that belong together.
struct Clip {
  /// For people and lists; two clips may share one.
  std::string name;
  /// What it is.
  ClipKind kind{};
  /// The place of its card in `CardContents::cards`; nothing for files outside of all cards.
  std::optional<std::size_t> card;
  /// Picture and sound in playing order first, then what accompanies them.
  std::vector<ClipFile> files;
  /// The frames of an image sequence.
  std::optional<FrameSpan> frames;
  /// The frames that are not there, ascending.
  std::vector<FrameSpan> missingFrames;
  /// What is wrong with it.
  std::vector<Problem> problems;

  /// The sum of the sizes of its files in bytes.
  QUILLONIC_EXPORT std::uint64_t totalSize() const noexcept;
  /// The number of its files that are picture or sound, in parts, channels or frames.
  QUILLONIC_EXPORT std::size_t essenceCount() const noexcept;

  friend bool operator==(const Clip&, const Clip&) = default;
};

/// A file outside of all clips.
struct LooseFile {
  /// Relative to the folder that was read, in the bytes of the card.
  std::string path;
  /// In bytes; 0 for a link or a special item, and if it could not be looked at.
  std::uint64_t size = 0;
  /// Whether a desktop left it there, or threw it away; a list of media leaves it out.
  bool isLeftover = false;

  friend bool operator==(const LooseFile&, const LooseFile&) = default;
};

/// All that is in a folder. Every item but folders is in exactly one place.
struct CardContents {
  /// The layouts in it; empty for a plain folder.
  std::vector<Card> cards;
  /// In the order of their first files' folders.
  std::vector<Clip> clips;
  /// The files by which the card keeps its books: indexes, play lists, catalogues.
  std::vector<LooseFile> bookkeeping;
  /// All other files, and links and special items, none of which is followed or opened.
  std::vector<LooseFile> other;
  /// What could not be read: a folder, whose content is unknown in whole or in part; a file that is in its
  /// place without size; or a clip description or play list, without which a clip may be in parts. A folder
  /// more than 200 levels down has the error `filename_too_long`, a description of 1 MiB or more
  /// `file_too_large`. Media are not opened: whether they can be read is not known.
  std::vector<UnreadItem> unread;
  /// What is wrong with names, wherever in the folder the items are.
  std::vector<Problem> problems;
  /// Whether a progress block stopped the walk early, so that files are missing here.
  bool isStopped = false;
};

/// The clips in a folder: of the cards in it, and of files outside of them, by stem. Files that alone name a
/// maker tell of a card at any depth; markers count down to the third level, as in `cardsIn`. Reads the
/// folder to its end with one look at each file. Opens no file but the short clip descriptions and play lists
/// that alone tell how P2 and AVCHD cards continue a clip. Follows no link but those in `folder` itself.
/// Parts that neither their names nor such a list connect are clips of their own. What cannot be read, also
/// `folder` itself, is among the unread.
QUILLONIC_EXPORT CardContents contentsOf(const std::filesystem::path& folder);

/// The same, with a progress block.
QUILLONIC_EXPORT CardContents contentsOf(const std::filesystem::path& folder, WalkProgress progress);

/// The same for known cards, whose roots are relative to the folder; a plain folder has none.
QUILLONIC_EXPORT CardContents contentsOf(const std::filesystem::path& folder, std::span<const Card> cards,
                                         WalkProgress progress);

}  // namespace quillonic::catalogue
