#include <absl/synchronization/mutex.h>

#include "../switches.hpp"

namespace quillonic::benchmarks {
namespace {

class Read {
 public:
  explicit Read(absl::Mutex& mutex) : lock_(&mutex) {}

 private:
  absl::ReaderMutexLock lock_;
};

class Write {
 public:
  explicit Write(absl::Mutex& mutex) : lock_(&mutex) {}

 private:
  absl::MutexLock lock_;
};

Alone<Guarded<absl::Mutex, Write, Write>> exclusive;
Alone<Guarded<absl::Mutex, Read, Write>> shared;

const bool added =
    addSwitch(Promise::oneAtATime, "absl::Mutex", "", exclusive.shared) &&
    addSwitch(Promise::readsTogether, "absl::Mutex", "less: keeps no strict order", shared.shared);

}  // namespace
}  // namespace quillonic::benchmarks
