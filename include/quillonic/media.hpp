/// Value types that describe media.
#pragma once

#include <quillonic/media/file_extension.hpp>
