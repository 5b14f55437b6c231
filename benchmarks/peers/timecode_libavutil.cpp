#include "../timecode.hpp"

extern "C" {
#include <libavutil/timecode.h>
}

namespace quillonic::benchmarks::timecode {
namespace {

constexpr AVRational rate{30000, 1001};

AVTimecode read(const std::string& text) {
  AVTimecode timecode;
  if (av_timecode_init_from_string(&timecode, rate, text.c_str(), nullptr) < 0) {
    throw std::runtime_error("cannot read " + text);
  }
  return timecode;
}

std::array<char, AV_TIMECODE_STR_SIZE> written(const AVTimecode& timecode) {
  std::array<char, AV_TIMECODE_STR_SIZE> text;
  av_timecode_make_string(&timecode, text.data(), 0);
  return text;
}

const bool added =
    addReader("libavutil", "more: counts the frames since zero", read,
              [](const AVTimecode& timecode) {
                return TimecodeComponents::fromTimecode(written(timecode).data()).value();
              }) &&
    addWriter(
        "libavutil", "more: finds the numbers in a count of frames",
        [](const TimecodeComponents& timecode) { return read(timecode.timecodeString()); }, written);

}  // namespace
}  // namespace quillonic::benchmarks::timecode
