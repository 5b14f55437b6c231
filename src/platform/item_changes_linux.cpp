#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include "platform/descriptor_linux.hpp"
#include "platform/file_reading_linux.hpp"
#include "platform/item_changes.hpp"

namespace quillonic::items {
namespace {

template <class Call> std::error_code outcomeOf(Call call) {
  return uninterrupted(call) == 0 ? std::error_code() : lastError();
}

}  // namespace

std::error_code createFolder(const std::string& path, const Folder* folder) {
  return outcomeOf([&] { return ::mkdirat(descriptorOf(folder), path.c_str(), 0777); });
}

std::error_code createSymbolicLink(const std::string& text, const std::string& path, const Folder* folder) {
  return outcomeOf([&] { return ::symlinkat(text.c_str(), descriptorOf(folder), path.c_str()); });
}

std::error_code createHardName(const std::string& existing, const std::string& path, const Folder* folder) {
  const int parent = descriptorOf(folder);
  return outcomeOf([&] { return ::linkat(parent, existing.c_str(), parent, path.c_str(), 0); });
}

std::error_code remove(const std::string& path, const Folder* folder) {
  const int parent = descriptorOf(folder);
  if (outcomeOf([&] { return ::unlinkat(parent, path.c_str(), 0); }) == std::error_code()) return {};
  return outcomeOf([&] { return ::unlinkat(parent, path.c_str(), AT_REMOVEDIR); });
}

void setModified(const std::string& path, Date date, const Folder* folder) {
  // Some servers cannot leave a date as it is.
  const auto own = status(path, folder);
  const std::array<timespec, 2> dates{timeOf(own ? own->accessed : date), timeOf(date)};
  static_cast<void>(::utimensat(descriptorOf(folder), path.c_str(), dates.data(), AT_SYMLINK_NOFOLLOW));
}

std::error_code syncVolume(const Folder& folder) {
  return outcomeOf([&] { return ::syncfs(folder.descriptor()); });
}

std::error_code syncFolder(const Folder& folder) {
  const auto error = outcomeOf([&] { return ::fsync(folder.descriptor()); });
  // Some kinds keep folders in order by themselves.
  return error == std::errc::invalid_argument ? std::error_code() : error;
}

Result<std::uint64_t> freeSpace(const Folder& folder) {
  struct statvfs volume {};
  if (const auto error = outcomeOf([&] { return ::fstatvfs(folder.descriptor(), &volume); })) return error;
  return std::uint64_t{volume.f_bavail} * volume.f_frsize;
}

}  // namespace quillonic::items
