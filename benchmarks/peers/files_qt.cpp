#include <QStorageInfo>

#include "../files.hpp"

namespace quillonic::benchmarks::files {
namespace {

const bool added = addRoots(
    findingRoots, "QStorageInfo", "more: also asks how full the volume is",
    [](const std::filesystem::path& item) { return QString::fromStdString(item.native()); },
    [](const QString& item) { return QStorageInfo(item).rootPath(); },
    [](const QString& root) { return root.toStdString(); });

}  // namespace
}  // namespace quillonic::benchmarks::files
