/// The transcoder's command line: its vocabulary, the model of one command line with typed options, and
/// presets, built-in and stored.
#pragma once

#include <quillonic/transcode_cli/anchors.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/codec_conflict.hpp>
#include <quillonic/transcode_cli/detail_modifier.hpp>
#include <quillonic/transcode_cli/details.hpp>
#include <quillonic/transcode_cli/difference.hpp>
#include <quillonic/transcode_cli/exit_status.hpp>
#include <quillonic/transcode_cli/frame_size.hpp>
#include <quillonic/transcode_cli/lut_check.hpp>
#include <quillonic/transcode_cli/media_settings.hpp>
#include <quillonic/transcode_cli/option_changes.hpp>
#include <quillonic/transcode_cli/preset_files.hpp>
#include <quillonic/transcode_cli/presets.hpp>
#include <quillonic/transcode_cli/problem.hpp>
#include <quillonic/transcode_cli/stored_preset.hpp>
#include <quillonic/transcode_cli/timecode_source.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>
