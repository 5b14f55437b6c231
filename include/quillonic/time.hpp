/// Timecodes, durations, calendars and time zones.
#pragma once

#include <quillonic/time/calendar.hpp>
#include <quillonic/time/date_range.hpp>
#include <quillonic/time/durations.hpp>
#include <quillonic/time/time_frame.hpp>
#include <quillonic/time/time_zone.hpp>
#include <quillonic/time/timecode.hpp>
#include <quillonic/time/timecode_rate.hpp>
