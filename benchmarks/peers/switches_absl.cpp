#include <absl/synchronization/mutex.h>

#include "../switches.hpp"

namespace quillonic::benchmarks {
namespace {

// With the standard's names.
struct Mutex : absl::Mutex {
  void lock() { Lock(); }
  void unlock() { Unlock(); }
  void lock_shared() { ReaderLock(); }
  void unlock_shared() { ReaderUnlock(); }
};

Alone<Guarded<Mutex>> exclusive;
Alone<ReadTogether<Mutex>> together;

const bool added = addSwitch(oneAtATime, "absl::Mutex", "", exclusive.shared) &&
                   addSwitch(readsTogether, "absl::Mutex", "less: keeps no strict order", together.shared);

}  // namespace
}  // namespace quillonic::benchmarks
