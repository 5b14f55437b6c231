#include "../files.hpp"

namespace quillonic::benchmarks::files {
namespace {

namespace fs = std::filesystem;

std::string numbered(int collision) {
  return collision == 1 ? "clip.mov" : "clip " + std::to_string(collision) + ".mov";
}

std::string freeName(const fs::path& wanted) {
  if (!fs::exists(wanted)) return wanted.native();
  const auto beginning = (wanted.parent_path() / wanted.stem()).native() + " ";
  const auto extension = wanted.extension().native();
  for (int counter = 2;; ++counter) {
    auto candidate = beginning + std::to_string(counter) + extension;
    if (!fs::exists(candidate)) return candidate;
  }
}

struct Attributes {
  fs::file_status status;
  std::uintmax_t size;
  std::uintmax_t names;
  fs::file_time_type modified;
};

const bool added =
    addNaming("std::filesystem::exists", "less: a dangling link counts as free", numbered, freeName) &&
    addAttributes(
        "std::filesystem", "less: no owner, group, device, number or creation date, no dictionary",
        [](const fs::path& item) { return item; },
        [](const fs::path& item) {
          return Attributes{fs::symlink_status(item), fs::file_size(item), fs::hard_link_count(item),
                            fs::last_write_time(item)};
        },
        [](const Attributes& attributes) { return attributes.size; });

}  // namespace
}  // namespace quillonic::benchmarks::files
