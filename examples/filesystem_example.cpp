// Copies a clip to a free and legal name, and compares the copy with it.
#include <quillonic/filesystem.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

using namespace quillonic;
namespace fs = std::filesystem;

int main() {
  const auto folder = fs::temp_directory_path() / "quillonic_filesystem_example";
  fs::remove_all(folder);
  fs::create_directory(folder);
  const auto clip = folder / "take 1.mov";
  std::ofstream(clip) << "a clip";

  // The name is free now; creating the file exclusively prevents a race.
  const FileManager files;
  const auto copy = files.filePathAdjustedForCollision(clip);
  fs::copy_file(clip, copy);
  std::cout << "copied to " << copy.filename().string() << '\n';
  std::cout << "on tape: " << removingInvalidLtfsCharacters("take <1>?.mov") << '\n';

  const auto original = expandedAttributesOfItem(clip);
  const auto other = expandedAttributesOfItem(copy);
  if (!original || !other) return 1;
  std::cout << "bytes: " << original->value<std::uint64_t>(FileAttributeKey::NSFileSize).value_or(0) << '\n';
  const FileAttributeKey keys[] = {FileAttributeKey::NSFileSize, FileAttributeKey::filePathName};
  original->intersection(keys).compare(
      *other,
      [](const FileAttributeKey& key, const AnyValue&, bool&) {
        std::cout << "same " << key.rawValue() << '\n';
      },
      [](const FileAttributeKey& key, const AnyValue& value, const AnyValue& otherValue, bool&) {
        std::cout << "other " << key.rawValue() << ": " << value.description() << ", "
                  << otherValue.description() << '\n';
      });

  // Recognises links and follows them.
  fs::create_symlink("take 1.mov", folder / "latest");
  createAliasForFilePath(folder / "latest", folder / "alias");
  std::cout << "alias: " << loggingDescription(filePathLinkType(folder / "alias")) << '\n';
  if (const auto target = deeplyDereferencedFilePath(folder / "alias")) {
    std::cout << "leads to " << target->filename().string() << '\n';
  }
  fs::remove_all(folder);
}
