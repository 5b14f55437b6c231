#include <quillonic/host/machine.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

#include "host/control_groups.hpp"
#include "host/processor.hpp"
#include "platform/file_reading_linux.hpp"
#include "text/number_text.hpp"
#include "text/pieces.hpp"
#include "text/unicode.hpp"

namespace quillonic::host {
namespace {

namespace fs = std::filesystem;

using Text = std::optional<std::string>;

// What makers leave in the firmware where a name belongs, in lower case.
constexpr auto placeholders = std::to_array<std::string_view>(
    {"to be filled by o.e.m.", "system manufacturer", "system product name", "system version",
     "default string", "not specified", "not applicable", "o.e.m.", "oem", "none", "n/a", "unknown",
     "invalid", "empty", "undefined", "type1productconfigid"});

Text withoutPlaceholder(Text name) {
  const bool saysNothing =
      name && std::ranges::find(placeholders, text::lowerCased(*name)) != placeholders.end();
  return saysNothing ? std::nullopt : std::move(name);
}

// The value of a line such as `NAME="Debian GNU/Linux"`, quoted as in shells.
Text releaseValue(std::string_view release, std::string_view key) {
  const auto quoted = text::valueInLines(release, key);
  if (!quoted) return std::nullopt;
  std::string value;
  char quote = 0;
  for (auto at = quoted->begin(); at != quoted->end(); ++at) {
    if (*at == '\\' && quote != '\'' && std::next(at) != quoted->end()) {
      value.push_back(*++at);
    } else if (*at == quote || (quote == 0 && (*at == '"' || *at == '\''))) {
      quote = quote == 0 ? *at : '\0';
    } else {
      value.push_back(*at);
    }
  }
  return value.empty() ? std::nullopt : Text(std::move(value));
}

// The numbers of a list such as "0-3,8"; empty for another form.
std::vector<int> numbersIn(std::string_view list) {
  // More than any machine has; the list of a broken file must not fill the memory.
  constexpr int most = 1 << 16;
  std::vector<int> numbers;
  for (auto ranges = text::split(list, ','); const auto range = ranges.next();) {
    auto ends = text::split(*range, '-');
    const auto first = number_text::read<int>(ends.next().value_or(""));
    const auto last = number_text::read<int>(ends.next().value_or(*range));
    if (!first || !last || *first < 0 || *last >= most) return {};
    for (int number = *first; number <= *last; ++number) numbers.push_back(number);
  }
  return numbers;
}

// On how many cores the processors are; nothing where the system does not tell of one.
std::optional<std::int64_t> coresOf(const std::vector<int>& processors, const fs::path& root) {
  std::set<std::string> cores;
  for (const int processor : processors) {
    const auto topology = root / ("sys/devices/system/cpu/cpu" + std::to_string(processor)) / "topology";
    auto core = textOfFile(topology / "core_cpus_list");
    if (!core) core = textOfFile(topology / "thread_siblings_list");
    if (!core) return std::nullopt;
    cores.insert(*std::move(core));
  }
  if (cores.empty()) return std::nullopt;
  return static_cast<std::int64_t>(cores.size());
}

void describeProcessors(Machine& machine, const fs::path& root) {
  const auto status = contentsOfFile(root / "proc/self/status").value_or({});
  const auto allowed = text::valueInLines(status, "Cpus_allowed_list:");
  const auto processors = numbersIn(text::trimmed(allowed.value_or("")));
  if (!processors.empty()) machine.logicalProcessors = static_cast<std::int64_t>(processors.size());
  machine.physicalCores = coresOf(processors, root);

  const auto limits = controlGroupLimits(root);
  machine.processorQuota = limits.processors;
  if (limits.processors) {
    const auto most = std::max<std::int64_t>(1, std::llround(std::ceil(*limits.processors)));
    for (auto* count : {&machine.logicalProcessors, &machine.physicalCores}) {
      if (*count) *count = std::min(**count, most);
    }
  }

  const auto memory = contentsOfFile(root / "proc/meminfo").value_or({});
  auto total = text::trimmed(text::valueInLines(memory, "MemTotal:").value_or(""));
  if (const auto kibibytes = number_text::read<std::int64_t>(total.substr(0, total.find(' ')))) {
    machine.memory = *kibibytes * 1024;
  }
  const bool isLimited = limits.memory && (!machine.memory || *limits.memory < *machine.memory);
  // Without a limit the first version of control groups tells the greatest number of pages.
  constexpr std::int64_t noLimit = std::int64_t{1} << 62U;
  if (isLimited && *limits.memory < noLimit) machine.memoryLimit = limits.memory;
}

// A word in the firmware's names, and what has it.
constexpr auto virtualMachines = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"KVM", "KVM"},
    {"QEMU", "QEMU"},
    {"VMware", "VMware"},
    {"VirtualBox", "VirtualBox"},
    {"innotek", "VirtualBox"},
    {"Microsoft Corporation Virtual Machine", "Hyper-V"},
    {"Xen", "Xen"},
    {"Amazon EC2", "Amazon EC2"},
    {"Google Compute Engine", "Google Compute Engine"},
    {"Parallels", "Parallels"},
    {"Apple Virtualization", "Apple Virtualization"},
    {"BHYVE", "bhyve"},
    {"OpenStack", "OpenStack"},
});

Text virtualMachineOf(const std::string& firmware, std::string_view processors, const fs::path& root) {
  for (const auto& [word, name] : virtualMachines) {
    if (firmware.find(word) != std::string::npos) return std::string(name);
  }
  if (auto type = textOfFile(root / "sys/hypervisor/type")) return type;
  if (const auto type = textOfFile(root / "proc/device-tree/hypervisor/compatible")) {
    return type == "linux,kvm" ? "KVM" : type;
  }
  return hasProcessorFlag(processors, "hypervisor") ? Text("unknown kind") : std::nullopt;
}

