// Copies a card to two targets, verifies the copies, and finds nothing to do the second time.
#include <quillonic/filesystem.hpp>
#include <quillonic/offload.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>

using namespace quillonic;
namespace fs = std::filesystem;

namespace {

// A host's own checksum; <quillonic/checksums.hpp> has those that lists of other programs have.
class AdlerHasher final : public offload::Hasher {
 public:
  void add(std::span<const std::byte> bytes) override {
    for (const auto byte : bytes) {
      low_ = (low_ + std::to_integer<unsigned>(byte)) % 65521;
      high_ = (high_ + low_) % 65521;
    }
  }
  std::string checksum() override { return std::to_string(high_ * 65536 + low_); }

 private:
  unsigned low_ = 1;
  unsigned high_ = 0;
};

const offload::ChecksumKind adler{"adler32", [] { return std::make_unique<AdlerHasher>(); }};

//! [offload]
void offloadCard(const fs::path& card, std::span<const fs::path> targets) {
  const auto plan = offload::planOffload(card, targets);
  for (const auto& target : plan.targets) {
    std::cout << target.missingFiles << " files, " << target.missingBytes << " bytes are missing"
              << (target.fits() ? "\n" : ", more than fit\n");
  }
  offload::OffloadRun run(plan, {.checksum = &adler, .verified = {}, .progress = {}});
  for (std::size_t step = 0; step < run.stepCount(); ++step) run.run(step);
  const auto& report = run.finish();
  for (std::size_t item = 0; item < plan.items.size(); ++item) {
    const auto& copy = report.copy(item, 0);
    std::cout << plan.items[item].path << ": " << rawValue(copy.state);
    if (copy.error) std::cout << ", " << copy.error.message();
    std::cout << '\n';
  }
}
//! [offload]

}  // namespace

int main() {
  const auto folder = fs::temp_directory_path() / "quillonic_offload_example";
  fs::remove_all(folder);
  fs::create_directories(folder / "card/DCIM");
  std::ofstream(folder / "card/DCIM/A001.mov") << "a clip";
  fs::create_hard_link(folder / "card/DCIM/A001.mov", folder / "card/again.mov");
  fs::create_symlink("DCIM/A001.mov", folder / "card/latest");
  const fs::path targets[] = {folder / "raid", folder / "shuttle"};
  for (const auto& target : targets) fs::create_directory(target);
  offloadCard(folder / "card", targets);
  offloadCard(folder / "card", targets);
  std::cout << "latest refers to " << fs::read_symlink(folder / "raid/latest").native() << '\n';
  std::cout << "on exFAT: " << offload::writtenName("take: 1?.mov", "exfat") << '\n';
  const auto report = offload::createFileAtFreeName(folder / "raid/again.mov");
  std::cout << "free: " << report.filename().native() << '\n';
  fs::remove_all(folder);
}
