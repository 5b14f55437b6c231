#include <quillonic/platform/file_system.hpp>
#include <quillonic/platform/mount_table.hpp>

#include <sys/stat.h>

#include "platform/descriptor_linux.hpp"
#include "platform/items.hpp"
#include "platform/mount_holding.hpp"
#include "support/never_destroyed.hpp"

namespace quillonic {
namespace {

class SystemFileSystem final : public PlatformFileSystem {
 public:
  ItemPresence presenceOfItem(const std::string& path) const override {
    if (path.find('\0') != std::string::npos) return ItemPresence::absent;
    struct stat item {};
    if (uninterrupted([&] { return ::lstat(path.c_str(), &item); }) == 0) return ItemPresence::present;
    return items::isMissing(lastError()) ? ItemPresence::absent : ItemPresence::unknown;
  }

  void enumerateVolumeRoots(std::span<const std::filesystem::path> items,
                            VolumeRootBlock block) const override {
    if (items.size() == 1) {
      const auto mount = mountHolding(items.front());
      return block(items.front(), mount ? &mount->mountPoint : nullptr);
    }
    const auto table = items.empty() ? MountTable() : MountTable::current();
    for (const auto& item : items) {
      const auto* mount = table.holding(item);
      block(item, mount ? &mount->mountPoint : nullptr);
    }
  }
};

}  // namespace

PlatformFileSystem::~PlatformFileSystem() = default;

std::shared_ptr<const PlatformFileSystem> PlatformFileSystem::system() {
  static const NeverDestroyed<std::shared_ptr<const PlatformFileSystem>> shared(
      std::make_shared<const SystemFileSystem>());
  return *shared;
}

}  // namespace quillonic
