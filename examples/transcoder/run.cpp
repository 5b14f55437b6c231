#include "run.hpp"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iostream>

#include "mapping.hpp"
#include "picture.hpp"
#include "sound.hpp"

namespace transcoder {
namespace {

using namespace quillonic;

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
  std::string text;
  for (const auto& part : parts) {
    if (part.empty()) continue;
    if (!text.empty()) text += separator;
    text += part;
  }
  return text;
}

std::string pictureChain(const Job& job) {
  return job.encoder ? joined({job.picture.begin(), job.picture.end()}, ",") : std::string();
}

std::vector<std::size_t> keptTracks(Job& job) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < job.inputs.size(); ++i) count = std::max(count, job.media(i).audio.size());
  const auto omitted = job.settings.ignoredAudioTracks();
  std::vector<std::size_t> kept;
  for (std::size_t track = 0; job.hasAudio && track < count; ++track) {
    if (std::ranges::find(omitted, static_cast<std::int64_t>(track)) == omitted.end()) kept.push_back(track);
  }
  return kept;
}

// A track as the first file that has it has it.
child::AudioTrack trackModel(Job& job, std::size_t track) {
  for (std::size_t i = 0; i < job.inputs.size(); ++i) {
    if (const auto& audio = job.media(i).audio; track < audio.size()) {
      auto model = audio[track];
      if (model.layout.empty()) model.layout = std::to_string(model.channels) + "c";
      return model;
    }
  }
  return {2, 48000, "stereo"};
}

std::string label(std::string_view name, std::size_t number, std::size_t file) {
  return "[" + std::string(name) + std::to_string(number) + "_" + std::to_string(file) + "]";
}

// Makes each channel of a track a track of its own.
std::string parted(Job& job, std::size_t track, const std::string& from, std::vector<std::string>& outputs) {
  const auto model = trackModel(job, track);
  const auto wanted = static_cast<std::size_t>(discreteChannels(job, model));
  std::string filters = from + "asplit=" + std::to_string(wanted);
  for (std::size_t channel = 0; channel < wanted; ++channel) filters += label("part", track, channel);
  for (std::size_t channel = 0; channel < wanted; ++channel) {
    // A channel that the source lacks is silent.
    const bool isThere = static_cast<std::int64_t>(channel) < model.channels;
    outputs.push_back(label("out", track, channel));
    filters += ";\n" + label("part", track, channel) +
               "pan=mono|c0=" + (isThere ? "c" + std::to_string(channel) : "0*c0") + outputs.back();
  }
  return filters;
}

// Several inputs, each made like the first one, follow each other in one programme. Adds the maps of its
// streams.
std::string graph(Job& job, std::vector<std::string>& maps) {
  const auto& first = job.source();
  const bool hasVideo = job.hasVideo && first.hasVideo;
  const auto tracks = keptTracks(job);
  std::string filters;
  std::string pieces;
  for (std::size_t i = 0; i < job.inputs.size(); ++i) {
    const auto& media = job.media(i);
    if (hasVideo && !media.hasVideo)
      refuse(job.inputs[i].path.native() + " has no video, unlike the first input");
    if (hasVideo) {
      const auto width = std::to_string(first.width / 2 * 2);
      const auto height = std::to_string(first.height / 2 * 2);
      filters += "[" + std::to_string(i) + ":V:0]fps=" + job.rate().text() + ",scale=w='min(" + width + "," +
                 height + "*dar)':h='min(" + height + "," + width + "/dar)',pad=" + width + ":" + height +
                 ":(ow-iw)/2:(oh-ih)/2,setsar=1,format=" + pixelFormat(job) + label("v", 0, i) + ";\n";
      pieces += label("v", 0, i);
    }
    for (const auto track : tracks) {
      const auto model = trackModel(job, track);
      const auto rate = std::to_string(model.sampleRate);
      if (track < media.audio.size()) {
        filters += "[" + std::to_string(i) + ":a:" + std::to_string(track) + "]aresample=" + rate +
                   ",aformat=channel_layouts=" + model.layout;
      } else {
        filters += "anullsrc=r=" + rate + ":cl=" + model.layout + ":d=" + std::to_string(media.duration);
      }
      filters += label("a", track, i) + ";\n";
      pieces += label("a", track, i);
    }
  }

  filters += pieces + "concat=n=" + std::to_string(job.inputs.size()) + ":v=" + (hasVideo ? "1" : "0") +
             ":a=" + std::to_string(tracks.size());
  if (hasVideo) filters += "[joined]";
  for (const auto track : tracks) filters += "[sound" + std::to_string(track) + "]";
  std::vector<std::string> outputs;
  if (hasVideo) {
    outputs.emplace_back("[picture]");
    filters += ";\n[joined]" + pictureChain(job) + outputs.back();
  }
  for (const auto track : tracks) {
    const auto from = "[sound" + std::to_string(track) + "]";
    if (job.settings.discreteAudio()) {
      filters += ";\n" + parted(job, track, from, outputs);
    } else {
      outputs.push_back(label("out", track, 0));
      filters += ";\n" + from + joined({"anull", job.sound}, ",") + outputs.back();
    }
  }
  for (const auto& output : outputs) maps.insert(maps.end(), {"-map", output});
  return filters;
}

