#include <KFileUtils>
#include <QUrl>

#include "../files.hpp"

namespace quillonic::benchmarks::files {
namespace {

// It always counts further, so it is only for taken names.
std::string freeName(const std::filesystem::path& wanted) {
  const auto folder = wanted.parent_path();
  const auto name = KFileUtils::suggestName(QUrl::fromLocalFile(QString::fromStdString(folder.native())),
                                            QString::fromStdString(wanted.filename().native()));
  return folder.native() + "/" + name.toStdString();
}

const bool added = addNaming(
    "KDE KFileUtils", "numbers in brackets from 1 on; a dangling link counts as free",
    [](int collision) {
      return collision == 1 ? std::string("clip.mov") : "clip (" + std::to_string(collision - 1) + ").mov";
    },
    freeName, 1);

}  // namespace
}  // namespace quillonic::benchmarks::files
