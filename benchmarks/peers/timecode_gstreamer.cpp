#include <gst/video/gstvideotimecode.h>
#include <memory>

#include "../timecode.hpp"

namespace quillonic::benchmarks::timecode {
namespace {

struct Free {
  void operator()(GstVideoTimeCode* timecode) const { gst_video_time_code_free(timecode); }
  void operator()(char* text) const { g_free(text); }
};
using Timecode = std::unique_ptr<GstVideoTimeCode, Free>;

// Reads as a container of characters.
class Text {
 public:
  explicit Text(char* text) : text_(text) {}
  const char* data() const { return text_.get(); }

 private:
  std::unique_ptr<char, Free> text_;
};

Timecode read(const std::string& text) {
  return Timecode(gst_video_time_code_new_from_string(text.c_str()));
}

Text written(const Timecode& timecode) {
  return Text(gst_video_time_code_to_string(timecode.get()));
}

const bool added =
    addReader("GStreamer video", "its timecodes live on the heap", read,
              [](const Timecode& timecode) {
                return TimecodeComponents{
                    timecode->hours, timecode->minutes, timecode->seconds, timecode->frames,
                    (timecode->config.flags & GST_VIDEO_TIME_CODE_FLAGS_DROP_FRAME) != 0};
              }) &&
    addWriter(
        "GStreamer video", "its texts live on the heap",
        [](const TimecodeComponents& timecode) { return read(timecode.timecodeString()); }, written);

}  // namespace
}  // namespace quillonic::benchmarks::timecode
