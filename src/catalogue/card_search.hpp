// Finding the layouts in a tree of folders.
#pragma once

#include <quillonic/catalogue/card.hpp>

#include <vector>

#include "catalogue/folder_tree.hpp"
#include "catalogue/layouts.hpp"

namespace quillonic::catalogue {

// The row of a layout.
const LayoutRow& rowOfLayout(CardLayout layout) noexcept;

std::vector<Card> cardsInTree(FolderTree& tree);

}  // namespace quillonic::catalogue
