// A job's words made from a stored preset, beside plain dictionaries.
#include <quillonic/transcode_cli.hpp>

#include <map>
#include <memory>
#include <string>

#include "rows.hpp"
#include "words.hpp"

namespace quillonic::benchmarks {
namespace {

StoredPreset dailies() {
  auto preset = StoredPreset::builtIn(TranscodeCliPreset::vantiroCloud);
  auto all = preset.changes();
  for (const auto* flag : {"-tc_burn", "-tc_match", "-tc_track", "-wmt_burn"}) all.set(flag);
  all.set(VAVColorLutFileFlag, "/media/SHOW/luts/Show Rec709.cube");
  all.set(VAVVideoFrameRateFlag, 23.976);
  all.set(VAVTimecodeBurnFontRGB, Color::rgb255(255, 255, 255));
  all.set(VAVWatermarkTextBurnTextFlag, "for review only");
  all.set(VAVWatermarkTextBurnAnchorFlag, VAVAnchorBottomCenter);
  preset.setChanges(all);
  return preset;
}

constexpr const char* input = "/media/CARD 1/A001_C001.mov";

Work written(const StoredPreset& preset) {
  return [=] {
    auto job = preset.settings();
    job.setInputFiles({input});
    job.setOutputFile(changes[0][1]);
    use(job.launchArguments());
  };
}

Work writtenByHand(const StoredPreset& preset) {
  return [options = std::map(preset.settings().flagValueLookup())] {
    auto job = options;
    job["-in_0_0"] = input;
    job["-out"] = changes[0][1];
    Words words;
    words.reserve(2 * job.size());
    for (const auto& [flag, value] : job) append(words, flag, value);
    use(words);
  };
}

const bool added = [] {
  const std::string work = "a stored preset of 18 options to the words of a job";
  add({work, ours, "trims, lower-cases and checks each flag"}, [] { return written(dailies()); });
  add({work, "standard containers by hand", "copies what was checked before"},
      [] { return writtenByHand(dailies()); });
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
