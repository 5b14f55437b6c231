/// What the library takes from the machine and from its host.
#pragma once

#include <quillonic/platform/color.hpp>
#include <quillonic/platform/conversion_options.hpp>
#include <quillonic/platform/localization.hpp>
#include <quillonic/platform/logging.hpp>
