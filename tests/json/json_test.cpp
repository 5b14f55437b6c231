#include <quillonic/json.hpp>
#include <quillonic/time.hpp>
#include <quillonic/transcode_cli.hpp>

#include <array>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace quillonic {
namespace {

using Json = nlohmann::ordered_json;

CodedValue throughText(const CodedValue& value) {
  return fromJson(Json::parse(toJson(value).dump()));
}

template <class T> void expectSurvives(const T& value) {
  const auto coded = encode(value);
  const auto copy = decode<T>(throughText(coded));
  EXPECT_EQ(encode(copy), coded) << toJson(coded).dump();
  if constexpr (std::equality_comparable<T>) {
    EXPECT_EQ(copy, value) << toJson(coded).dump();
  }
}

class Trees {
  std::mt19937_64 random_{7};

  std::size_t upTo(std::size_t greatest) { return random_() % (greatest + 1); }
  template <class Choices> auto pick(const Choices& choices) { return choices[upTo(choices.size() - 1)]; }

 public:
  CodedValue any(int depth = 0) {
    switch (upTo(depth < 4 ? 6 : 4)) {
      case 0:
        return {};
      case 1:
        return upTo(1) == 0;
      case 2:
        return static_cast<std::int64_t>(random_());
      case 3:
        return pick(std::to_array({0.1, -0.0, 400.0, 1e300, 5e-324, std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity()}));
      case 4:
        return text();
      case 5: {
        CodedList list;
        for (auto count = upTo(3); count > 0; --count) list.push_back(any(depth + 1));
        return list;
      }
      default: {
        CodedRecord record;
        for (auto count = upTo(3); count > 0; --count) record.add(text(), any(depth + 1));
        return record;
      }
    }
  }

 private:
  std::string text() {
    return pick(std::to_array<std::string>(
        {"", "a", "a", "$bytes", "$record", "$", "\xff", "a\xc3", std::string("\0b", 2), "ä\n\"\\"}));
  }
};

TEST(Json, CarriesEveryCodedValue) {
  Trees trees;
  for (int i = 0; i < 20'000; ++i) {
    const auto value = trees.any();
    ASSERT_EQ(throughText(value), value) << toJson(value).dump();
  }
  const auto nan = throughText(std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(std::isnan(nan.require<double>()));
}

TEST(Json, CarriesModelsTimecodesEnumerationsAndDetailRecords) {
  for (const bool keepsOrder : {false, true}) {
    expectSurvives(TranscodeCliArguments(
        std::vector<std::string>{"-vcodec", "h264", "-what", "-in_1", "/m/\xff.mov", "-in_0", "/m/a.mov"},
        keepsOrder));
  }
  expectSurvives(TimecodeComponents{10, 59, 30, 29, true});
  for (const auto& codec : allCases<VAVTranscodeArgumentVideoCodecValue>()) expectSurvives(codec);
  for (const auto source : allCases<TimecodeSource>()) expectSurvives(source);

  expectSurvives(TranscodeVideoDetail{});
  expectSurvives(TranscodeVideoDetail{.noVideo = true,
                                      .videoFormat = VAVAvcH264Codec,
                                      .videoFrameRate = 24,
                                      .videoDimensions = FrameSize{960, 540},
                                      .videoAspectCropAnchor = VAVAnchorCenter,
                                      .videoBitDepth = 10,
                                      .videoProfile = ""});
  expectSurvives(TranscodeAudioDetail{.ignoredAudioTracks = {0, 7}, .audioSampleRate = 48'000});
  expectSurvives(
      TranscodeWatermarkDetail{{.watermarkFileBurnFilePath = "/m/\xff.png", .watermarkFileBurnScale = 0.5},
                               {.watermarkTextBurnText = "©"}});
  expectSurvives(TranscodeInputFileGroup{3, {"a.mov", "b.mov"}});
  for (const auto& color :
       {Color::rgb(1, 0.5, 0), Color::grey(0.1, 0.2), Color::cmyk(0, 1, 0, 1), Color::pattern("stripes")}) {
    expectSurvives(TranscodeTimecodeDetail{.timecodeBurnFontColor = color, .timecode = "01:00:00:00"});
  }
}

std::optional<std::string> keyOfRefusal(const std::string& json) {
  try {
    decode<TranscodeVideoDetail>(fromJson(Json::parse(json)));
    return std::nullopt;
  } catch (const DecodingError& error) {
    return error.key();
  }
}

TEST(Json, NamesTheKeyThatCannotBeRead) {
  struct {
    std::string json;
    std::optional<std::string> key;
  } const rows[] = {
      {R"({})", std::nullopt},
      {R"({"noVideo": true, "ofALaterVersion": [], "videoFrameRate": 24})", std::nullopt},
      {R"({"noVideo": 1})", "noVideo"},
      {R"({"noVideo": null})", "noVideo"},
      {R"({"videoFrameRate": 9007199254740993})", "videoFrameRate"},
      {R"({"videoBitDepth": 10.0})", "videoBitDepth"},
      {R"({"videoDimensions": {"width": "960"}})", "width"},
      {R"({"videoAspectCropAnchor": "top"})", "videoAspectCropAnchor"},
      {R"({"videoProfile": {"$bytes": "f"}})", "$bytes"},
      {R"({"videoProfile": {"$bytes": "FF"}})", "$bytes"},
      {R"({"videoFrameRate": {"$number": "1"}})", "$number"},
      {R"({"$record": [["noVideo"]]})", "$record"},
      {R"({"$what": 1})", "$what"},
      {R"([])", ""},
      {R"({"videoBitDepth": 9223372036854775808})", ""},
      {std::string(100'000, '[') + std::string(100'000, ']'), ""},
  };
  for (const auto& [json, key] : rows) EXPECT_EQ(keyOfRefusal(json), key) << json.substr(0, 100);
}

}  // namespace
}  // namespace quillonic
