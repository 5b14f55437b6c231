/// Timecodes and durations as values and as texts.
#pragma once

#include <quillonic/time/durations.hpp>
#include <quillonic/time/timecode.hpp>
#include <quillonic/time/timecode_rate.hpp>
