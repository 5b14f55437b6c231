// A separate folder for each test, on the real file system.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillonic {

inline std::string contentOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The name may contain folders, which are created too.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string name = parent / "quillonic-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = std::filesystem::canonical(name);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

  std::filesystem::path file(const std::filesystem::path& name, std::string_view content = "content") const {
    std::ofstream(folder(name.parent_path()) / name.filename(), std::ios::binary) << content;
    return path_ / name;
  }
  std::filesystem::path folder(const std::filesystem::path& name) const {
    std::filesystem::create_directories(path_ / name);
    return path_ / name;
  }
  std::filesystem::path link(const std::filesystem::path& name, const std::filesystem::path& text) const {
    std::filesystem::create_symlink(text, folder(name.parent_path()) / name.filename());
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quillonic
