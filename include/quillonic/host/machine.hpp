/// The machine that the program runs on.
///
///     const Machine machine = describeMachine();         // once; it is a value
///     VantiroLogging::defaultLogger()->logInfo(machine.line());
///     startTranscodes(recommendedConcurrentTranscodes(machine));
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/user_defaults.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/text_backed.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace quillonic::host {

/// An architecture of processors: a listed one, or any other by the system's name for it.
class Architecture : public TextBacked<Architecture> {
 public:
  using TextBacked::TextBacked;

  /// 64-bit x86.
  static const Architecture x86_64;
  /// 64-bit Arm.
  static const Architecture arm64;
  /// 64-bit RISC-V.
  static const Architecture riscv64;
  /// 32-bit x86.
  static const Architecture x86;
  /// 32-bit Arm.
  static const Architecture arm;
  /// 64-bit POWER, low byte first.
  static const Architecture ppc64le;
  /// 64-bit IBM Z.
  static const Architecture s390x;
  /// 64-bit LoongArch.
  static const Architecture loongarch64;

  /// The architecture that the system calls by this name: "aarch64" is `arm64`, and "i386" to "i686" are
  /// `x86`.
  QUILLONIC_EXPORT static Architecture fromSystemName(std::string_view name);
  /// What this library was compiled for.
  QUILLONIC_EXPORT static Architecture ofThisProgram();
};

inline constexpr Architecture Architecture::x86_64{"x86-64"};
inline constexpr Architecture Architecture::arm64{"arm64"};
inline constexpr Architecture Architecture::riscv64{"riscv64"};
inline constexpr Architecture Architecture::x86{"x86"};
inline constexpr Architecture Architecture::arm{"arm"};
inline constexpr Architecture Architecture::ppc64le{"ppc64le"};
inline constexpr Architecture Architecture::s390x{"s390x"};
inline constexpr Architecture Architecture::loongarch64{"loongarch64"};

/// What the system tells of a machine; each field is absent where it tells nothing. Encoded, it is a record
/// of the fields that are known.
struct Machine {
  /// The maker; absent where the firmware has only a placeholder.
  std::optional<std::string> maker = {};
  /// The maker's name for the model.
  std::optional<std::string> model = {};
  /// The brand of the processor, also where it runs another architecture's programs; several, with " + "
  /// between them, where cores differ.
  std::optional<std::string> processor = {};
  /// The processor's architecture.
  std::optional<Architecture> architecture = {};
  /// The architecture that this program was compiled for.
  std::optional<Architecture> programArchitecture = {};
  /// Whether something translates or emulates this program's instructions. A program that the processor runs
  /// itself is not translated, 32-bit x86 on x86-64 included.
  std::optional<bool> isTranslated = {};
  /// The processors that this process may use: the least of its affinity and of its control groups' quota,
  /// rounded up.
  std::optional<std::int64_t> logicalProcessors = {};
  /// How many cores these processors are on; not more than the quota.
  std::optional<std::int64_t> physicalCores = {};
  /// The processors' time that the control groups allow, in processors; absent where they set no limit.
  std::optional<double> processorQuota = {};
  /// The machine's memory in bytes.
  std::optional<std::int64_t> memory = {};
  /// The least limit of the control groups in bytes; absent where they set none below the machine's memory.
  std::optional<std::int64_t> memoryLimit = {};
  /// The operating system's name, such as "Debian GNU/Linux".
  std::optional<std::string> system = {};
  /// The operating system's version, such as "12".
  std::optional<std::string> systemVersion = {};
  /// The kernel and its release, such as "Linux 6.1.0-18-amd64".
  std::optional<std::string> kernel = {};
  /// The kind of container, such as "docker"; absent where none was noticed.
  std::optional<std::string> container = {};
  /// The virtual machine, such as "KVM" or "VMware", or "unknown kind"; absent where none was noticed.
  std::optional<std::string> virtualMachine = {};
  /// The machine's name in its network. Reset it in what strangers may read.
  std::optional<std::string> hostName = {};

  friend bool operator==(const Machine&, const Machine&) = default;

  /// One line for logs, of what matters most: "Debian GNU/Linux 12, x86-64, AMD EPYC, 2 processors, ...".
  QUILLONIC_EXPORT std::string line() const;
  /// A line for each known field, for support reports: its name in words, and its value.
  QUILLONIC_EXPORT std::string table() const;
};

/// Reads a few dozen small files in "proc", "sys", "etc" and "run" below `root`; runs nothing and never
/// fails.
QUILLONIC_EXPORT Machine describeMachine(const std::filesystem::path& root = "/");

/// How many transcodes should run at once: the setting "kExplicitNumberOfConcurrentTranscodes", or where it
/// is not set one for every four cores and every 4 GiB of memory that the process may use, of which the least
/// counts, from 1 to 16. Without known cores two processors count as one; what is translated gets half.
QUILLONIC_EXPORT int recommendedConcurrentTranscodes(const Machine& machine,
                                                     const UserDefaults& defaults = *UserDefaults::current());

}  // namespace quillonic::host

/// The listed architectures.
template <> struct quillonic::CaseTable<quillonic::host::Architecture> {
  static constexpr CaseList cases{
      quillonic::host::Architecture::x86_64,  quillonic::host::Architecture::arm64,
      quillonic::host::Architecture::riscv64, quillonic::host::Architecture::x86,
      quillonic::host::Architecture::arm,     quillonic::host::Architecture::ppc64le,
      quillonic::host::Architecture::s390x,   quillonic::host::Architecture::loongarch64};
};

/// The fields of a machine's description under their names.
template <> struct quillonic::FieldTable<quillonic::host::Machine> {
  static constexpr std::tuple fields{
      Field{"maker", &host::Machine::maker},
      Field{"model", &host::Machine::model},
      Field{"processor", &host::Machine::processor},
      Field{"architecture", &host::Machine::architecture},
      Field{"programArchitecture", &host::Machine::programArchitecture},
      Field{"isTranslated", &host::Machine::isTranslated},
      Field{"logicalProcessors", &host::Machine::logicalProcessors},
      Field{"physicalCores", &host::Machine::physicalCores},
      Field{"processorQuota", &host::Machine::processorQuota},
      Field{"memory", &host::Machine::memory},
      Field{"memoryLimit", &host::Machine::memoryLimit},
      Field{"system", &host::Machine::system},
      Field{"systemVersion", &host::Machine::systemVersion},
      Field{"kernel", &host::Machine::kernel},
      Field{"container", &host::Machine::container},
      Field{"virtualMachine", &host::Machine::virtualMachine},
      Field{"hostName", &host::Machine::hostName},
  };
};
