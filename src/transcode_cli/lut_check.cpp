#include <quillonic/transcode_cli/lut_check.hpp>

namespace quillonic {

std::optional<Result<lut::Description, lut::Failure>> colorLutOf(const TranscodeCliArguments& settings) {
  const auto path = settings.colorLutFile();
  if (!path || path->empty()) return std::nullopt;
  const auto table = lut::readFile(*path);
  if (!table) return Result<lut::Description, lut::Failure>(table.error());
  return Result<lut::Description, lut::Failure>(table->description());
}

}  // namespace quillonic
