// Any text as JSON: what reads as a coded value is written and reads back.
#include <quillonic/json.hpp>

#include <algorithm>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  using Json = nlohmann::ordered_json;
  const auto json = Json::parse(bytes, nullptr, false);
  if (json.is_discarded()) return;
  CodedValue coded;
  try {
    coded = fromJson(json);
  } catch (const DecodingError&) {
    return;
  }
  // A record with equal keys is written deeper than it was read, and what lies too deep is refused.
  if (std::ranges::count_if(bytes, [](char c) { return c == '[' || c == '{'; }) > 100) return;
  const auto text = toJson(coded).dump();
  // Compared as texts, since a value that holds NaN equals nothing.
  require(toJson(fromJson(Json::parse(text))).dump() == text, "what is written reads back");
}

}  // namespace quillonic::fuzz
