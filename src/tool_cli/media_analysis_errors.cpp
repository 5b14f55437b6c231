#include <quillonic/tool_cli/media_analysis_errors.hpp>

#include <string>

#include "support/never_destroyed.hpp"

namespace quillonic {
namespace {

// The codes of a closed enumeration of errors, named by its cases.
template <ClosedEnumeration Error> class CaseNameCategory final : public std::error_category {
 public:
  explicit constexpr CaseNameCategory(const char* name) noexcept : name_(name) {}

  const char* name() const noexcept override { return name_; }
  std::string message(int code) const override {
    for (const Error error : allCases<Error>()) {
      if (static_cast<int>(error) == code) return std::string(rawValue(error));
    }
    return "unknown error " + std::to_string(code);
  }

 private:
  const char* name_;
};

}  // namespace

std::error_code make_error_code(MediaAnalysisCLIError error) noexcept {
  static const NeverDestroyed<CaseNameCategory<MediaAnalysisCLIError>> category("quillonic.media_analysis");
  return {static_cast<int>(error), *category};
}

std::error_code make_error_code(MediaAnalysisCLIImageError error) noexcept {
  static const NeverDestroyed<CaseNameCategory<MediaAnalysisCLIImageError>> category(
      "quillonic.media_analysis_image");
  return {static_cast<int>(error), *category};
}

}  // namespace quillonic
