/// Helpers over the file system: free names for outputs, grouping by drive, legal names, disk descriptions.
#pragma once

#include <quillonic/filesystem/file_manager.hpp>
