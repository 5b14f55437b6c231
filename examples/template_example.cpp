// A template for many jobs: a model without files is cloned, and each clone gets its own. What would not
// reach the tool is told before it starts.
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <filesystem>
#include <iostream>
#include <string>

using namespace quillonic;

namespace {

TranscodeCliArguments reviewTemplate() {
  TranscodeCliArguments settings;
  settings.setPreset(VAVVantiroCloudPresetValue);
  settings.setVideoDimensions(FrameSize{1280, 720});
  settings.setWatermarkTextAddBurn(true);
  settings.setWatermarkTextBurnText("for review");
  return settings;
}

TranscodeCliArguments jobFor(const TranscodeCliArguments& review, const std::filesystem::path& clip) {
  auto job = review.clone();
  job.setInputFiles({clip});
  job.setOutputFile(std::filesystem::path("/media/review") / clip.filename());
  return job;
}

}  // namespace

int main() {
  for (const auto preset : allCases<TranscodeCliPreset>()) {
    std::cout << "preset " << presetCliValue(preset) << ": " << description(preset) << '\n';
  }

  // The preset by its name, below what the template sets: the frame size stays.
  auto review = reviewTemplate();
  const auto before = review.clone();
  if (const auto preset = presetWithCliValue(review.preset().value_or(VAVVantiroCloudPresetValue))) {
    review.apply(*preset, ApplyLayer::belowWhatIsSet);
  }
  for (const auto& change : review.differencesFrom(before)) {
    std::cout << "from the preset: " << change.flag << ' ' << change.after.value_or("") << '\n';
  }

  for (int number = 1; number <= 100; ++number) {
    const auto job = jobFor(review, "/card/Take " + std::to_string(number) + ".mov");
    if (!job.problems().empty()) return 1;
    if (number == 100) std::cout << "transcoder " << shellQuoted(job.launchArguments()) << '\n';
  }

  // A user's changes to one job.
  auto job = jobFor(review, "/card/Take 7.mov");
  job.setArgumentFlagValue(VAVVideoFrameRateFlag, "24fps");
  job.setArgumentFlagValue(VAVVideoFormatFlag, "h246");
  job.setWatermarkTextBurnText("For Review");
  for (const auto& problem : job.problems()) std::cout << problem.description() << '\n';
}
