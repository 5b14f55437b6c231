#include "platform/processes_linux.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>

#include "platform/file_reading_linux.hpp"
#include "platform/items.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"

namespace quillonic {

Processes::Processes(const std::filesystem::path& root)
    : root_((root / "proc").native()), areShown_(items::Folder::open(root_)) {}

bool Processes::isHidden(std::int32_t process) const noexcept {
  // Zero and below are groups of processes.
  return process > 0 && root_ == "/proc" && areShown() && (::kill(process, 0) == 0 || errno == EPERM);
}

std::string Processes::path(std::int32_t process, const char* name) const {
  return root_ + "/" + std::to_string(process) + "/" + name;
}

std::optional<Processes::Facts> Processes::factsOf(std::int32_t process) const {
  const auto contents = contentsOfFile(path(process, "stat")).value_or({});
  // The name may have spaces and parentheses of its own.
  const auto nameEnd = contents.rfind(") ");
  if (nameEnd == std::string::npos) return std::nullopt;
  auto fields = text::split(std::string_view(contents).substr(nameEnd + 2), ' ');
  constexpr int parentField = 1;
  constexpr int beginField = 19;
  std::optional<std::int32_t> parent;
  std::optional<std::uint64_t> began;
  for (int i = 0; i <= beginField; ++i) {
    const auto field = fields.next().value_or(std::string_view{});
    if (i == parentField) parent = number_text::read<std::int32_t>(field);
    if (i == beginField) began = number_text::read<std::uint64_t>(field);
  }
  return parent && began ? std::optional(Facts{*parent, *began}) : std::nullopt;
}

KeptFile Processes::counts(std::int32_t process) const {
  return KeptFile(path(process, "io"));
}

void Processes::list(std::vector<std::int32_t>& identifiers) const {
  identifiers.clear();
  const auto folder = items::Folder::open(root_);
  if (!folder) return;
  static_cast<void>(items::forEachEntry(*folder, [&](const std::string& name, FileType /*type*/) {
    if (const auto process = number_text::read<std::int32_t>(name)) identifiers.push_back(*process);
    return true;
  }));
  std::ranges::sort(identifiers);
}

}  // namespace quillonic
