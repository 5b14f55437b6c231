/// The command line of the media-analysis tool: its flags, the records that a parent writes as words, and how
/// the tool reads them.
#pragma once

#include <quillonic/tool_cli/media_analysis_arguments.hpp>
#include <quillonic/tool_cli/media_analysis_errors.hpp>
#include <quillonic/tool_cli/media_analysis_flags.hpp>
#include <quillonic/tool_cli/media_analysis_options.hpp>
