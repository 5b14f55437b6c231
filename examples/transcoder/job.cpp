#include "job.hpp"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include "picture.hpp"
#include "sound.hpp"

namespace transcoder {
namespace {

using namespace quillonic;

// ffmpeg finds out by itself what a file holds; the extension helps it where contents are ambiguous.
std::string harmlessExtension(const std::filesystem::path& path) {
  const auto extension = path.extension().native();
  const bool isHarmless =
      extension.size() <= 8 && std::ranges::all_of(extension, [](char c) {
        return c == '.' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
      });
  return isHarmless ? extension : std::string();
}

std::vector<Input> inputsOf(const TranscodeCliArguments& settings, const child::PrivateFolder& folder) {
  std::vector<Input> inputs;
  const auto add = [&](const std::filesystem::path& path, std::size_t group) {
    const child::Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0)
      fail(TranscodeExitStatus::noInput, path.native() + ": " + std::strerror(errno));
    if (!S_ISREG(status.st_mode)) fail(TranscodeExitStatus::noInput, path.native() + ": not a file");
    auto name = folder.link(path, "in" + std::to_string(inputs.size()) + harmlessExtension(path));
    inputs.push_back({path, std::move(name), group, {}});
  };
  std::size_t groups = 0;
  if (const auto single = settings.inputPrefix(); single && !single->empty()) add(*single, groups++);
  settings.enumerateInputFileGroups([&](std::span<const std::string_view> files, std::int64_t) {
    for (const auto file : files) add(file, groups);
    ++groups;
  });
  return inputs;
}

}  // namespace

std::string text(double number) {
  std::ostringstream out;
  out << number;
  return out.str();
}

void fail(TranscodeExitStatus status, const std::string& sentence) {
  throw CLIExitCodeError(rawValue(status), sentence);
}

void refuse(const std::string& sentence) {
  fail(TranscodeExitStatus::badUsage, sentence);
}

Job::Job(const TranscodeCliArguments& theSettings, const child::PrivateFolder& theFolder)
    : settings(theSettings),
      folder(theFolder),
      inputs(inputsOf(settings, folder)),
      container(containerFor(settings)),
      encoder(encoderFor(settings, container)),
      hasVideo(container.hasVideo && !settings.noVideo()),
      hasAudio(container.hasAudio && !settings.noAudio()),
      copiesAudio(transcoder::copiesAudio(settings)) {
  if (!hasVideo && !hasAudio) refuse("nothing is left to write without video and audio");
  const bool copiesVideo = hasVideo && !encoder;
  if (isJoined() && (copiesVideo || copiesAudio)) {
    refuse("copying does not join files, and does not part channels");
  }
  if (copiesVideo) add({"-c:v", "copy"});
}

const child::Media& Job::media(std::size_t input) {
  for (auto& each : inputs) {
    if (!each.probe) each.probe.emplace(folder, each.name);
  }
  try {
    return inputs.at(input).probe->media();
  } catch (const child::UnreadableMedia& error) {
    fail(TranscodeExitStatus::badInput, "cannot read " + inputs[input].path.native() + ": " + error.what());
  }
}

double Job::duration() {
  double sum = 0;
  for (std::size_t i = 0; i < inputs.size(); ++i) sum += media(i).duration;
  return sum;
}

child::Rate Job::rate() {
  if (const auto wanted = settings.videoFrameRate(); wanted && *wanted > 0) {
    // Beyond these, ffmpeg repeats frames for hours, or finds no clock that counts them.
    if (*wanted < 0.01 || *wanted > 1000) refuse("-vr: from 0.01 to 1000 frames per second");
    return child::Rate::fromNumber(*wanted);
  }
  if (source().rate.frames > 0) return source().rate;
  if (const auto counted = settings.timecodeFrameRate(); counted && *counted > 0)
    return child::Rate::fromNumber(*counted);
  refuse("the source has no frame rate; give one with -vr or -tc_rate");
}

TimecodeRate Job::timecodeRate() {
  const auto counted = rate();
  if (const auto result = TimecodeRate::fromFraction(counted.frames, counted.seconds)) return *result;
  refuse("no timecode counts " + text(counted.perSecond()) + " frames per second");
}

void Job::cannot(std::string_view flag, std::string_view why) {
  const auto sentence = std::string(flag) + " is not honoured: " + std::string(why);
  if (std::ranges::find(notHonoured, sentence) == notHonoured.end()) notHonoured.push_back(sentence);
}

}  // namespace transcoder
