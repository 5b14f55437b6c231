#include <quillonic/host/machine.hpp>

#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "temporary_folder.hpp"

namespace quillonic::host {
namespace {

// The files of a machine, and what they tell: a field that is not listed is absent.
struct Case {
  std::string name;
  std::vector<std::pair<std::string, std::string>> files;
  std::map<std::string, std::string> known;
};

const std::vector<Case> cases{
    {"no information at all", {}, {}},
    {"a workstation whose maker left placeholders",
     {{"proc/cpuinfo",
       "processor\t: 0\nmodel name\t: AMD Ryzen  9\nflags\t\t: fpu lm\n\nprocessor\t: 1\nmodel name\t: AMD "
       "Ryzen  9\n"},
      {"proc/sys/kernel/arch", "x86_64\n"},
      {"proc/self/status", "Name:\tx\nCpus_allowed_list:\t0-2,9\n"},
      {"sys/devices/system/cpu/cpu0/topology/core_cpus_list", "0,9\n"},
      {"sys/devices/system/cpu/cpu1/topology/core_cpus_list", "1,10\n"},
      {"sys/devices/system/cpu/cpu2/topology/thread_siblings_list", "2,11\n"},
      {"sys/devices/system/cpu/cpu9/topology/core_cpus_list", "0,9\n"},
      {"proc/meminfo", "MemTotal:       16384 kB\nMemFree: 1 kB\n"},
      {"proc/self/cgroup", "0::/user/app\n"},
      {"sys/fs/cgroup/user/app/cpu.max", "max 100000\n"},
      {"sys/fs/cgroup/user/cpu.max", "350000 100000\n"},
      {"sys/fs/cgroup/user/app/memory.max", "max\n"},
      {"sys/fs/cgroup/memory.max", "99999999999\n"},
      {"sys/class/dmi/id/sys_vendor", "To Be Filled By O.E.M.\n"},
      {"sys/class/dmi/id/board_vendor", "Gigabyte\n"},
      {"sys/class/dmi/id/product_name", "System Product Name\n"},
      {"etc/os-release", "ID=x\nNAME='A \"B\"'\nVERSION_ID=\"1\\\"2\"\n"},
      {"proc/sys/kernel/ostype", "Linux\n"},
      {"proc/sys/kernel/osrelease", "6.1.0-18-amd64\n"},
      {"proc/sys/kernel/hostname", "studio\n"}},
     {{"maker", "Gigabyte"},
      {"processor", "AMD Ryzen  9"},
      {"architecture", "x86-64"},
      {"logical processors", "4"},
      {"physical cores", "3"},
      {"processor quota", "3.5"},
      {"memory", "0.0 GiB"},
      {"system", "A \"B\""},
      {"system version", "1\"2"},
      {"kernel", "Linux 6.1.0-18-amd64"},
      {"host name", "studio"}}},
    {"a board with two kinds of cores, before the kernel told its architecture",
     {{"proc/cpuinfo",
       "processor\t: 0\nCPU implementer\t: 0x41\nCPU architecture: 8\nCPU part\t: 0xd03\n\n"
       "processor\t: 1\nCPU implementer\t: 0x41\nCPU architecture: 8\nCPU part\t: 0xfff\n"},
      {"proc/self/status", "Cpus_allowed_list:\t0-1\n"},
      {"proc/device-tree/model", std::string("Board Rev 1.1\0", 14)},
      {"usr/lib/os-release", "NAME=Alpine\n"}},
     {{"model", "Board Rev 1.1"},
      {"processor", "Arm Cortex-A53 + Arm 0xfff"},
      {"architecture", "arm64"},
      {"logical processors", "2"},
      {"system", "Alpine"}}},
    {"a container of an older system in a virtual machine, with limits",
     {{"proc/cpuinfo", "model name\t: Intel Xeon\nflags\t: fpu lm hypervisor\n"},
      {"proc/self/status", "Cpus_allowed_list:\t0-63\n"},
      {"proc/meminfo", "MemTotal: 67108864 kB\n"},
      {"proc/self/cgroup", "5:cpu,cpuacct:/docker/1\n4:memory:/docker/1\n1:name=systemd:/docker/1\nbroken\n"},
      {"sys/fs/cgroup/cpu,cpuacct/cpu.cfs_quota_us", "50000\n"},
      {"sys/fs/cgroup/cpu,cpuacct/cpu.cfs_period_us", "100000\n"},
      {"sys/fs/cgroup/memory/docker/1/memory.limit_in_bytes", "9223372036854771712\n"},
      {"sys/fs/cgroup/memory/memory.limit_in_bytes", "2147483648\n"},
      {"sys/class/dmi/id/sys_vendor", "QEMU\n"},
      {"sys/class/dmi/id/product_name", "Standard PC\n"},
      {".dockerenv", ""}},
     {{"maker", "QEMU"},
      {"model", "Standard PC"},
      {"processor", "Intel Xeon"},
      {"architecture", "x86-64"},
      {"logical processors", "1"},
      {"processor quota", "0.5"},
      {"memory", "64.0 GiB"},
      {"memory limit", "2.0 GiB"},
      {"container", "docker"},
      {"virtual machine", "QEMU"}}},
    {"a sandbox, and files that tell nonsense",
     {{"proc/cpuinfo", "flags : hypervisor\nno colon\nmodel name :\n"},
      {"proc/sys/kernel/arch", "vax\n"},
      {"proc/self/status", "Cpus_allowed_list:\t0-4000000000\n"},
      {"proc/meminfo", "MemTotal: much\n"},
      {"proc/self/cgroup", "0::/../..\n"},
      {"proc/1/environ", std::string("A=b\0container=lxc\0", 18)},
      {"etc/os-release", "NAME=\"\\\n"}},
     {{"architecture", "vax"}, {"container", "lxc"}, {"system", "\\"}, {"virtual machine", "unknown kind"}}},
};

TEST(Machine, IsDescribedAsFarAsItsFilesTell) {
  for (const auto& [name, files, known] : cases) {
    const TemporaryFolder root;
    for (const auto& [file, content] : files) root.file(file, content);
    const auto machine = describeMachine(root.path());
    std::map<std::string, std::string> told;
    const auto table = machine.table();
    for (std::size_t at = 0, end = 0; (end = table.find('\n', at)) != std::string::npos; at = end + 1) {
      const auto gap = table.find("  ", at);
      const auto value = table.find_first_not_of(' ', gap);
      told[table.substr(at, gap - at)] = table.substr(value, end - value);
    }
    auto expected = known;
    expected["program architecture"] = Architecture::ofThisProgram().rawValue();
    if (machine.architecture) {
      expected["is translated"] = *machine.architecture == Architecture::ofThisProgram() ? "no" : "yes";
    }
    EXPECT_EQ(told, expected) << name;
    EXPECT_EQ(decode<Machine>(encode(machine)), machine);
    EXPECT_EQ(machine.line().find('\n'), std::string::npos);
  }
}

TEST(Machine, KnowsTheNamesOfArchitectures) {
  const std::pair<const char*, Architecture> rows[] = {
      {"x86_64", Architecture::x86_64},   {"aarch64", Architecture::arm64},
      {"i586", Architecture::x86},        {"armv7l", Architecture::arm},
      {"riscv64", Architecture::riscv64}, {"vax", Architecture(std::string("vax"))}};
  for (const auto& [name, architecture] : rows) EXPECT_EQ(Architecture::fromSystemName(name), architecture);
  const auto own = describeMachine();
  EXPECT_EQ(own.programArchitecture, Architecture::ofThisProgram());
  EXPECT_TRUE(own.line().starts_with(own.system.value_or("")));
}

struct Chosen final : UserDefaults {
  AnyValue value(std::string_view key) const override {
    return key == user_default_keys::kExplicitNumberOfConcurrentTranscodes ? number : AnyValue();
  }
  AnyValue number;
};

TEST(Machine, RecommendsTranscodes) {
  struct Row {
    std::optional<std::int64_t> logical;
    std::optional<std::int64_t> physical;
    std::optional<std::int64_t> gibibytes;
    std::optional<std::int64_t> limit;
    std::optional<bool> isTranslated;
    AnyValue chosen;
    int expected;
  };
  const Row rows[] = {
      {{}, {}, {}, {}, {}, {}, 1},    {8, {}, {}, {}, {}, {}, 1},       {64, {}, {}, {}, {}, {}, 8},
      {64, 16, {}, {}, {}, {}, 4},    {64, 64, 64, {}, false, {}, 16},  {64, 64, 64, 24, false, {}, 6},
      {64, 64, 256, {}, true, {}, 8}, {256, 128, 1024, {}, {}, {}, 16}, {64, 64, 1, {}, {}, {}, 1},
      {2, 1, 1, {}, {}, 5, 5},        {64, 16, {}, {}, {}, 0, 4},       {2, 1, 1, {}, {}, 5000, 64},
      {64, 16, {}, {}, {}, -3, 4},    {64, 16, {}, {}, {}, "7", 4},
  };
  for (const auto& row : rows) {
    Machine machine;
    const auto bytes = [](auto count) { return count ? std::optional(*count << 30) : std::nullopt; };
    machine.logicalProcessors = row.logical;
    machine.physicalCores = row.physical;
    machine.memory = bytes(row.gibibytes);
    machine.memoryLimit = bytes(row.limit);
    machine.isTranslated = row.isTranslated;
    Chosen defaults;
    defaults.number = row.chosen;
    EXPECT_EQ(recommendedConcurrentTranscodes(machine, defaults), row.expected) << machine.table();
  }
}

TEST(Settings, AreThoseOfTheHost) {
  EXPECT_TRUE(settings::useGPUAcceleration.read());
  EXPECT_FALSE(settings::permitAutoReattemptOfFailedTranscodes.read());
  EXPECT_EQ(settings::numberOfReattemptsPerFailedTranscode.read(), 1);
  const auto chosen = std::make_shared<Chosen>();
  chosen->number = 3.0;
  UserDefaults::replace(chosen);
  EXPECT_EQ(settings::explicitNumberOfConcurrentTranscodes.read(), 3);
  UserDefaults::replace(nullptr);
  EXPECT_EQ(settings::explicitNumberOfConcurrentTranscodes.read(), 0);
}

}  // namespace
}  // namespace quillonic::host
