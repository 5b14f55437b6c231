/// The command line of the media-analysis tool: its flags, the records that a parent fills in and their
/// words, and how the tool reads these back.
#pragma once

#include <quillonic/tool_cli/media_analysis_arguments.hpp>
#include <quillonic/tool_cli/media_analysis_errors.hpp>
#include <quillonic/tool_cli/media_analysis_flags.hpp>
#include <quillonic/tool_cli/media_analysis_options.hpp>
