// Folders of files to examine, below TMPDIR, removed at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillonic::benchmarks {

class Tree {
 public:
  Tree();
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree();

  const std::filesystem::path& root() const noexcept { return root_; }

  // A file with a size but no blocks; its name may contain missing folders.
  std::filesystem::path add(const std::string& name, std::uint64_t size = 0);

 private:
  std::filesystem::path root_;
};

// Clips as cameras write them, a thousand per folder. Later calls return the first of the existing ones.
const std::vector<std::filesystem::path>& clips(std::size_t count);

}  // namespace quillonic::benchmarks
