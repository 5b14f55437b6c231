// Start timecodes as people type them, counting frames, and durations.
#include <quillonic/time.hpp>

#include <iostream>
#include <string_view>

using namespace quillonic;

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
}
