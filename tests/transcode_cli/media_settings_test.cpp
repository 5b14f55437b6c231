#include <quillonic/transcode_cli.hpp>

#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "texts.hpp"

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;
using CodecType = Cloud_ConversionOptions::CodecType;

// What a command line says of a setting: its words, "nothing" or "refused"; and that it reads back.
template <class Setting> std::string said(const Setting& setting, const Setting& readBack) {
  Model model(split("-vcodec x -vr x -dims x -vbr x -vbd x -asr x -acl x"));
  const auto before = model.flagValueLookup();
  EXPECT_EQ(fromArguments<Setting>(model), std::nullopt);
  if (!storeIn(setting, model)) return model.flagValueLookup() == before ? "refused" : "changed";
  EXPECT_EQ(fromArguments<Setting>(Model(model.commandLineArguments())), readBack);
  for (const auto& [flag, value] : model.flagValueLookup()) {
    if (value != "x") return flag + " " + value;
  }
  return model.flagValueLookup().size() == before.size() - 1 ? "nothing" : "too much removed";
}

template <class Setting> std::string said(const Setting& setting) {
  return said(setting, setting);
}

TEST(MediaSettings, AreSaidExactlyAndReadBackOrRefused) {
  const auto all = [](const auto& settings) {
    return joined(settings, '|', [](const auto& s) { return said(s); });
  };
  EXPECT_EQ(all(FrameRate::wellDefinedCases()),
            "nothing|refused|-vr 23.976|-vr 24.0|-vr 25.0|-vr 29.97|-vr 30.0|-vr 50.0|-vr 59.94|-vr 60.0");
  EXPECT_EQ(said(FrameRate::custom(23.98), FrameRate::fps23_98), "-vr 23.976");
  EXPECT_EQ(said(FrameRate::custom(12.5)) + said(FrameRate::custom(0.5)), "-vr 12.5-vr 0.5");
  for (const double none : {0.0, -1.0, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(said(FrameRate::custom(none)) + said(VideoDataRate::restrict(none)), "refusedrefused");
    EXPECT_EQ(said(VideoDimension::custom(none, 2)) + said(VideoDimension::custom(2, none)),
              "refusedrefused");
  }
  EXPECT_EQ(all(VideoDimension::allCases()),
            "nothing|refused|refused|refused|refused|refused|-dims 320x220|-dims 480x270|-dims 640x480|"
            "-dims 960x540|-dims 1280x720|-dims 1920x1080|-dims 3840x2160|-dims 400x400");
  EXPECT_EQ(said(VideoDimension::custom(400.5, 300)), "refused");
  EXPECT_EQ(said(VideoDimension::custom(1920, 1080), VideoDimension::tenEightyP), "-dims 1920x1080");
  EXPECT_EQ(all(VideoDataRate::allCommonCases()), "nothing|-vbr 2.0");
  EXPECT_EQ(all(allCases<ColorDepth>()) + said(ColorDepth{9}), "-vbd 8|-vbd 10|-vbd 12|-vbd 16refused");
  EXPECT_EQ(all(SampleRate::wellDefinedCases()), "nothing|-asr 44100|-asr 48000|-asr 96000");
  EXPECT_EQ(said(SampleRate::custom(22050)) + said(SampleRate::custom(0)), "-asr 22050refused");
  EXPECT_EQ(all(ChannelLayout::allCommonCases()),
            "nothing|-acl mono|-acl stereo|-acl quad|-acl pent|-acl hex|-acl oct|refused");
  EXPECT_EQ(said(ChannelLayout::custom(0)), "refused");
  for (const auto& codec : allCodecs()) {
    EXPECT_EQ(said(codec.type), "-vcodec " + std::string(codec.text));
    const auto value = codecValue(codec.type).value();
    EXPECT_EQ(allowed<VideoDimension>(value).data(), VideoDimension::allAllowedOptions(codec.type).data());
    EXPECT_EQ(allowed<ColorDepth>(value).data(), allowed<ColorDepth>(codec.type).data());
  }
  EXPECT_EQ(said(CodecType{}) + said(CodecType{99}), "nothingrefused");
  const Model zeros(split("-vr 0 -dims 0x1 -vbr 0 -asr 0"));
  EXPECT_FALSE(fromArguments<FrameRate>(zeros) || fromArguments<VideoDimension>(zeros) ||
               fromArguments<VideoDataRate>(zeros) || fromArguments<SampleRate>(zeros));
}

}  // namespace
}  // namespace quillonic
