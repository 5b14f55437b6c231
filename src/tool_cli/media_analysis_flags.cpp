#include <quillonic/tool_cli/media_analysis_flags.hpp>

#include "text/number_text.hpp"

namespace quillonic {

std::string snapShotLocationsCLIValue(std::span<const float> locations) {
  std::string text;
  for (const float location : locations) {
    text.append(cliFlag(MediaAnalysisImageCLIFlags::snapshotLocation)).push_back(' ');
    text += number_text::shortest(location);
  }
  return text;
}

}  // namespace quillonic
