#include "probe.hpp"

#include <quillonic/time.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

namespace child {
namespace {

using json = nlohmann::ordered_json;

// ffprobe writes most numbers as texts.
template <class Number> Number number(const json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end()) return Number{};
  if (found->is_number()) return found->get<Number>();
  const auto text = found->get<std::string>();
  Number value{};
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string text(const json& object, const char* key) {
  return object.value(key, std::string());
}

std::optional<std::string> tag(const json& object, const char* key) {
  const auto tags = object.value("tags", json::object());
  return tags.contains(key) ? std::optional(tags.at(key).get<std::string>()) : std::nullopt;
}

// The two whole numbers of "30000/1001" or "16:9"; zeros if there are none.
std::pair<std::int64_t, std::int64_t> fraction(const std::string& text) {
  const auto middle = text.find_first_of("/:");
  if (middle == std::string::npos) return {};
  std::pair<std::int64_t, std::int64_t> result;
  std::from_chars(text.data(), text.data() + middle, result.first);
  std::from_chars(text.data() + middle + 1, text.data() + text.size(), result.second);
  return result;
}

bool isTurned(const json& stream) {
  for (const auto& side : stream.value("side_data_list", json::array())) {
    if (std::abs(number<int>(side, "rotation")) == 90) return true;
  }
  return false;
}

void readVideo(const json& stream, Media& media) {
  media.hasVideo = true;
  const auto duration = number<double>(stream, "duration");
  media.pictureDuration = duration > 0 ? duration : media.duration;
  media.width = number<std::int64_t>(stream, "width");
  media.height = number<std::int64_t>(stream, "height");
  if (const auto [x, y] = fraction(text(stream, "sample_aspect_ratio")); x > 0 && y > 0) {
    media.width = media.width * x / y;
  }
  if (isTurned(stream)) std::swap(media.width, media.height);
  auto [frames, seconds] = fraction(text(stream, "avg_frame_rate"));
  if (frames <= 0 || seconds <= 0) std::tie(frames, seconds) = fraction(text(stream, "r_frame_rate"));
  if (frames > 0 && seconds > 0) {
    media.rate = Rate::fromNumber(static_cast<double>(frames) / static_cast<double>(seconds));
  }
  const auto known = [&](const char* key) {
    const auto value = text(stream, key);
    return !value.empty() && value != "unknown";
  };
  media.knowsPrimaries = known("color_primaries");
  media.knowsTransfer = known("color_transfer");
  media.knowsMatrix = known("color_space");
}

Media read(json&& found) {
  Media media;
  const auto format = found.value("format", json::object());
  media.duration = number<double>(format, "duration");
  media.timecode = tag(format, "timecode");
  media.creationTime = tag(format, "creation_time");
  for (const auto& stream : found.value("streams", json::array())) {
    const auto kind = text(stream, "codec_type");
    const bool cover = stream.value(json::json_pointer("/disposition/attached_pic"), 0) == 1;
    if (kind == "video" && !cover && !media.hasVideo) readVideo(stream, media);
    if (kind == "audio") {
      media.audio.push_back({number<std::int64_t>(stream, "channels"),
                             number<std::int64_t>(stream, "sample_rate"), text(stream, "channel_layout")});
    }
    if (!media.timecode) media.timecode = tag(stream, "timecode");
    if (!media.creationTime) media.creationTime = tag(stream, "creation_time");
  }
  media.json = std::move(found);
  return media;
}

Program ffprobe(const PrivateFolder& folder, const std::string& file, bool countFrames) {
  Program program{"ffprobe", {"-v", "error", "-of", "json", "-show_format", "-show_streams"}, folder.path()};
  if (countFrames) program.words.emplace_back("-count_frames");
  program.words.insert(program.words.end(), {"-protocol_whitelist", "file", "-i", file});
  return program;
}

}  // namespace

Rate Rate::fromNumber(double perSecond) {
  if (const auto rate = quillonic::TimecodeRate::fromDecimal(perSecond))
    return {rate->numerator(), rate->denominator()};
  return {static_cast<std::int64_t>(std::round(perSecond * 1000)), 1000};
}

Probe::Probe(const PrivateFolder& folder, const std::string& file, bool countFrames)
    : prefix_(file + ": "), child_(ffprobe(folder, file, countFrames)) {}

const Media& Probe::media() {
  if (!media_) {
    auto result = collect(child_);
    if (result.errors.starts_with(prefix_)) result.errors.erase(0, prefix_.size());
    auto found = json::parse(result.output, nullptr, false);
    if (result.status != 0 || !found.is_object() || found.value("streams", json::array()).empty()) {
      throw UnreadableMedia(result.errors.empty() ? "it has no media" : result.errors);
    }
    damage_ = result.errors;
    media_ = read(std::move(found));
  }
  return *media_;
}

}  // namespace child
