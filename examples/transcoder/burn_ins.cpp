#include "burn_ins.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <sys/stat.h>

#include "picture.hpp"

namespace transcoder {
namespace {

using namespace quillonic;

// A place in the frame as the options x and y of a filter, a fortieth of the height off the edge.
std::string place(const VAVTranscodeArgumentOverlayAnchorValue& anchor, const std::string& width,
                  const std::string& height, const std::string& ownWidth, const std::string& ownHeight) {
  const auto along = [&](int position, const std::string& size, const std::string& own) {
    const std::string places[] = {height + "/40", "(" + size + "-" + own + ")/2",
                                  size + "-" + own + "-" + height + "/40"};
    return places[position];
  };
  return "x=" + along(static_cast<int>(*anchorColumn(anchor)), width, ownWidth) +
         ":y=" + along(static_cast<int>(*anchorRow(anchor)), height, ownHeight);
}

std::string hex(const Color& color) {
  const auto rgb = color.outOf255().value_or(Color::RgbComponents{});
  const auto byte = [](double part) {
    return static_cast<unsigned>(std::clamp(std::round(part), 0.0, 255.0));
  };
  char text[16];
  std::snprintf(text, sizeof text, "0x%02x%02x%02x", byte(rgb.red), byte(rgb.green), byte(rgb.blue));
  return text;
}

// How a burnt-in text looks.
struct Style {
  VAVTranscodeArgumentOverlayAnchorValue anchor;
  std::optional<std::int64_t> size;
  std::optional<Color> font;
  std::optional<Color> box;
  std::string_view boxOtherwise;
};

std::string drawtext(const std::string& what, const Style& style) {
  if (style.size && *style.size <= 0) refuse("a burnt-in text without size cannot be seen");
  std::string filter = "drawtext=" + what +
                       ":fontsize=" + (style.size ? std::to_string(*style.size) : "h/20") +
                       ":fontcolor=" + (style.font ? hex(*style.font) : "white");
  const auto box = style.box ? hex(*style.box) : std::string(style.boxOtherwise);
  if (!box.empty()) filter += ":box=1:boxborderw=6:boxcolor=" + box;
  return filter + ":" + place(style.anchor, "w", "h", "text_w", "text_h");
}

// When the first input was made, as a time of day here.
TimecodeComponents creationTimecode(Job& job, const TimecodeRate& rate) {
  std::time_t seconds = 0;
  double fraction = 0;
  std::tm parts{};
  const auto made = job.source().creationTime;
  const char* rest = made ? strptime(made->c_str(), "%Y-%m-%dT%H:%M:%S", &parts) : nullptr;
  if (rest) {
    seconds = timegm(&parts);
    if (*rest == '.')
      fraction = std::atof(("0" + std::string(rest, std::strspn(rest, ".0123456789"))).c_str());
  } else {
    struct stat status {};
    stat(job.inputs.front().path.c_str(), &status);
    seconds = status.st_mtim.tv_sec;
    fraction = static_cast<double>(status.st_mtim.tv_nsec) / 1e9;
  }
  localtime_r(&seconds, &parts);
  return {parts.tm_hour, parts.tm_min, std::min(parts.tm_sec, 59),
          static_cast<std::int64_t>(fraction * static_cast<double>(rate.count())), false};
}

// The timecode of the first frame.
TimecodeComponents startOf(Job& job) {
  const auto rate = job.timecodeRate();
  const auto source = job.settings.timecodeSource().value_or(TimecodeSource::match);
  for (const auto& row : CaseTable<TimecodeSource>::rows) {
    if (row.value != source && job.hasFlag(row.tcFlag))
      job.cannot(row.tcFlag, std::string(tcFlag(source)) + " is taken instead");
  }
  TimecodeComponents start;
  if (source == TimecodeSource::custom) {
    start = job.settings.timecodeComponents().value();  // readable, or the tool would not have begun
  } else if (source == TimecodeSource::creationDate) {
    start = creationTimecode(job, rate);
  } else if (const auto& text = job.source().timecode) {
    start = TimecodeComponents::sanitizedTimecode(*text);
    // Another rate counts other frames: frame 12 of 25 comes as late in its second as frame 24 of 50.
    const auto& counted = job.source().rate;
    if (const auto original = TimecodeRate::fromFraction(counted.frames, counted.seconds)) {
      start.frames = start.frames * rate.count() / original->count();
    }
    start.isDropFrame = start.isDropFrame && rate.mayDropFrames();
  } else if (job.settings.timecodeMatchSource()) {
    job.cannot(VAVTimecodeMatchSourceFlag, "the source has no timecode, so it starts at zero");
  }

  start.isDropFrame = start.isDropFrame || job.settings.timecodeIsDropFrame();
  if (start.isDropFrame && !rate.mayDropFrames()) {
    refuse("drop frame needs 29.97 or 59.94 frames per second, not " + text(rate.decimal()));
  }
  if (rate.frameNumber(start)) return start;
  if (source == TimecodeSource::custom) {
    refuse("-tc_custom: " + start.timecodeString() + " is never counted at " + text(rate.decimal()) +
           " frames per second");
  }
  start.frames = rate.count() / 15;  // the first number after those that drop frame skips
  return start;
}

const TimecodeComponents& start(Job& job) {
  if (!job.start) job.start = startOf(job);
  return *job.start;
}

}  // namespace

void timecodeTrack(Job& job) {
  const auto& first = start(job);
  if (job.container.extension == "mjpeg") {
    job.cannot(VAVTimecodeAddTrackFlag, "the container holds no timecode");
  } else if (job.container.hasVideo) {
    job.metadata += "timecode=" + first.timecodeString() + "\n";
  } else {
    // Broadcast wave files count samples since midnight.
    const auto samples = job.settings.audioSampleRate().value_or(
        job.source().audio.empty() ? 48000 : job.source().audio[0].sampleRate);
    const auto rate = job.timecodeRate();
    const auto frames = rate.frameNumber(first).value();
    const auto reference = frames * rate.denominator() * samples / rate.numerator();
    job.metadata += "time_reference=" + std::to_string(reference) + "\n";
  }
}

void timecodeRate(Job& job) {
  const auto wanted = child::Rate::fromNumber(*job.settings.timecodeFrameRate());
  if (wanted != job.rate()) {
    job.cannot(VAVTimecodeFrameRateFlag,
               "the timecode counts the frames of the video, " + job.rate().text() + " per second");
  }
}

void burnTimecode(Job& job) {
  auto text = start(job).timecodeString();
  for (std::size_t at = 0; (at = text.find(':', at)) != std::string::npos; at += 2) text.insert(at, "\\");
  const auto& settings = job.settings;
  const auto anchor = settings.timecodeBurnAnchor();
  const auto rate = job.rate().text();
  // Frames are counted, so each must last as long as the others.
  job.filter(Step::rate) = "fps=" + rate;
  job.filter(Step::timecode) =
      drawtext("font=monospace:timecode='" + text + "':rate=" + rate,
               {anchor ? anchor->anchorArgument : VAVAnchorBottomCenter, settings.timecodeBurnFontSize(),
                settings.timecodeBurnFontColor(), settings.timecodeBurnBoxColor(), "black@0.5"});
}

void burnImage(Job& job) {
  const auto file = *job.settings.watermarkFileBurnFilePath();
  if (!std::ifstream(file)) {
    fail(TranscodeExitStatus::noInput,
         "cannot read the watermark " + file.native() + " (its path arrives in lower case)");
  }
  const auto scale = job.settings.watermarkFileBurnScale().value_or(1);
  if (scale <= 0) refuse("-wmf_scale: an image without size cannot be seen");
  const auto factor = std::to_string(scale);
  const auto anchor = job.settings.watermarkFileBurnAnchor();
  // Mixing in the encoder's own kind of pixels keeps what the picture has of bits and colour.
  const auto pixels = pixelFormat(job);
  const std::string kind(pixels.starts_with("yuv422p10")     ? "yuv422p10"
                         : pixels.find("422") != pixels.npos ? "yuv422"
                         : pixels.find("444") != pixels.npos ? "yuv444"
                                                             : "yuv420");
  job.filter(Step::image) = "null[under];movie=" + job.folder.link(file, "image") + ",scale='max(1,iw*" +
                            factor + ")':'max(1,ih*" + factor +
                            ")',format=rgba[image];[under][image]overlay=format=" + kind + ":" +
                            place(anchor ? anchor->anchorArgument : VAVAnchorTopRight, "W", "H", "w", "h");
}

void burnText(Job& job) {
  const auto text = job.settings.watermarkTextBurnText().value_or("");
  if (text.empty()) return job.cannot(VAVWatermarkTextAddBurnFlag, "there is no text");
  try {
    (void)nlohmann::json(text).dump();  // throws on bytes that are not UTF-8
  } catch (const nlohmann::json::exception&) {
    refuse("-wmt_text: the text is not UTF-8");
  }
  const auto& settings = job.settings;
  job.filter(Step::text) =
      drawtext("textfile=" + job.folder.write("text", text) + ":expansion=none",
               {settings.watermarkTextBurnAnchor().value_or(VAVAnchorBottomRight),
                settings.watermarkTextBurnFontSize(), settings.watermarkTextBurnFontColor(),
                settings.watermarkTextBurnBoxColor(), ""});
}

}  // namespace transcoder
