// Reads and writes any bytes as a media hash list.
#include <quillonic/offload.hpp>

#include <algorithm>
#include <string_view>
#include <variant>

#include "target.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  using offload::HashList;
  const auto reading = HashList::fromText(bytes);
  if (const auto* error = std::get_if<ParseError>(&reading)) {
    const auto lineCount = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) + 1;
    require(error->line >= 1 && error->line <= lineCount && error->column >= 1,
            "an error is within the text");
    require(!error->expected.empty(), "an error tells what was expected");
    return;
  }
  const auto& list = std::get<HashList>(reading);
  const auto again = HashList::fromText(list.text());
  const auto* written = std::get_if<HashList>(&again);
  require(written, "what is written reads back");
  const auto held = std::ranges::count_if(list.entries, HashList::canHold);
  require(written->entries.size() == static_cast<std::size_t>(held),
          "every entry that can be held is written");
  require(HashList::fromText(written->text()) == again, "what was written once stays");
}

}  // namespace quillonic::fuzz
