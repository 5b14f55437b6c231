/// What the library takes from the system and from its host.
#pragma once

#include <quillonic/platform/color.hpp>
#include <quillonic/platform/color_coding.hpp>
#include <quillonic/platform/disk_descriptions.hpp>
#include <quillonic/platform/file_system.hpp>
#include <quillonic/platform/file_type.hpp>
#include <quillonic/platform/localization.hpp>
#include <quillonic/platform/logging.hpp>
#include <quillonic/platform/mount_table.hpp>
#include <quillonic/platform/script_runner.hpp>
#include <quillonic/platform/unheld.hpp>
#include <quillonic/platform/user_defaults.hpp>
#include <quillonic/platform/volume_traits.hpp>
