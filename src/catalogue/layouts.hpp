// The layouts of cards: what marks them, and which of their files are what.
#pragma once

#include <quillonic/catalogue/layouts_table.hpp>
#include <quillonic/media/file_extension.hpp>

#include <cstdint>
#include <span>
#include <string_view>

#include "catalogue/name_pattern.hpp"

namespace quillonic::catalogue {

// A name on the way to a marker.
struct MarkerName {
  // With "=" for the name of the root; empty where a pattern tells.
  std::string_view literal;
  std::span<const Pattern> patterns;
};

// A folder or file that must be there.
struct Marker {
  std::span<const MarkerName> names;
  bool isFolder;
};

// Markers that all must be there.
struct MarkerSet {
  std::span<const Marker> markers;
};

enum class RuleRole : std::uint8_t { video, sound, still, sidecar, proxy, thumbnail, index, any };

// Files of a card that are something; patterns are of their paths.
struct Rule {
  RuleRole role;
  std::span<const Pattern> patterns;
};

struct LayoutRow {
  CardLayout layout;
  std::string_view maker;
  std::string_view family;
  // Whether the markers alone decide.
  bool isVerified;
  bool titlesByStem;
  std::span<const MarkerSet> markerSets;
  // What alone names the maker.
  std::span<const FileExtension> extensions;
  std::span<const Pattern> names;
  std::span<const std::string_view> needs;
  std::span<const Rule> rules;
};

// In case order.
std::span<const LayoutRow> layoutRows() noexcept;

}  // namespace quillonic::catalogue
