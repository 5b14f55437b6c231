// One change for a whole queue of jobs; then the parent reads the progress of a child.
#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <iostream>
#include <string>
#include <vector>

using namespace quillonic;

namespace {

std::vector<TranscodeCliArguments> queueOfJobs() {
  std::vector<TranscodeCliArguments> queue;
  for (int clip = 1; clip <= 100; ++clip) {
    auto& job = queue.emplace_back(orderedArgumentsAsList(TranscodeCliPreset::vantiroCloud), true);
    job.setInputPrefix("/card/clip" + std::to_string(clip) + ".mov");
  }
  return queue;
}

// What the user changed in a window. All other options of a job stay.
TranscodeOptionChanges reviewChanges() {
  TranscodeOptionChanges changes;
  changes.set(VAVVideoFormatFlag, VAVProRes422Proxy);
  changes.set(VAVVideoFrameRateFlag, TimecodeRate::fps29_97.decimal());
  changes.set(VAVWatermarkTextAddBurnFlag, true);
  changes.set(VAVWatermarkTextBurnTextFlag, "for review");
  changes.set(VAVWatermarkTextBurnFontRGBFlag, Color::rgb255(255, 255, 255));
  changes.set(VAVPrepareForWebFlag, false);
  changes.remove(VAVVideoBitRateFlag);
  return changes;
}

}  // namespace

int main() {
  auto queue = queueOfJobs();
  const auto changes = decode<TranscodeOptionChanges>(encode(reviewChanges()));  // as stored in between
  for (auto& job : queue) changes.apply(job);
  std::cout << changes.description() << '\n';

  const auto& last = queue.back();
  std::cout << last.inputPrefix()->native() << ": " << fromArguments<FrameRate>(last)->description() << ", "
            << fromArguments<VideoDimension>(last)->description() << '\n';
  for (const auto& depth : allowed<ColorDepth>(*last.videoFormat())) std::cout << description(depth) << '\n';
  if (auto job = TranscodeCliArguments(); !storeIn(FrameRate::halfstep, job)) {
    std::cout << "no command line says: " << FrameRate::halfstep.description() << '\n';
  }

  // The child's lines, with the prefix that the parent asked for.
  const std::string prefix = "progress:";
  for (const auto& line :
       {ProgressLine{.fraction = 0.425, .frame = 1020, .speed = 2.5, .secondsLeft = 90}.text(prefix),
        std::string("opened the output"), ProgressLine{.fraction = 1}.text(prefix)}) {
    if (const auto progress = ProgressLine::fromText(line, prefix)) {
      const auto done = static_cast<std::size_t>(20 * progress->fraction.value_or(0));
      std::cout << '[' << std::string(done, '#') << std::string(20 - done, '.') << "] " << progress->text()
                << '\n';
    } else {
      std::cout << line << '\n';
    }
  }
  constexpr int exited = 66;
  if (const auto status = fromRawValue<TranscodeExitStatus>(exited)) std::cout << meaning(*status) << '\n';
}
