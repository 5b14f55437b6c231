#include <quillonic/filesystem/file_manager.hpp>
#include <quillonic/offload/file_copy.hpp>
#include <quillonic/platform/volume_traits.hpp>

#include <string>
#include <utility>

#include "filesystem/locations.hpp"
#include "offload/copying.hpp"
#include "offload/folders.hpp"
#include "platform/item_changes.hpp"
#include "platform/path_text.hpp"

namespace quillonic::offload {
namespace {

SourceFile openedOrFail(const std::filesystem::path& item) {
  return locations::valueOrFail(SourceFile::open(item.native()), "cannot read file", item);
}

// The folder of a target; its links are followed once, here.
Result<SharedFolder> folderOf(const std::filesystem::path& target) {
  const auto prefix = path_text::folderPrefix(target.native());
  return openedRoot(prefix.empty() ? "." : prefix);
}

void finish(Copying::Target& target, CopiedFile& copied, bool takesFreeName) {
  if (!target.file) return;
  Copying::settle(target, target.file->sync());
  const auto wanted = copied.path;
  // Each turn means that another program took a name meanwhile.
  for (int tries = 0; target.file && tries < 10'000; ++tries) {
    const auto error = target.file->publish(target.name);
    if (!error) {
      copied.unheld = target.unheld;
      copied.error = items::syncFolder(target.file->folder());
      // A name that may be lost is none.
      if (copied.error) items::remove(target.name, &target.file->folder());
      return;
    }
    if (error != std::errc::file_exists || !takesFreeName) return Copying::settle(target, error);
    copied.path = FileManager().filePathAdjustedForCollision(wanted);
    target.name = copied.path.filename().native();
  }
}

}  // namespace

Hasher::~Hasher() = default;

FileCopy copyFile(const std::filesystem::path& source, std::span<const std::filesystem::path> targets,
                  const FileCopyOptions& options) {
  const auto file = openedOrFail(source);
  FileCopy copy{.size = file.status().size, .checksum = std::nullopt, .targets = {}};
  Copying copying;
  for (const auto& path : targets) {
    copy.targets.push_back({path, {}, {}});
    auto folder = folderOf(path);
    const auto name = path.filename().native();
    // A taken name is told before the bytes are read.
    if (folder && !options.takesFreeName && items::status(name, folder->get())) {
      folder = items::systemError(std::errc::file_exists);
    }
    auto volume = folder ? VolumeTraits::at(path) : VolumeTraits();
    copying.addTarget(name, folder, volume);
    // Another program that takes a free name for the same name is no reason to fail.
    for (int i = 1; options.takesFreeName && i < 1000; ++i) {
      if (copying.targets().back().error != std::errc::device_or_resource_busy) break;
      copying.targets().pop_back();
      copying.addTarget(name + "/" + std::to_string(i), folder, volume);
      copying.targets().back().name = name;
    }
  }
  if (const auto error = copying.write(file, options.checksum, options.progress)) {
    if (error != std::errc::operation_canceled) locations::fail("cannot copy file", source, error);
  }
  copy.checksum = copying.checksum();
  for (std::size_t i = 0; i < copy.targets.size(); ++i) {
    auto& target = copying.targets()[i];
    finish(target, copy.targets[i], options.takesFreeName);
    if (target.error) copy.targets[i].error = target.error;
  }
  return copy;
}

std::string checksumOfFile(const std::filesystem::path& file, const ChecksumKind& kind,
                           const ProgressBlock& progress) {
  return locations::valueOrFail(checksumOf(openedOrFail(file), kind, progress), "cannot read file", file);
}

}  // namespace quillonic::offload
