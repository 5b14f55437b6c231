// What ffprobe finds in a media file.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.hpp"

namespace child {

// A frame rate as a fraction.
struct Rate {
  std::int64_t frames = 0;
  std::int64_t seconds = 1;

  double perSecond() const { return static_cast<double>(frames) / static_cast<double>(seconds); }
  std::string text() const { return std::to_string(frames) + "/" + std::to_string(seconds); }

  friend bool operator==(const Rate&, const Rate&) = default;

  // Takes a rounded number such as 23.98 for the broadcast rate that it means.
  static Rate fromNumber(double perSecond);
};

struct AudioTrack {
  std::int64_t channels = 0;
  std::int64_t sampleRate = 0;
  std::string layout;
};

struct Media {
  double duration = 0;         // seconds; 0 if unknown
  double pictureDuration = 0;  // sound may go on for a while
  bool hasVideo = false;
  std::int64_t width = 0;  // as shown: pixels made square, rotation applied
  std::int64_t height = 0;
  Rate rate;
  bool knowsPrimaries = false;  // whether the file says what its colours are
  bool knowsTransfer = false;
  bool knowsMatrix = false;
  std::vector<AudioTrack> audio;
  std::optional<std::string> timecode;
  std::optional<std::string> creationTime;  // ISO 8601
  nlohmann::ordered_json json;              // all of it
};

struct UnreadableMedia : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Asks ffprobe, which runs beside the caller until the answer is needed.
class Probe {
 public:
  // The file's name must be harmless: see PrivateFolder::link.
  Probe(const PrivateFolder& folder, const std::string& file, bool countFrames = false);
  // Throws UnreadableMedia with ffprobe's own words.
  const Media& media();
  // What ffprobe said of damage in a file that can be read all the same; empty if nothing.
  const std::string& damage() const { return damage_; }

 private:
  std::string prefix_;  // of sentences about the file, whose harmless name says nothing to people
  Child child_;
  std::optional<Media> media_;
  std::string damage_;
};

}  // namespace child
