/// The media catalogue: what a file is, whose card a folder is, which files are one clip, and what a piece of
/// metadata is called.
#pragma once

#include <quillonic/catalogue/card.hpp>
#include <quillonic/catalogue/clip.hpp>
#include <quillonic/catalogue/identification.hpp>
#include <quillonic/catalogue/layouts_table.hpp>
#include <quillonic/catalogue/metadata_key.hpp>
#include <quillonic/catalogue/metadata_keys_table.hpp>
#include <quillonic/catalogue/signatures_table.hpp>
