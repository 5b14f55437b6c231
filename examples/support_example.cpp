// A host's enumeration and record, stored in its own archive; a switch that stops a thread; and a map that counts.
#include <quillonic/support.hpp>

#include <array>
#include <cstdint>
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

void showOrderedMap() {
  OrderedMap<std::uint64_t, std::string> bySize{{700, "a.mov"}, {20, "b.wav"}, {90'000, "c.mxf"}};
  std::cout << "median " << bySize.nth(bySize.size() / 2)->second << ", " << bySize.countBetween(10, 1'000)
            << " of 10 to 999 bytes\n";
  const auto large = bySize.split(500);
  std::cout << bySize.size() << " small, " << large.size() << " large\n";
}

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

  showOrderedMap();
}
