#include "tree.hpp"

#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <memory>
#include <stdexcept>
#include <unistd.h>

namespace quillonic::benchmarks {

Tree::Tree() {
  std::string name = std::filesystem::temp_directory_path() / "quillonic-XXXXXX";
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
  root_ = name;
}

Tree::~Tree() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

std::filesystem::path Tree::add(const std::string& name, std::uint64_t size) {
  auto path = root_ / name;
  const auto create = [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666); };
  int file = create();
  if (file < 0) {
    std::filesystem::create_directories(path.parent_path());
    file = create();
  }
  const bool isMade = file >= 0 && ::ftruncate(file, static_cast<off_t>(size)) == 0;
  if (file >= 0) ::close(file);
  if (!isMade) throw std::runtime_error("cannot make " + path.native());
  return path;
}

const std::vector<std::filesystem::path>& clips(std::size_t count) {
  static Tree tree;
  static std::vector<std::filesystem::path> made;
  static std::map<std::size_t, std::unique_ptr<const std::vector<std::filesystem::path>>> lists;
  while (made.size() < count) {
    // Too large for an alias file, which would have to be opened.
    const auto number = std::to_string(made.size());
    made.push_back(tree.add("card " + std::to_string(made.size() / 1000) + "/A001_C" + number + ".mov",
                            std::uint64_t{1} << 30U));
  }
  auto& list = lists[count];
  if (!list) {
    list = std::make_unique<const std::vector<std::filesystem::path>>(
        made.begin(), made.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return *list;
}

}  // namespace quillonic::benchmarks
