#include <quillonic/tool_cli/media_analysis_errors.hpp>

#include <algorithm>
#include <array>
#include <string_view>

#include "support/message_category.hpp"
#include "support/never_destroyed.hpp"

namespace quillonic {
namespace {

// The names of the cases, which count from 1.
template <class Error>
constexpr auto names = [] {
  constexpr auto& rows = CaseTable<Error>::rows;
  static_assert(static_cast<int>(rows.back().value) == rows.size());
  std::array<std::string_view, rows.size()> texts;
  std::ranges::transform(rows, texts.begin(), &CaseRow<Error>::rawValue);
  return texts;
}();

}  // namespace

std::error_code make_error_code(MediaAnalysisCLIError error) noexcept {
  static const NeverDestroyed<MessageCategory> category("quillonic.media_analysis",
                                                        names<MediaAnalysisCLIError>);
  return {static_cast<int>(error), *category};
}

std::error_code make_error_code(MediaAnalysisCLIImageError error) noexcept {
  static const NeverDestroyed<MessageCategory> category("quillonic.media_analysis_image",
                                                        names<MediaAnalysisCLIImageError>);
  return {static_cast<int>(error), *category};
}

}  // namespace quillonic
