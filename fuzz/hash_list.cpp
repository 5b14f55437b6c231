// Reads and writes any bytes as a media hash list.
#include <quillonic/offload.hpp>

#include <algorithm>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  using offload::HashList;
  const auto list = HashList::fromText(bytes);
  if (!list) {
    const auto error = list.error();
    const auto lineCount = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) + 1;
    require(error.line >= 1 && error.line <= lineCount && error.column >= 1, "an error is within the text");
    require(!error.expected.empty(), "an error tells what was expected");
    return;
  }
  const auto written = HashList::fromText(list->text());
  require(written.has_value(), "what is written reads back");
  const auto held = std::ranges::count_if(list->entries, HashList::canHold);
  require(written->entries.size() == static_cast<std::size_t>(held),
          "every entry that can be held is written");
  require(HashList::fromText(written->text()) == written, "what was written once stays");
}

}  // namespace quillonic::fuzz
