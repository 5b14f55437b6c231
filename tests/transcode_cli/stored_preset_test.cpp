#include <quillonic/platform/localization.hpp>
#include <quillonic/transcode_cli.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "texts.hpp"

namespace quillonic {
namespace {

using Options = Cloud_ConversionOptions;
using Video = Options::VideoTranscodeOptions;

TEST(StoredPreset, DisplaysItselfInTheUsersLanguageOnOneLine) {
  class Bracketed final : public Localizer {
    std::string localized(std::string_view text) const override { return "<" + std::string(text) + ">"; }
  };
  auto preset = StoredPreset::builtIn(TranscodeCliPreset::proRes4444XQ);
  preset.name = "Cut\n";
  Localization::setLocalizer(std::make_shared<const Bracketed>());
  EXPECT_EQ(preset.description(), "<Cut\\n: <<ProRes 4444 XQ>>, <<Linear PCM>>, <<QuickTime>>>");
  EXPECT_EQ(preset.details().front(), (DisplayedOption{"-file_format", "<Container>", "<QuickTime>"}));
  Localization::setLocalizer(nullptr);
}

TEST(StoredPreset, SaysWhatItsCodecDoesNotAllow) {
  const std::pair<const char*, const char*> rows[] = {
      {"-vcodec prores422 -file_format mp4 -vbr 3 -vbd 9 -vr 12.5 -dims 7x7",
       "MPEG-4: QuickTime|3: Auto|9: 10"},
      {"-vcodec h264 -file_format wav -vr x -vbr 3",
       "Wave audio: QuickTime/MPEG-4|x: Match/23.976/24.0/25.0/29.97/30.0/50.0/59.94/60.0/Custom"},
      {"-vcodec dnxhd -vr 30 -dims 1920x1080", "30: Match/23.976/24.0/25.0/29.97/50.0/59.94"},
      {"-vcodec prores422 -vn -vbd 9", ""},
      {"-vcodec later -vbd 9", ""},
      {"-vbd 9", ""}};
  for (const auto& [words, expected] : rows) {
    StoredPreset preset;
    preset.setSettings(TranscodeCliArguments(split(words)));
    const auto said = [](const auto& conflict) {
      return conflict.choice.text + ": " + joined(conflict.allowed, '/');
    };
    EXPECT_EQ(joined(preset.conflicts(), '|', said), expected);
  }
}

TEST(StoredPreset, SaysWhatConversionOptionsSayAndNamesTheRest) {
  const std::pair<Options, const char*> rows[] = {
      {{}, ""},
      {{Options::CodecType::h265,
        {1920, 1080, 0, 23.967, 1.5, 10, Video::ColorSpace::sRgb, Video::Container::mp4},
        {48000, 6}},
       "set -acl hex, set -asr 48000, set -c_space sRGB, set -dims 1920x1080, set -file_format mp4, set -vbd "
       "10, "
       "set -vbr 1.5, set -vcodec h265, set -vr 23.976"},
      {{Options::CodecType{99}, {0, 0, 0.5, 0.5, -1, 9, Video::ColorSpace{5}, Video::Container{7}}, {-1, 3}},
       "-vcodec 99|-file_format 7|-vr Half Step|-dims Half|-vbr -1.0|-vbd 9|-c_space 5|-asr -1|-acl 3 "
       "Channels"}};
  for (const auto& [options, expected] : rows) {
    StoredPreset preset;
    const auto unsaid = preset.setSettings(options);
    const auto named = [](const auto& choice) { return choice.flag + " " + choice.text; };
    EXPECT_EQ(preset.changes().description() + joined(unsaid, '|', named), expected);
  }
}

}  // namespace
}  // namespace quillonic
