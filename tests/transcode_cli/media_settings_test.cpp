#include <quillonic/transcode_cli.hpp>

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

using Model = TranscodeCliArguments;
using CodecType = Cloud_ConversionOptions::CodecType;

// What a command line says of a setting: its words, "nothing" or "refused"; and that it reads back.
template <class Setting> std::string said(const Setting& setting, const Setting& readBack) {
  Model model(split("-vcodec x -vr x -dims x -vbr x -vbd x -asr x -acl x"));
  const auto before = model.flagValueLookup();
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
  std::string all;
  for (const auto& rate : FrameRate::wellDefinedCases()) all += said(rate) + "|";
  EXPECT_EQ(all,
            "nothing|refused|-vr 23.976|-vr 24.0|-vr 25.0|-vr 29.97|-vr 30.0|-vr 50.0|-vr 59.94|-vr 60.0|");
  EXPECT_EQ(said(FrameRate::custom(23.98), FrameRate::fps23_98), "-vr 23.976");
  EXPECT_EQ(said(FrameRate::custom(12.5)), "-vr 12.5");
  EXPECT_EQ(said(FrameRate::custom(0.5)), "-vr 0.5");
  for (const double none : {0.0, -1.0, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(said(FrameRate::custom(none)), "refused");
    EXPECT_EQ(said(VideoDataRate::restrict(none)), "refused");
    EXPECT_EQ(said(VideoDimension::custom(none, 2)), "refused");
    EXPECT_EQ(said(VideoDimension::custom(2, none)), "refused");
  }
  for (const auto& dimension : VideoDimension::allCases()) {
    const auto [width, height] = dimension.size();
    EXPECT_EQ(said(dimension), dimension == VideoDimension::match ? "nothing"
                               : dimension.isScaleOption()        ? "refused"
                                                           : "-dims " + std::to_string(int(width)) + "x" +
                                                                 std::to_string(int(height)));
  }
  EXPECT_EQ(said(VideoDimension::custom(400.5, 300)), "refused");
  EXPECT_EQ(said(VideoDimension::custom(1920, 1080), VideoDimension::tenEightyP), "-dims 1920x1080");
  EXPECT_EQ(said(VideoDataRate::auto_) + said(VideoDataRate::restrict(1.5)), "nothing-vbr 1.5");
  for (const auto depth : allCases<ColorDepth>())
    EXPECT_EQ(said(depth), "-vbd " + std::to_string(rawValue(depth)));
  EXPECT_EQ(said(ColorDepth{9}), "refused");
  EXPECT_EQ(said(SampleRate::matchSource) + said(SampleRate::hz48000) + said(SampleRate::custom(22050)),
            "nothing-asr 48000-asr 22050");
  EXPECT_EQ(said(SampleRate::custom(0)), "refused");
  all.clear();
  for (int count = 1; count < 10; ++count) all += said(ChannelLayout::fromChannelCount(count)) + "|";
  EXPECT_EQ(all, "-acl mono|-acl stereo|refused|-acl quad|-acl pent|-acl hex|refused|-acl oct|refused|");
  EXPECT_EQ(said(ChannelLayout::matchSource) + said(ChannelLayout::custom(0)), "nothingrefused");
  for (const auto& codec : allCodecs()) EXPECT_EQ(said(codec.type), "-vcodec " + std::string(codec.text));
  EXPECT_EQ(said(CodecType{}) + said(CodecType{99}), "nothingrefused");
}

TEST(MediaSettings, AnUnreadableOptionIsNoSetting) {
  for (const auto* text : {"0", "x", "", "1.5.5", "24fps"}) {
    Model model;
    for (const auto* flag : {"-vcodec", "-vr", "-dims", "-vbr", "-vbd", "-asr", "-acl"}) {
      model.setArgumentFlagValue(flag, text);
    }
    EXPECT_FALSE(fromArguments<CodecType>(model) || fromArguments<FrameRate>(model) ||
                 fromArguments<VideoDimension>(model) || fromArguments<VideoDataRate>(model) ||
                 fromArguments<ColorDepth>(model) || fromArguments<SampleRate>(model) ||
                 fromArguments<ChannelLayout>(model))
        << text;
  }
}

template <class Setting>
bool allowsTheSame(const VAVTranscodeArgumentVideoCodecValue& value, CodecType type) {
  const auto list = allowed<Setting>(value);
  if constexpr (std::is_enum_v<Setting>)
    return list.data() == allowed<Setting>(type).data();
  else
    return list.data() == Setting::allowed(type).data() && list.size() == Setting::allowed(type).size();
}

TEST(MediaSettings, ACodecAllowsTheSameByItsNameAndItsNumber) {
  for (const auto& value : VAVTranscodeArgumentVideoCodecValue::allCases()) {
    const auto type = codecType(value).value();
    EXPECT_EQ(codecValue(type), value);
    EXPECT_TRUE(allowsTheSame<FrameRate>(value, type) && allowsTheSame<VideoDataRate>(value, type) &&
                allowsTheSame<ColorDepth>(value, type) && allowsTheSame<VideoExtension>(value, type) &&
                allowsTheSame<SampleRate>(value, type) && allowsTheSame<ChannelLayout>(value, type));
    EXPECT_EQ(allowed<VideoDimension>(value).size(), VideoDimension::allAllowedOptions(type).size());
  }
  const VAVTranscodeArgumentVideoCodecValue unlisted(std::string("av9"));
  EXPECT_EQ(codecType(unlisted), std::nullopt);
  EXPECT_EQ(allowed<FrameRate>(unlisted).size(), FrameRate::allCases().size());
}

}  // namespace
}  // namespace quillonic
