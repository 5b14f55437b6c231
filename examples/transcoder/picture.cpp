#include "picture.hpp"

#include <quillonic/lut.hpp>

#include <algorithm>

namespace transcoder {
namespace {

using namespace quillonic;

Encoder proRes(std::string_view codec, const char* profile, std::string_view pixels) {
  return {
      codec, {"-c:v", "prores_ks", "-profile:v", profile, "-vendor", "apl0"}, {}, {{10, pixels}}, {}, false,
      false};
}

const Encoder encoders[] = {
    {"dnxhd",
     {"-c:v", "dnxhd"},
     {"-profile:v", "dnxhr_hq"},
     {{8, "yuv422p"}, {10, "yuv422p10le"}},
     {{"dnxhd", {{8, "yuv422p"}, {10, "yuv422p10le"}}},
      {"dnxhr_lb", {{8, "yuv422p"}}},
      {"dnxhr_sq", {{8, "yuv422p"}}},
      {"dnxhr_hq", {{8, "yuv422p"}}},
      {"dnxhr_hqx", {{10, "yuv422p10le"}}},
      {"dnxhr_444", {{10, "yuv444p10le"}}}},
     false,
     true},
    {"h264",
     {"-c:v", "libx264"},
     {},
     {{8, "yuv420p"}, {10, "yuv420p10le"}},
     {{"baseline", {{8, "yuv420p"}}},
      {"main", {{8, "yuv420p"}}},
      {"high", {{8, "yuv420p"}}},
      {"high10", {{10, "yuv420p10le"}}},
      {"high422", {{8, "yuv422p"}, {10, "yuv422p10le"}}},
      {"high444", {{8, "yuv444p"}, {10, "yuv444p10le"}}}},
     true,
     true},
    {"h265",
     {"-c:v", "libx265", "-tag:v", "hvc1", "-x265-params", "log-level=error"},
     {},
     {{8, "yuv420p"}, {10, "yuv420p10le"}, {12, "yuv420p12le"}},
     {{"main", {{8, "yuv420p"}}}, {"main10", {{10, "yuv420p10le"}}}, {"main12", {{12, "yuv420p12le"}}}},
     true,
     true},
    {"mjpeg", {"-c:v", "mjpeg", "-huffman", "optimal"}, {"-q:v", "3"}, {{8, "yuvj422p"}}, {}, false, true},
    {"mp4", {"-c:v", "mpeg4"}, {"-q:v", "3"}, {{8, "yuv420p"}}, {}, true, true},
    proRes("prores4444", "4", "yuv444p10le"),
    proRes("prores4444xq", "5", "yuv444p10le"),
    proRes("prores422", "2", "yuv422p10le"),
    proRes("prores422hq", "3", "yuv422p10le"),
    proRes("prores422lt", "1", "yuv422p10le"),
    proRes("prores422proxy", "0", "yuv422p10le"),
};

constexpr Container containers[] = {
    {"qt", "mov", "mov", true, true}, {"mp4", "mp4", "mp4", true, true},   {"wav", "wav", "wav", false, true},
    {"", "mxf", "mxf", true, true},   {"", "mjpeg", "mjpeg", true, false},
};

// Primaries, transfer curve and matrix by their numbers in ITU-T H.273.
struct ColorNumbers {
  std::string_view space;
  std::string_view primaries;
  std::string_view transfer;
  std::string_view matrix;
};
constexpr ColorNumbers colorSpaces[] = {
    {"rec_2020", "9", "14", "9"}, {"rec_709", "1", "1", "1"},  {"sRGB", "1", "13", "1"},
    {"smpte_c", "6", "1", "6"},   {"ebu_3213", "5", "1", "6"},
};

std::filesystem::path extensionOf(const TranscodeCliArguments& settings) {
  auto extension = settings.outputFile().value_or("").extension().native();
  std::ranges::transform(extension, extension.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  return extension;
}

const Encoder::Profile* chosenProfile(const Job& job) {
  const auto& profiles = job.encoder->profiles;
  const auto found =
      std::ranges::find(profiles, job.settings.videoProfile().value_or(""), &Encoder::Profile::name);
  return found == profiles.end() ? nullptr : &*found;
}

const std::vector<Encoder::Depth>& depthsOf(const Job& job) {
  const auto* profile = chosenProfile(job);
  return profile ? profile->depths : job.encoder->depths;
}

std::string even(const std::string& expression) {
  return "'2*round((" + expression + ")/2)'";
}

}  // namespace

const Container& containerFor(const TranscodeCliArguments& settings) {
  if (const auto format = settings.fileFormat()) {
    const bool asksForMxf = settings.videoFormat() == VAVDnxhdCodec && extensionOf(settings) == ".mxf";
    if (!asksForMxf) return *std::ranges::find(containers, format->rawValue(), &Container::format);
  }
  for (const auto& container : containers) {
    if (extensionOf(settings).native() == "." + std::string(container.extension)) return container;
  }
  return containers[0];
}

const Encoder* encoderFor(const TranscodeCliArguments& settings, const Container& container) {
  if (!container.hasVideo || settings.noVideo()) return nullptr;
  if (settings.argumentFlagValue(VAVVideoFormatFlag) == VAVCopySourceValue) return nullptr;
  const auto fallback = container.extension == "mxf"     ? VAVDnxhdCodec
                        : container.extension == "mjpeg" ? VAVMotionJpegCodec
                                                         : VAVAvcH264Codec;
  const auto codec = settings.videoFormat().value_or(fallback);
  if (container.extension == "mp4" && !codecWithText(codec)->limits.livesInMp4) {
    refuse("mp4 files do not hold " + std::string(codec.rawValue()) + "; -file_format qt does");
  }
  const auto* found = std::ranges::find(encoders, codec.rawValue(), &Encoder::codec);
  if (found == std::end(encoders)) {
    fail(TranscodeExitStatus::unavailable, "no encoder for " + std::string(codec));
  }
  return found;
}

void web(Job& job) {
  if (!job.container.format.empty() && job.container.hasVideo) {
    job.add({"-movflags", "+faststart"});
  } else {
    job.cannot(VAVPrepareForWebFlag, "the container has no such layout");
  }
}

std::vector<std::string> encoderWords(const Job& job) {
  if (!job.encoder) return {};
  auto words = job.encoder->words;
  if (job.settings.videoBitRate()) return words;
  words.insert(words.end(), job.encoder->withoutBitRate.begin(), job.encoder->withoutBitRate.end());
  // The profile of dnxhd that has more than 8 bits and, like the other, any size.
  if (job.encoder->codec == "dnxhd" && job.settings.videoBitDepth() == 10) words.back() = "dnxhr_hqx";
  return words;
}

void videoBitRate(Job& job) {
  if (!job.encoder->takesBitRate)
    return job.cannot(VAVVideoBitRateFlag, "it follows from size and rate in this codec");
  const auto bits = static_cast<std::int64_t>(*job.settings.videoBitRate() * 1e6);
  job.add({"-b:v", std::to_string(bits)});
}

void keyFrames(Job& job) {
  if (!job.encoder->hasKeyFrames)
    return job.cannot(VAVVideoKeyFramesFlag, "every frame is a key frame in this codec");
  const auto interval = std::to_string(*job.settings.videoKeyFrames());
  job.add({"-g", interval, "-keyint_min", interval});
  if (job.encoder->codec == "h265") {
    job.add({"-x265-params", "log-level=error:scenecut=0"});
  } else {
    job.add({"-sc_threshold", "0"});
  }
}

void profile(Job& job) {
  const auto name = *job.settings.videoProfile();
  if (job.encoder->profiles.empty()) return job.cannot(VAVVideoProfileFlag, "this codec has none to choose");
  if (!chosenProfile(job)) {
    std::string sentence = "-vprofile: " + name + " is not one of";
    for (const auto& known : job.encoder->profiles) sentence.append(" ").append(known.name);
    refuse(sentence);
  }
  job.add({"-profile:v", name});
}

void gpuDecoding(Job& job) {
  job.inputWords.insert(job.inputWords.end(), {"-hwaccel", "auto"});
}

void lut(Job& job) {
  using namespace quillonic::lut;
  const auto file = *job.settings.colorLutFile();
  const auto read = readFile(file);
  if (!read) {
    const bool isThere = read.error().reason != Failure::Reason::cannotOpen;
    fail(isThere ? TranscodeExitStatus::badInput : TranscodeExitStatus::noInput,
         "cannot read the look-up table " + file.native() + ": " + read.error().description());
  }
  // ffmpeg reads few formats, one table, up to so many points, and reliably only the domain from 0 to 1.
  constexpr std::size_t greatestCurve = 65'536;
  const bool isCube = read->table3D() != nullptr;
  const bool isSimple = !read->curves() && read->kind() != Kind::shaperAndThreeD &&
                        read->domain() == Domain() && (isCube || read->table1D()->size() <= greatestCurve);
  auto table = std::optional(*read);
  if (!isSimple) {
    const Lut unchanged = isCube ? Lut(*Table3D::identity(leastSize)) : Lut(*Table1D::identity(leastSize));
    const auto all = joined(unchanged, *read, isCube ? edge65 : greatestCurve);
    table = all ? std::optional(all->lut) : std::nullopt;
  }
  if (table) table->header = {};
  const auto text = table ? textOf(*table, Format::cube) : std::nullopt;
  if (!text) fail(TranscodeExitStatus::badInput, "cannot use the look-up table " + file.native());
  job.filter(Step::lut) =
      (table->table1D() ? "lut1d=file=" : "lut3d=file=") + job.folder.write("lut.cube", *text);
}

void frameRate(Job& job) {
  job.filter(Step::rate) = "fps=" + job.rate().text();
}

void dimensions(Job& job) {
  const auto size = *job.settings.videoDimensions();
  if (size.width <= 0 || size.height <= 0 || size.width % 2 != 0 || size.height % 2 != 0) {
    refuse("-dims: codecs take even numbers of pixels above 0");
  }
  const auto width = std::to_string(size.width);
  const auto height = std::to_string(size.height);
  const auto scaling = job.settings.videoAspectScaling().value_or(VAVLetterboxAspect);
  auto& filter = job.filter(Step::size);
  const auto scaled = [&](const std::string& choice) {
    return "scale=w=" + even(choice + "(" + width + "," + height + "*dar)") +
           ":h=" + even(choice + "(" + height + "," + width + "/dar)");
  };
  if (scaling == VAVStretchAspect) {
    filter = "scale=" + width + ":" + height;
  } else if (scaling == VAVCropAspect) {
    const auto anchor = job.settings.videoAspectCropAnchor().value_or(VAVAnchorCenter);
    filter = scaled("max") + ",crop=" + width + ":" + height + ":(iw-ow)*" +
             std::to_string(static_cast<int>(*anchor.column())) + "/2:(ih-oh)*" +
             std::to_string(static_cast<int>(*anchor.row())) + "/2";
  } else {
    filter = scaled("min");
    if (scaling == VAVLetterboxAspect) filter += ",pad=" + width + ":" + height + ":(ow-iw)/2:(oh-ih)/2";
  }
  filter += ",setsar=1";
}

void bitDepth(Job& job) {
  const auto bits = *job.settings.videoBitDepth();
  const auto& depths = depthsOf(job);
  if (std::ranges::find(depths, bits, &Encoder::Depth::bits) == depths.end()) {
    job.cannot(VAVVideoBitDepthFlag, "the encoder has " + std::to_string(depths[0].bits) + " bits");
  }
}

void colorSpace(Job& job) {
  const auto space = job.settings.videoColorSpace()->rawValue();
  const auto& to = *std::ranges::find(colorSpaces, space, &ColorNumbers::space);
  // Files without tags are taken for what their height suggests.
  const auto& source = job.source();
  const auto& from = colorSpaces[source.height >= 720 ? 1 : 3];
  std::string filter = "zscale=p=" + std::string(to.primaries) + ":t=" + std::string(to.transfer) +
                       ":m=" + std::string(to.matrix);
  if (!source.knowsPrimaries) filter.append(":pin=").append(from.primaries);
  if (!source.knowsTransfer) filter.append(":tin=").append(from.transfer);
  if (!source.knowsMatrix) filter.append(":min=").append(from.matrix);
  job.filter(Step::color) = filter;
}

std::string pixelFormat(const Job& job) {
  const auto& depths = depthsOf(job);
  const auto chosen =
      std::ranges::find(depths, job.settings.videoBitDepth().value_or(0), &Encoder::Depth::bits);
  return std::string((chosen == depths.end() ? depths.front() : *chosen).pixels);
}

void pixels(Job& job) {
  if (!job.encoder) return;
  // Colour samples are shared by two pixels in most formats, so an odd row or column cannot be written.
  job.filter(Step::pixels) = "format=" + pixelFormat(job) + ",crop=trunc(iw/2)*2:trunc(ih/2)*2:0:0";
}

}  // namespace transcoder
