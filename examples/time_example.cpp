// Start timecodes as people type them, counting frames, durations, and dates.
#include <quillonic/time.hpp>

#include <chrono>
#include <iostream>
#include <string_view>

using namespace quillonic;

// The clips of a time frame. All are compared with one range, also if midnight comes meanwhile.
void showClips(std::string_view named, const Calendar& calendar, std::chrono::sys_seconds now) {
  using namespace std::chrono_literals;
  const auto frame = TimeFrame::fromText(named);
  if (!frame) {
    std::cout << "no time frame: " << named << '\n';
    return;
  }
  const DateRange range = frame->resolved(calendar, now);
  std::cout << frame->description() << ", " << (range.end - range.start) / 1h << " h:";
  for (const auto age : {10h, 11h, 12h, 24h, 200h}) {
    if (range.contains(now - age)) std::cout << ' ' << age.count() << " h old";
  }
  std::cout << '\n';
}

void showDates() {
  using namespace std::chrono_literals;
  // An application takes Calendar::ofSystem(), or a zone by its name.
  const auto zone = TimeZone::fromName("CET-1CEST,M3.5.0,M10.5.0/3");
  if (!zone) return;
  const Calendar calendar(*zone, std::chrono::Monday);
  // 25 October 2026, noon: clocks went back in the morning.
  const std::chrono::sys_seconds noon = std::chrono::sys_days(2026y / 10 / 25) + 11h;
  for (const std::string_view named : {"today", "yesterday", "last-7-days", "this-weak"}) {
    showClips(named, calendar, noon);
  }
  const auto due = calendar.dateAway(CalendarUnit::month, 4, calendar.day(2026y / 10 / 31).start);
  std::cout << "due on " << static_cast<unsigned>(due.month()) << '/' << static_cast<unsigned>(due.day())
            << '\n';
}

int main() {
  for (const std::string_view typed : {"01:00:00;00", "1:2:3:4", "01:61:00:00", "", "tomorrow"}) {
    std::cout << '"' << typed << "\": ";
    if (const auto timecode = TimecodeComponents::fromTimecode(typed)) {
      std::cout << "stored as " << timecode->timecodeString();
      if (timecode->isDropFrame) std::cout << ", drop frame";
    } else {
      // A text field accepts anything instead of rejecting it, and checks no bounds.
      std::cout << "taken for " << TimecodeComponents::sanitizedTimecode(typed).timecodeString();
    }
    std::cout << '\n';
  }

  // A timecode counts frames only at a rate.
  constexpr auto rate = TimecodeRate::fps29_97;
  const auto in = rate.timecode(107'892, true).value();
  const auto out = rate.advanced(in, 1800).value();
  std::cout << "from " << in.timecodeString() << " to " << out.timecodeString() << ": "
            << rate.framesBetween(in, out).value() << " frames at " << rate.numerator() << '/'
            << rate.denominator() << '\n';
  std::cout << "drop frame at 25: " << (TimecodeRate::fps25.mayDropFrames() ? "yes" : "no") << '\n';

  std::cout << "copied in " << TimeInterval::formattedString(1.5 * TimeInterval::hour) << '\n';
  std::cout << "left: " << NumberUtility::secondsToStandardDurationText(90061) << '\n';
  const auto [hours, minutes, seconds] = NumberUtility::secondsToHoursMinutesSeconds(-3661);
  std::cout << "late by " << -hours << " h " << -minutes << " min " << -seconds << " s\n";

  showDates();
}
