/// Value types of media settings: what a transcode can ask for, as pickers show it and presets store it.
#pragma once

#include <quillonic/media/channel_layout.hpp>
#include <quillonic/media/codec.hpp>
#include <quillonic/media/color_depth.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/enumerated_setting.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/media/formats_table.hpp>
#include <quillonic/media/frame_rate.hpp>
#include <quillonic/media/media_format.hpp>
#include <quillonic/media/sample_rate.hpp>
#include <quillonic/media/video_data_rate.hpp>
#include <quillonic/media/video_dimension.hpp>
#include <quillonic/media/video_extension.hpp>
#include <quillonic/media/video_resolution.hpp>
#include <quillonic/media/video_size.hpp>
