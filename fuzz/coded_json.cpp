// Any text as JSON, and any tree of coded values: each is written and reads back.
#include <quillonic/json.hpp>

#include <algorithm>
#include <string>
#include <string_view>

#include "coded_tree.hpp"
#include "target.hpp"

namespace quillonic::fuzz {
namespace {

using Json = nlohmann::ordered_json;

void checkSurvives(const CodedValue& coded) {
  const auto text = toJson(coded).dump();
  const auto again = fromJson(Json::parse(text));
  require(toJson(again).dump() == text, "what is written reads back");
  // A value that holds NaN equals nothing.
  require(again == coded || text.find("nan") != std::string::npos, "a value survives");
}

}  // namespace

void run(std::string_view bytes) {
  // A record with equal keys is written deeper than it was read, and what lies too deep is refused.
  const bool isDeep = std::ranges::count_if(bytes, [](char c) { return c == '[' || c == '{'; }) > 100;
  if (!isDeep) checkSurvives(CodedTree(bytes).value());
  const auto json = Json::parse(bytes, nullptr, false);
  if (json.is_discarded()) return;
  try {
    const auto coded = fromJson(json);
    if (!isDeep) checkSurvives(coded);
  } catch (const DecodingError&) {
    // It holds no coded value.
  }
}

}  // namespace quillonic::fuzz
