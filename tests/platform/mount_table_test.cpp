#include <quillonic/platform/mount_table.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "private_process.hpp"
#include "recorded_log.hpp"

namespace quillonic {
namespace {

constexpr std::string_view plainLine = "22 1 0:21 / / rw - proc proc rw\n";
// Every field in its strangest form.
constexpr std::string_view strangeLine =
    R"(36 35 259:17 /a\040b /mnt/x\040\011\012\134\134040\q\8 ro,noatime shared:1 master:2 propagate_from:3 )"
    R"(unbindable - fuse.my\040fs  rw,errors=continue)";

TEST(MountTable, ReadsEveryField) {
  const auto table = MountTable::fromText(std::string(plainLine).append(strangeLine).append("\n"));
  ASSERT_EQ(table.mounts().size(), 2U);
  EXPECT_EQ(table.mounts()[1], (Mount{36, 35, 259, 17, "/a b", "/mnt/x \t\n\\\\040\\q\\8", "fuse.my fs", "",
                                      true, "rw,errors=continue"}));
  EXPECT_FALSE(table.mounts()[0].isReadOnly);
  EXPECT_TRUE(MountTable::fromText("1 2 0:3 / /a rw - ext4 /dev/a rw,ro").mounts()[0].isReadOnly);
  EXPECT_EQ(table.withIdentifier(22), &table.mounts()[0]);
  EXPECT_EQ(table.withIdentifier(35), nullptr);
}

TEST(MountTable, LeavesOutLinesThatAreCutShort) {
  const auto complete = strangeLine.rfind(' ') + 1;
  for (std::size_t length = 0; length < complete; ++length) {
    const auto cut = std::string(strangeLine.substr(0, length)).append("\n").append(plainLine);
    ASSERT_EQ(MountTable::fromText(cut).mounts().size(), 1U) << cut;
  }
}

TEST(MountTable, LogsWhenItCannotBeRead) {
  runPrivately([] {
    const RecordedLog log;
    mountAt("/proc");
    EXPECT_TRUE(MountTable::current().mounts().empty());
    EXPECT_THAT(log.text(),
                testing::StartsWith("warning: QLC_MT_C-Failed to read the mount table with error "));
  });
}

// Identifiers that the system does not know simulate a system that reports none.
TEST(MountTable, FallsBackOnTheResolvedPath) {
  const auto table = MountTable::fromText(
      "4000000001 0 8:1 / / rw - ext4 a rw\n"
      "4000000002 1 8:2 / /proc/self rw - proc b rw\n"
      "4000000003 1 8:2 / /proc/sys rw - proc b rw\n");
  // "self" is a link: its entry is in /proc, and what is below it elsewhere.
  const std::pair<const char*, std::uint64_t> rows[] = {{"/proc/self", 4000000002},
                                                        {"/proc/self/stat", 4000000001},
                                                        {"/proc/sys//kernel/../", 4000000003},
                                                        {"/proc/sys/missing", 4000000003},
                                                        {"/", 4000000001}};
  EXPECT_EQ(MountTable().holding("/"), nullptr);
  for (const auto& [path, identifier] : rows) EXPECT_EQ(table.holding(path)->identifier, identifier) << path;
}

}  // namespace
}  // namespace quillonic
