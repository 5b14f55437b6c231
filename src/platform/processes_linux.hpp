// The processes that the system shows.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/kept_file_linux.hpp"

namespace quillonic {

// The process information below a root.
class Processes {
 public:
  explicit Processes(const std::filesystem::path& root);

  // Whether any process is shown.
  bool areShown() const noexcept { return areShown_; }
  // Whether a process exists that is not shown to this one.
  bool isHidden(std::int32_t process) const noexcept;

  struct Facts {
    std::int32_t parent;
    // Since the system started, in a unit of its own; with the identifier, unique.
    std::uint64_t began;
  };
  // Nothing for a process that is not shown.
  std::optional<Facts> factsOf(std::int32_t process) const;

  KeptFile counts(std::int32_t process) const;

  // All identifiers in ascending order, in place of those of the list.
  void list(std::vector<std::int32_t>& identifiers) const;

 private:
  std::string path(std::int32_t process, const char* name) const;

  std::string root_;
  bool areShown_;
};

}  // namespace quillonic
