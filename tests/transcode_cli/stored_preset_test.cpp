#include <quillonic/platform/localization.hpp>
#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "error_of.hpp"
#include "random_preset.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

bool isOfJob(std::string_view flag) {
  const bool isCommand = !fromRawValue<VAVTranscodeCliCommand>(flag)->meaning().empty();
  return flag.starts_with("-in") || flag == "-out" || flag.starts_with("-progress_") || isCommand;
}

std::string shown(const std::vector<DisplayedOption>& options) {
  return joined(options, '|',
                [](const auto& option) { return option.flag + " " + option.name + ": " + option.text; });
}

TEST(StoredPreset, IsWhatItsSettingsMakeAndLeavesJobsAlone) {
  std::mt19937 random(20);
  for (int i = 0; i < 1000; ++i) {
    const auto preset = randomPreset(random, false);
    auto again = preset;
    again.setSettings(preset.settings());
    EXPECT_EQ(again, preset) << preset.changes().description();

    TranscodeCliArguments job;
    randomChanges(random, false).apply(job);
    const auto before = job.clone();
    const auto changing = randomPreset(random, true);
    EXPECT_EQ(decode<StoredPreset>(encode(changing)), changing);
    changing.applyTo(job);
    for (const auto& [flag, was, is] : job.differencesFrom(before)) {
      const auto& changes = changing.changes().byFlag();
      EXPECT_FALSE(isOfJob(flag)) << flag;
      EXPECT_TRUE(changes.contains(flag) || flag.starts_with("-ac_omit") || flag == "-tc_custom") << flag;
    }
    for (const auto& [flag, text] : changing.changes().byFlag()) {
      EXPECT_EQ(job.hasArgumentFlag(flag), text.has_value()) << flag;
    }
    preset.replaceIn(job);
    for (const auto& [flag, was, is] : job.differencesFrom(before)) EXPECT_FALSE(isOfJob(flag)) << flag;
    again.setSettings(job);
    EXPECT_EQ(again, preset);
  }
}

TEST(StoredPreset, DisplaysItselfAndWhatItsCodecDoesNotAllow) {
  StoredPreset preset("x", "Cut\n");
  EXPECT_EQ(preset.description(), "Cut\\n");
  preset.setSettings(TranscodeCliArguments(split(
      "-vcodec prores422 -file_format mp4 -vr 23.98 -vbr 3 -vbd 9 -dims 960x540 -ac_omit_2 2 -ac_omit_0 0 "
      "-acl stereo -web  -tc_burn_later 1 -wmt_burn  -clut /L -out /o")));
  auto changes = preset.changes();
  changes.remove("-abr");
  changes.remove("-an");
  preset.setChanges(changes);
  EXPECT_EQ(preset.description(),
            "Cut\\n: ProRes 422, 960x540, 23.98 fps, 3 Mb/s, Two channels, MPEG-4, LUT, burnt-in text");
  EXPECT_EQ(
      shown(preset.details()),
      "-file_format Container: MPEG-4|-clut LUT: /L|-web Prepare for web: On|-vcodec Video codec: ProRes 422|"
      "-vr Frame rate (fps): 23.98|-dims Frame size: 960x540|-vbr Video bit rate (Mb/s): 3|"
      "-vbd Bits per colour: 9|-an No audio: Off|-ac_omit Omitted audio tracks: 0, 2|"
      "-acl Channel layout: Two channels|-abr Audio bit rate: Not set|-wmt_burn Burn in text: On|"
      "-tc_burn_later -tc_burn_later: 1");

  // Each line: settings, and the choices that are not allowed with what is.
  const std::pair<const char*, const char*> rows[] = {
      {"-vcodec prores422 -file_format mp4 -vbr 3 -vbd 9 -vr 12.5 -dims 7x7",
       "MPEG-4: QuickTime|3: Auto|9: 10"},
      {"-vcodec prores4444 -vbd 16", "16: 10/12"},
      {"-vcodec h264 -file_format wav -vr x -vbr 3",
       "Wave audio: QuickTime/MPEG-4|x: Match/23.976/24.0/25.0/29.97/30.0/50.0/59.94/60.0/Custom"},
      {"-vcodec dnxhd -vr 12.5 -dims 1920x1080", "12.5: Match/23.976/24.0/25.0/29.97/50.0/59.94"},
      {"-vcodec h264 -file_format mp4 -vr 12.5 -vbd 8 -dims 7x7", ""},
      {"-vcodec prores422 -vn -vbd 9", ""},
      {"-vcodec later -vbd 9", ""},
      {"-vbd 9", ""}};
  for (const auto& [words, expected] : rows) {
    preset.setSettings(TranscodeCliArguments(split(words)));
    EXPECT_EQ(joined(preset.conflicts(), '|',
                     [](const auto& conflict) {
                       return conflict.choice.text + ": " + joined(conflict.allowed, '/');
                     }),
              expected);
  }

  class Bracketed final : public Localizer {
    std::string localized(std::string_view text) const override { return "<" + std::string(text) + ">"; }
  };
  Localization::setLocalizer(std::make_shared<const Bracketed>());
  const auto builtIn = StoredPreset::builtIn(TranscodeCliPreset::proRes4444XQ);
  EXPECT_EQ(builtIn.description(), "<ProRes 4444 XQ: <<ProRes 4444 XQ>>, <<Linear PCM>>, <<QuickTime>>>");
  Localization::setLocalizer(nullptr);
  EXPECT_EQ(builtIn.settings().flagValueLookup(), presetArguments(TranscodeCliPreset::proRes4444XQ));
}

TEST(StoredPreset, SaysWhatConversionOptionsSayAndNamesTheRest) {
  using Options = Cloud_ConversionOptions;
  Options options;
  StoredPreset preset;
  EXPECT_EQ(shown(preset.setSettings(options)) + preset.changes().description(), "");
  options = {Options::CodecType::h265,
             {.width = 1920,
              .height = 1080,
              .frameRate = 23.967,
              .dataRate = 1.5,
              .colorDepth = 10,
              .colorSpace = Options::VideoTranscodeOptions::ColorSpace::sRgb,
              .container = Options::VideoTranscodeOptions::Container::mp4},
             {48000, 6}};
  EXPECT_EQ(shown(preset.setSettings(options)), "");
  EXPECT_EQ(preset.changes().description(),
            "set -acl hex, set -asr 48000, set -c_space sRGB, set -dims 1920x1080, set -file_format mp4, set "
            "-vbd 10, "
            "set -vbr 1.5, set -vcodec h265, set -vr 23.976");
  options = {Options::CodecType{99},
             {.scale = 0.5,
              .frameRate = 0.5,
              .dataRate = -1,
              .colorDepth = 9,
              .colorSpace = Options::VideoTranscodeOptions::ColorSpace{5},
              .container = Options::VideoTranscodeOptions::Container{7}},
             {-1, 3}};
  EXPECT_EQ(joined(preset.setSettings(options), '|',
                   [](const auto& choice) { return choice.flag + " " + choice.text; }),
            "-vcodec 99|-file_format 7|-vr Half Step|-dims Half|-vbr -1.0|-vbd 9|-c_space 5|-asr -1|-acl 3 "
            "Channels");
  EXPECT_EQ(preset.changes(), TranscodeOptionChanges());
}

}  // namespace
}  // namespace quillonic
