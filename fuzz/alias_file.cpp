// Reads, writes and resolves any bytes as an alias file.
#include <quillonic/filesystem.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

// A folder with a few items as targets of aliases. Removed at the end of the program.
class Folder {
 public:
  Folder() {
    std::string name = std::filesystem::temp_directory_path() / "quillonic-fuzz-XXXXXX";
    require(mkdtemp(name.data()) != nullptr, "a temporary folder can be made");
    path_ = std::filesystem::canonical(name);
    std::filesystem::create_directories(path_ / "CARD" / "clips");
    for (const auto* item : {"A.MXF", "CARD/A.MXF", "CARD/clips/\u00c9.mov"})
      std::ofstream(path_ / item) << item;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::filesystem::path alias() const { return path_ / "CARD" / "alias"; }

 private:
  std::filesystem::path path_;
};

void checkFollowing(std::string_view bytes) {
  static const Folder folder;
  const auto alias = folder.alias();
  std::ofstream(alias, std::ios::binary | std::ios::trunc) << bytes;
  require(filePathLinkType(alias) == ReferenceLinkType::aliasReference,
          "bytes that begin as an alias file are one");
  try {
    const auto target = standardizedResolvedAliasReference(alias);
    require(target.is_absolute() && target == target.lexically_normal(),
            "a target is absolute and standardized");
    require(target != alias, "an alias file is never its own target");
    require(std::filesystem::exists(std::filesystem::symlink_status(target)), "a target exists");
    static_cast<void>(deeplyDereferencedFilePath(alias));
  } catch (const std::system_error&) {
    // Nothing was found, or the file is damaged.
  }
}

}  // namespace

void run(std::string_view bytes) {
  const auto alias = AliasFile::fromBytes(bytes);
  if (alias) {
    for (const auto& name : alias->pathComponents) {
      require(!name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
                  name.find('\0') == std::string::npos,
              "a path has plain names");
    }
    const auto written = alias->bytes();
    require(AliasFile::isAliasFile(written), "what is written is an alias file");
    // Several values may share one text that is nearly as long as the file.
    if (written.size() <= AliasFile::greatestSize) {
      require(AliasFile::fromBytes(written) == alias, "what is written reads back");
    }
    if (written.size() <= AliasFile::greatestSize) checkFollowing(written);
  }
}

}  // namespace quillonic::fuzz
