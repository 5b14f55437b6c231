#include <quillonic/json.hpp>
#include <quillonic/transcode_cli.hpp>

#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "error_of.hpp"

namespace quillonic {
namespace {

TEST(Json, NamesTheKeyThatCannotBeRead) {
  const std::pair<std::string, std::optional<std::string>> rows[] = {
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
      {std::string(100'000, '[') + std::string(100'000, ']'), ""}};
  for (const auto& [json, key] : rows) {
    const auto decoding = [&text = json] {
      return decode<TranscodeVideoDetail>(fromJson(nlohmann::ordered_json::parse(text)));
    };
    EXPECT_EQ(undecodedKey(decoding), key) << json.substr(0, 100);
  }
}

// Archives keep these texts.
TEST(Json, SaysWhatJsonCannotUnderATag) {
  CodedRecord record;
  record.add("a", CodedList{std::string("\xff"), HUGE_VAL, CodedValue(), 400.0});
  record.add("b", std::int64_t{1});
  record.add("b", true);
  EXPECT_EQ(toJson(record).dump(),
            R"({"$record":[["a",[{"$bytes":"ff"},{"$number":"inf"},null,400.0]],["b",1],["b",true]]})");
}

}  // namespace
}  // namespace quillonic
