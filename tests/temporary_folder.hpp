// A folder of its own for each test, on the real file system.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace quillonic {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "quillonic-XXXXXX";
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

  std::filesystem::path file(const std::filesystem::path& name) const {
    std::ofstream(path_ / name) << "content";
    return path_ / name;
  }
  std::filesystem::path folder(const std::filesystem::path& name) const {
    std::filesystem::create_directories(path_ / name);
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quillonic