Text containerOf(std::string_view kernel, const fs::path& root) {
  if (auto manager = textOfFile(root / "run/systemd/container")) return manager;
  if (contentsOfFile(root / "run/.containerenv")) return "podman";
  if (contentsOfFile(root / ".dockerenv")) return "docker";
  // Only the administrator may read it.
  const auto environment = contentsOfFile(root / "proc/1/environ").value_or({});
  constexpr std::string_view key = "container=";
  for (auto words = text::split(environment, '\0'); const auto word = words.next();) {
    if (word->starts_with(key) && word->size() > key.size()) return std::string(word->substr(key.size()));
  }
  return text::lowerCased(kernel).find("microsoft") != std::string::npos ? Text("wsl") : std::nullopt;
}

// What systems call architectures, where that is not what the library does.
constexpr auto systemNames = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"x86_64", Architecture::x86_64.rawValue()},
    {"amd64", Architecture::x86_64.rawValue()},
    {"aarch64", Architecture::arm64.rawValue()},
    {"i386", Architecture::x86.rawValue()},
    {"i486", Architecture::x86.rawValue()},
    {"i586", Architecture::x86.rawValue()},
    {"i686", Architecture::x86.rawValue()},
});

// Whether a processor runs the programs of an older one too.
bool runsItself(const Architecture& processor, const Architecture& program) {
  return processor == program || (processor == Architecture::x86_64 && program == Architecture::x86) ||
         (processor == Architecture::arm64 && program == Architecture::arm);
}

}  // namespace

Architecture Architecture::fromSystemName(std::string_view name) {
  for (const auto& [systemName, own] : systemNames) {
    if (systemName == name) name = own;
  }
  return name.starts_with("armv") ? arm : Architecture(name);
}

Architecture Architecture::ofThisProgram() {
#if defined(__x86_64__)
  return x86_64;
#elif defined(__aarch64__)
  return arm64;
#elif defined(__riscv) && __riscv_xlen == 64
  return riscv64;
#elif defined(__i386__)
  return x86;
#elif defined(__arm__)
  return arm;
#elif defined(__powerpc64__) && defined(__LITTLE_ENDIAN__)
  return ppc64le;
#elif defined(__s390x__)
  return s390x;
#elif defined(__loongarch64)
  return loongarch64;
#else
  return Architecture("unknown");
#endif
}

Machine describeMachine(const fs::path& root) {
  Machine machine;
  machine.programArchitecture = Architecture::ofThisProgram();

  const auto processors = contentsOfFile(root / "proc/cpuinfo").value_or({});
  machine.processor = processorBrand(processors);
  const auto kernelArchitecture = textOfFile(root / "proc/sys/kernel/arch");
  machine.architecture = kernelArchitecture ? Architecture::fromSystemName(*kernelArchitecture)
                                            : architectureByTable(processors);
  if (machine.architecture) {
    machine.isTranslated = !runsItself(*machine.architecture, *machine.programArchitecture);
  }
  describeProcessors(machine, root);

  const auto firmware = root / "sys/class/dmi/id";
  machine.maker = withoutPlaceholder(textOfFile(firmware / "sys_vendor"));
  machine.model = withoutPlaceholder(textOfFile(firmware / "product_name"));
  if (!machine.maker) machine.maker = withoutPlaceholder(textOfFile(firmware / "board_vendor"));
  if (!machine.model) machine.model = withoutPlaceholder(textOfFile(firmware / "board_name"));
  if (!machine.model) machine.model = textOfFile(root / "proc/device-tree/model");

  auto release = contentsOfFile(root / "etc/os-release");
  if (!release) release = contentsOfFile(root / "usr/lib/os-release");
  const auto lines = std::move(release).value_or({});
  machine.system = releaseValue(lines, "NAME=");
  machine.systemVersion = releaseValue(lines, "VERSION_ID=");
  const auto kernelName = textOfFile(root / "proc/sys/kernel/ostype");
  const auto kernelRelease = textOfFile(root / "proc/sys/kernel/osrelease");
  if (kernelName && kernelRelease) machine.kernel = *kernelName + " " + *kernelRelease;

  const auto names = machine.maker.value_or("") + " " + machine.model.value_or("");
  machine.virtualMachine = virtualMachineOf(names, processors, root);
  machine.container = containerOf(machine.kernel.value_or(""), root);
  machine.hostName = textOfFile(root / "proc/sys/kernel/hostname");
  return machine;
}

int recommendedConcurrentTranscodes(const Machine& machine, const UserDefaults& defaults) {
  const auto chosen = settings::explicitNumberOfConcurrentTranscodes.read(defaults);
  if (chosen > 0) return static_cast<int>(chosen);
  constexpr std::int64_t coresEach = 4;
  constexpr std::int64_t memoryEach = std::int64_t{4} << 30U;
  constexpr std::int64_t most = 16;
  const auto cores = machine.physicalCores.value_or(machine.logicalProcessors.value_or(0) / 2);
  auto count = cores / coresEach;
  if (machine.isTranslated.value_or(false)) count /= 2;
  const auto memory = machine.memoryLimit ? machine.memoryLimit : machine.memory;
  if (memory) count = std::min(count, *memory / memoryEach);
  return static_cast<int>(std::clamp<std::int64_t>(count, 1, most));
}

}  // namespace quillonic::host