// One input: ffmpeg needs to be told nothing about it, and so starts before ffprobe.
std::vector<std::string> plainMaps(const Job& job) {
  std::vector<std::string> maps;
  if (job.hasVideo) maps.insert(maps.end(), {"-map", "0:V:0?"});
  if (job.hasAudio) maps.insert(maps.end(), {"-map", "0:a?"});
  for (const auto track : job.settings.ignoredAudioTracks()) {
    if (job.hasAudio) maps.insert(maps.end(), {"-map", "-0:a:" + std::to_string(track) + "?"});
  }
  if (job.encoder) maps.insert(maps.end(), {"-filter_script:v:0", "pipe:3"});
  if (job.hasAudio && !job.sound.empty()) maps.insert(maps.end(), {"-filter:a", job.sound});
  return maps;
}

bool hasChapters(const Job& job) {
  return job.inputs.back().group > 0;
}

// A chapter for each group of inputs.
std::string chapters(Job& job) {
  std::string text;
  double begin = 0;
  double end = 0;
  for (std::size_t i = 0; i < job.inputs.size(); ++i) {
    end += job.media(i).duration;
    const bool isLast = i + 1 == job.inputs.size() || job.inputs[i + 1].group != job.inputs[i].group;
    if (!isLast) continue;
    const auto milliseconds = [](double seconds) {
      return std::to_string(static_cast<std::int64_t>(seconds * 1000));
    };
    text += "[CHAPTER]\nTIMEBASE=1/1000\nSTART=" + milliseconds(begin) + "\nEND=" + milliseconds(end) +
            "\ntitle=" + std::to_string(job.inputs[i].group + 1) + "\n";
    begin = end;
  }
  return text;
}

child::Program ffmpeg(Job& job, std::string& filters) {
  const bool hasMetadata = job.settings.timecodeAddTrack() || hasChapters(job);
  child::Program program{"ffmpeg",
                         {"-nostdin", "-hide_banner", "-v", "error", "-nostats", "-progress", "pipe:1",
                          "-stats_period", "0.25", "-y"},
                         job.folder.path(),
                         2};
  auto& words = program.words;
  for (const auto& input : job.inputs) {
    words.insert(words.end(), job.inputWords.begin(), job.inputWords.end());
    words.insert(words.end(), {"-protocol_whitelist", "file,pipe", "-i", input.name});
  }
  if (hasMetadata) {
    const auto number = std::to_string(job.inputs.size());
    words.insert(words.end(),
                 {"-f", "ffmetadata", "-i", "pipe:4", "-map_metadata", number, "-map_metadata", "0"});
    words.insert(words.end(), {"-map_chapters", hasChapters(job) ? number : "0"});
  }
  std::vector<std::string> maps;
  if (job.isJoined()) {
    mapBySource(job);
    filters = graph(job, maps);
    words.insert(words.end(), {"-filter_complex_script", "pipe:3"});
  } else {
    maps = plainMaps(job);
  }
  if (job.container.extension == "wav" && (job.isJoined() ? maps.size() / 2 : keptTracks(job).size()) > 1) {
    refuse("wav files hold one track of sound; -ac_omit leaves others out, and -adiscrete makes more");
  }
  words.insert(words.end(), maps.begin(), maps.end());
  const auto encoder = encoderWords(job);
  words.insert(words.end(), encoder.begin(), encoder.end());
  words.insert(words.end(), job.outputWords.begin(), job.outputWords.end());
  // The source's own timecode, which may not fit the output's rate, does not come along unasked.
  words.insert(words.end(), {"-metadata:s:v", "timecode="});
  if (!job.settings.timecodeAddTrack()) words.insert(words.end(), {"-metadata", "timecode="});
  if (job.container.extension == "wav" && hasMetadata) words.insert(words.end(), {"-write_bext", "1"});
  words.insert(words.end(), {"-f", std::string(job.container.muxer), "out"});
  return program;
}

