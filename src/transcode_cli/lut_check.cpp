#include <quillonic/transcode_cli/lut_check.hpp>

namespace quillonic {

std::optional<lut::Reading<lut::Description>> colorLutOf(const TranscodeCliArguments& settings) {
  const auto path = settings.colorLutFile();
  if (!path || path->empty()) return std::nullopt;
  const auto table = lut::readFile(*path);
  if (!table) return lut::Reading<lut::Description>(table.failure());
  return lut::Reading<lut::Description>(table->description());
}

}  // namespace quillonic
