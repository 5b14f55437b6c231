// A host's enumeration and record, stored in its own archive; and a switch that stops a thread.
#include <quillonic/support.hpp>

#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <tuple>

using namespace quillonic;

enum class Verification { none, size, checksum };

// One table gives texts, the list of cases, reading by text, and coding.
template <> struct quillonic::CaseTable<Verification> {
  static constexpr auto rows = std::to_array<CaseRow<Verification>>({
      {Verification::none, "none"},
      {Verification::size, "size"},
      {Verification::checksum, "checksum"},
  });
};

struct CopyJob {
  std::string source;
  Verification verification = Verification::size;
};

template <> struct quillonic::FieldTable<CopyJob> {
  static constexpr std::tuple fields{
      Field{"source", &CopyJob::source},
      Field{"verification", &CopyJob::verification},
  };
};

int main() {
  for (const auto verification : allCases<Verification>()) std::cout << rawValue(verification) << '\n';

  const CodedValue coded = encode(CopyJob{"/card", Verification::checksum});
  const auto job = decode<CopyJob>(coded);
  std::cout << job.source << " by " << rawValue(job.verification) << '\n';

  // The library starts no thread; the switch only passes the message between the host's threads.
  const auto cancelled = std::make_shared<UnfairLockBasedAtomicSwitch>(false);
  std::thread copying([cancelled] {
    while (!cancelled->isOn()) std::this_thread::yield();
    std::cout << "stopped\n";
  });
  cancelled->setIsOn(true);
  copying.join();
}