template <class Number> Number numberIn(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  Number value{};
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// ffmpeg's lines name the harmless names; people know the others.
std::string withRealNames(std::string line, const Job& job) {
  for (const auto& input : job.inputs) {
    if (const auto at = line.find(input.name); at != std::string::npos)
      line.replace(at, input.name.size(), input.path.native());
  }
  return line;
}

// Reads one line of ffmpeg's machine-readable progress. Whether a report is complete.
bool readProgress(std::string_view line, Job& job, ProgressLine& progress) {
  const auto equals = std::min(line.find('='), line.size());
  const auto key = line.substr(0, equals);
  const auto value = line.substr(std::min(equals + 1, line.size()));
  if (key == "frame") progress.frame = numberIn<std::int64_t>(value);
  if (const auto speed = numberIn<double>(value); key == "speed" && speed > 0) progress.speed = speed;
  // The first report, which has no speed, does not wait for what ffprobe finds.
  if (key == "out_time_us" && progress.speed && job.duration() > 0) {
    // It is all done only when the output has its name.
    progress.fraction = std::clamp(numberIn<double>(value) / 1e6 / job.duration(), 0.0, 0.9999);
    const auto left = (1 - *progress.fraction) * job.duration() / *progress.speed;
    progress.secondsLeft = left < 1e9 ? std::optional(std::llround(left)) : std::nullopt;
  }
  return key == "progress" && value == "continue";
}

}  // namespace

void run(Job& job, const std::function<void(const ProgressLine&)>& onProgress) {
  const auto target = *job.settings.outputFile();
  const auto cannotCreate = [&](const std::string& why) {
    fail(TranscodeExitStatus::cannotCreate, target.native() + ": " + why);
  };
  const bool overwrite = job.settings.overwriteExisting();
  std::error_code error;
  const auto existing = std::filesystem::status(target, error);
  if (std::filesystem::exists(existing)) {
    for (const auto& input : job.inputs) {
      if (std::filesystem::equivalent(target, input.path, error)) cannotCreate("is an input");
    }
    if (!overwrite) cannotCreate("exists, and -overwrite is not set");
    if (!std::filesystem::is_regular_file(existing)) cannotCreate("is not a file");
  }
  std::optional<child::PartFile> part;
  try {
    part.emplace(target);
  } catch (const std::system_error& failure) {
    cannotCreate(failure.what());
  }
  job.folder.link(part->path(), "out");

  mapBeforeStart(job);
  std::string filters;
  child::Child process(ffmpeg(job, filters));
  if (!job.isJoined()) {
    // ffmpeg reads its filters when it has opened its input, and ffprobe looks at that meanwhile, if need be.
    mapBySource(job);
    filters = pictureChain(job);
  }
  process.feed(0, filters);
  process.feed(1, ";FFMETADATA1\n" + job.metadata + (hasChapters(job) ? chapters(job) : ""));
  for (const auto& sentence : job.notHonoured) std::cerr << "transcoder_tool: " << sentence << '\n';

  ProgressLine progress;
  std::string reason;  // what went wrong first, which makes the rest go wrong
  bool isFull = false;
  child::Child* const children[] = {&process};
  child::readLines(children, [&](std::size_t, child::Stream stream, std::string_view line) {
    if (stream == child::Stream::errors) {
      const auto sentence = withRealNames(std::string(line), job);
      std::cerr << "ffmpeg: " << sentence << '\n';
      const bool saysFull = sentence.find(std::strerror(ENOSPC)) != std::string::npos;
      if (reason.empty() || (saysFull && !isFull)) reason = sentence;
      isFull = isFull || saysFull;
    } else if (readProgress(line, job, progress)) {
      onProgress(progress);
    }
  });
  if (process.wait() != 0) {
    job.duration();  // an input that cannot be read is named
    fail(isFull ? TranscodeExitStatus::cannotWrite : TranscodeExitStatus::failure, "ffmpeg: " + reason);
  }
  if (const auto failure = part->finish(overwrite)) cannotCreate(failure.message());
  progress.fraction = 1;
  progress.secondsLeft = std::nullopt;
  onProgress(progress);
}

}  // namespace transcoder
