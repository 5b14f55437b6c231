// Folders of files to ask about, below TMPDIR, removed at the end.
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

  // A file of a size that holds no blocks; its name may lie in folders that are not there yet.
  std::filesystem::path add(const std::string& name, std::uint64_t size = 0);

 private:
  std::filesystem::path root_;
};

// Clips as cameras leave them, a thousand to a folder. Later calls return the first of those that were made before.
const std::vector<std::filesystem::path>& clips(std::size_t count);

}  // namespace quillonic::benchmarks
