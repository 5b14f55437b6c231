#include "offload/copying.hpp"

#include <quillonic/offload/copy_match.hpp>
#include <quillonic/offload/offload_error.hpp>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace quillonic::offload {
namespace {

// What the system copies at once, so that a stop is heard.
constexpr std::size_t systemPortion = std::size_t{16} << 20;

bool goesOn(const ProgressBlock& progress, std::uint64_t bytes) {
  return !progress || progress(bytes);
}

std::span<std::byte> portion(const std::unique_ptr<std::byte[]>& buffer, std::size_t size) {
  return {buffer.get(), size};
}

}  // namespace

void addZeros(Hasher& hasher, std::uint64_t count) {
  static constexpr std::array<std::byte, 65536> zeros{};
  for (; count > 0; count -= std::min<std::uint64_t>(count, zeros.size())) {
    hasher.add(
        std::span(zeros).first(static_cast<std::size_t>(std::min<std::uint64_t>(count, zeros.size()))));
  }
}

Result<std::string> checksumOf(const SourceFile& file, const ChecksumKind& kind,
                               const ProgressBlock& progress) {
  const auto hasher = kind.hasher();
  file.forgetCached();
  const auto size = std::max<std::size_t>(
      1, static_cast<std::size_t>(std::min<std::uint64_t>(bufferSize, file.status().size + 1)));
  const auto buffer = std::make_unique_for_overwrite<std::byte[]>(size);
  for (std::uint64_t at = 0;;) {
    const auto count = file.read(at, portion(buffer, size));
    if (!count) return count.error();
    hasher->add(portion(buffer, *count));
    at += *count;
    if (*count > 0 && !goesOn(progress, at)) return items::systemError(std::errc::operation_canceled);
    if (*count < size) return hasher->checksum();
  }
}

Unheld copyAttributes(int source, const items::Status& status, int copy, const VolumeTraits& volume) {
  const bool hasAll = takeAttributes(copy, source, status);
  const auto own = items::statusOfOpen(copy);
  if (!own) return Unheld::owner | Unheld::permissions | Unheld::extendedAttributes | Unheld::date;
  const auto isSparse = [](const items::Status& item) {
    return item.type == FileType::regular && item.allocated < item.size;
  };
  Unheld unheld;
  if (!hasAll) unheld = unheld | Unheld::extendedAttributes;
  if (own->owner != status.owner || own->group != status.group) unheld = unheld | Unheld::owner;
  if (own->permissions != status.permissions) unheld = unheld | Unheld::permissions;
  const bool isInRange = status.modified != Date::min() && status.modified != Date::max();
  if (!isInRange || !areSameDates(own->modified, status.modified, volume)) unheld = unheld | Unheld::date;
  if (isSparse(status) && !isSparse(*own)) unheld = unheld | Unheld::holes;
  return unheld;
}

void Copying::addTarget(std::string name, Result<std::shared_ptr<const items::Folder>> folder,
                        VolumeTraits volume) {
  auto& target = targets_.emplace_back();
  auto file = folder ? PartialFile::create(name, *std::move(folder)) : folder.error();
  target.name = std::move(name);
  target.volume = std::move(volume);
  target.error = file.error();
  if (file) target.file.emplace(*std::move(file));
}

void Copying::settle(Target& target, std::error_code error) {
  if (!error) return;
  target.error = error;
  target.file.reset();
}

bool Copying::isAlive() const noexcept {
  return std::ranges::any_of(targets_, [](const Target& target) { return target.file.has_value(); });
}

template <class Operation> void Copying::onTargets(Operation operation) {
  for (auto& target : targets_) {
    if (target.file) settle(target, operation(*target.file));
  }
}

std::error_code Copying::writeBytes(const SourceFile& source, Hasher* hasher, const ProgressBlock& progress) {
  const auto size = source.status().size;
  // A small file is copied sooner than the volume can be asked.
  bool isSystems = !hasher && targets_.size() == 1 && size > bufferSize;
  if (isSystems && targets_.front().file->clone(source)) {
    return goesOn(progress, size) ? std::error_code() : items::systemError(std::errc::operation_canceled);
  }
  const auto bufferBytes = static_cast<std::size_t>(std::min<std::uint64_t>(bufferSize, size));
  const auto buffer = std::make_unique_for_overwrite<std::byte[]>(bufferBytes);
  bool hasHoles = false;
  bool endsInHole = false;
  for (std::uint64_t at = 0; at < size;) {
    const auto data = source.mayHaveHoles() ? source.nextData(at) : SourceFile::Extent{at, size};
    hasHoles = hasHoles || data.begin > at;
    endsInHole = data.begin == size;
    if (hasher) addZeros(*hasher, data.begin - at);
    for (at = data.begin; at < data.end && isAlive();) {
      std::size_t done = 0;
      if (isSystems) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(systemPortion, data.end - at));
        const auto copied = targets_.front().file->copyWithin(source, at, wanted);
        if (!copied) settle(targets_.front(), copied.error());
        if (!copied) return {};
        done = *copied;
        isSystems = done > 0;
      }
      if (!isSystems) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(bufferBytes, data.end - at));
        const auto count = source.read(at, portion(buffer, wanted));
        if (!count) return count.error();
        if (*count < wanted) return OffloadError::sourceChanged;
        const auto bytes = portion(buffer, wanted);
        if (hasher) hasher->add(bytes);
        onTargets([&](const PartialFile& file) { return file.write(at, bytes); });
        done = wanted;
      }
      at += done;
      if (!goesOn(progress, at)) return items::systemError(std::errc::operation_canceled);
    }
    if (!isAlive()) return {};
  }
  if (hasHoles) onTargets([&](const PartialFile& file) { return file.setSize(size); });
  if (endsInHole && !goesOn(progress, size)) return items::systemError(std::errc::operation_canceled);
  return {};
}

std::error_code Copying::write(const SourceFile& source, const ChecksumKind* checksum,
                               const ProgressBlock& progress) {
  const auto hasher = checksum ? checksum->hasher() : nullptr;
  auto error = isAlive() ? writeBytes(source, hasher.get(), progress) : std::error_code();
  if (!error && !source.isUnchanged()) error = OffloadError::sourceChanged;
  if (error) {
    for (auto& target : targets_) {
      if (target.file) settle(target, error);
    }
    return error;
  }
  // Where all targets have failed, not all bytes were read.
  if (hasher && isAlive()) checksum_ = hasher->checksum();
  for (auto& target : targets_) {
    if (!target.file) continue;
    target.unheld =
        copyAttributes(source.descriptor(), source.status(), target.file->descriptor(), target.volume);
  }
  return {};
}

}  // namespace quillonic::offload
