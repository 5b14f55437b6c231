/// File-system helpers: free names for outputs, grouping by drive, file attributes and their comparison,
/// links and alias files, legal names, disk descriptions.
#pragma once

#include <quillonic/filesystem/alias_creation.hpp>
#include <quillonic/filesystem/alias_file.hpp>
#include <quillonic/filesystem/alias_resolution_options.hpp>
#include <quillonic/filesystem/attributes_store.hpp>
#include <quillonic/filesystem/disk_description.hpp>
#include <quillonic/filesystem/expanded_attributes.hpp>
#include <quillonic/filesystem/file_attribute_key.hpp>
#include <quillonic/filesystem/file_attributes.hpp>
#include <quillonic/filesystem/file_manager.hpp>
#include <quillonic/filesystem/io_error.hpp>
#include <quillonic/filesystem/legal_names.hpp>
#include <quillonic/filesystem/link_support.hpp>
#include <quillonic/filesystem/link_walk.hpp>
#include <quillonic/filesystem/match_level.hpp>
#include <quillonic/filesystem/reference_link_type.hpp>
#include <quillonic/filesystem/reference_links.hpp>
#include <quillonic/platform/file_type.hpp>
