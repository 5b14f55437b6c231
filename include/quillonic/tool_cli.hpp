/// The command lines of child tools: normalising and grouping argument lists, custodial flags, argument
/// stores.
#pragma once

#include <quillonic/tool_cli/argument_store.hpp>
#include <quillonic/tool_cli/argument_words.hpp>
#include <quillonic/tool_cli/custodial_options.hpp>
#include <quillonic/tool_cli/exit_code_error.hpp>
#include <quillonic/tool_cli/flags.hpp>
#include <quillonic/tool_cli/media_analysis.hpp>
#include <quillonic/tool_cli/progress_line.hpp>
#include <quillonic/tool_cli/sanitization_options.hpp>
#include <quillonic/tool_cli/sanitizer.hpp>
#include <quillonic/tool_cli/shell_quoting.hpp>
