#include <quillonic/transcode_cli/detail_modifier.hpp>

namespace quillonic {

void TranscodeDetailModifier::apply(TranscodeCliArguments& arguments) const {
  for (const auto& detail : details) {
    std::visit([&](const auto& record) { arguments.update(record); }, detail);
  }
}

}  // namespace quillonic
