/// The transcoder's command line: its vocabulary, the model of one command line, and the built-in presets.
#pragma once

#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/presets.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>
