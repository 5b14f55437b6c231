/// Whose card a folder is.
///
///     for (const auto& card : catalogue::cardsIn("/media/UNTITLED").cards)
///       std::cout << maker(card.layout) << ' ' << family(card.layout) << " in " << card.root << '\n';
#pragma once

#include <quillonic/catalogue/layouts_table.hpp>
#include <quillonic/export.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/support/function_ref.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quillonic::catalogue {

/// The maker of the devices that write a layout; "Several" or "Package" for one without a single maker.
QUILLONIC_EXPORT std::string_view maker(CardLayout layout) noexcept;

/// The family of devices or the form of the layout, such as "XAVC S".
QUILLONIC_EXPORT std::string_view family(CardLayout layout) noexcept;

/// How sure an answer is.
enum class Confidence : std::uint8_t {
  /// Only names, or markers that are common knowledge, speak for it.
  possible,
  /// Files of a kind that alone names the maker speak for it.
  likely,
  /// All markers of the layout are there.
  certain,
};
}  // namespace quillonic::catalogue

namespace quillonic {
/// The degrees and their texts.
template <> struct CaseTable<catalogue::Confidence> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::Confidence>>({
      {catalogue::Confidence::possible, "possible"},
      {catalogue::Confidence::likely, "likely"},
      {catalogue::Confidence::certain, "certain"},
  });
};
}  // namespace quillonic

namespace quillonic::catalogue {

/// One layout in a folder. A card can hold several, such as stills beside video.
struct Card {
  /// Which layout it is.
  CardLayout layout{};
  /// The folder of the layout, relative to the one that was searched and without a trailing slash; empty for
  /// the searched folder itself.
  std::string root;
  /// The markers that were met, or the first files that speak for it, relative to `root`; a folder has a
  /// trailing slash.
  std::vector<std::string> evidence;
  /// How sure the answer is.
  Confidence confidence = Confidence::possible;
  /// Whether only files and their names speak for it, since the layout has no markers here.
  bool isByFiles = false;

  friend bool operator==(const Card&, const Card&) = default;
};

/// What could not be read, and why.
struct UnreadItem {
  /// Relative to the folder that was searched, and empty for itself; the bytes of the names, whether UTF-8 or
  /// not.
  std::string path;
  /// The system's reason.
  std::error_code error;

  friend bool operator==(const UnreadItem&, const UnreadItem&) = default;
};

/// The layouts that were found.
struct CardSearch {
  /// Those with markers first, from the searched folder downwards.
  std::vector<Card> cards;
  /// What could not be read, so that a layout may have been missed.
  std::vector<UnreadItem> unread;
  /// Whether a progress block stopped the search early.
  bool isStopped = false;
};

/// Receives the number of items met so far, after each folder; setting `stop` ends the walk with what was
/// found so far.
using WalkProgress = FunctionRef<void(std::uint64_t itemCount, bool& stop)>;

/// The layouts in a folder or up to three levels below it. Lists folders only as deep as markers need, opens
/// no file, and follows no link but those in `folder` itself. Names are compared without regard to ASCII
/// case. A folder that cannot be read is among the unread, also `folder` itself.
QUILLONIC_EXPORT CardSearch cardsIn(const std::filesystem::path& folder);

/// The same, with a progress block.
QUILLONIC_EXPORT CardSearch cardsIn(const std::filesystem::path& folder, WalkProgress progress);

}  // namespace quillonic::catalogue
