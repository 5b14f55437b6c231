// Any text as JSON: what reads as a coded value can be written and read back.
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
  // A record with equal keys is written deeper than it was read, and nesting that is too deep is rejected.
  if (std::ranges::count_if(bytes, [](char c) { return c == '[' || c == '{'; }) > 100) return;
  const auto text = toJson(coded).dump();
  // Compared as texts, since a value with NaN equals nothing.
  require(toJson(fromJson(Json::parse(text))).dump() == text, "what is written reads back");
}

}  // namespace quillonic::fuzz
