#include <oneapi/tbb/queuing_rw_mutex.h>
#include <oneapi/tbb/rw_mutex.h>

#include "../switches.hpp"

namespace quillonic::benchmarks {
namespace {

template <class Mutex, bool writes> class Lock {
 public:
  explicit Lock(Mutex& mutex) : lock_(mutex, writes) {}

 private:
  typename Mutex::scoped_lock lock_;
};

template <class Mutex> using Shared = Guarded<Mutex, Lock<Mutex, false>, Lock<Mutex, true>>;
template <class Mutex> using Exclusive = Guarded<Mutex, Lock<Mutex, true>, Lock<Mutex, true>>;

Alone<Shared<tbb::rw_mutex>> shared;
Alone<Shared<tbb::queuing_rw_mutex>> queued;
Alone<Exclusive<tbb::queuing_rw_mutex>> exclusive;

const bool added = addSwitch(Promise::readsTogether, "tbb::rw_mutex",
                             "less: keeps no order, a read can starve", shared.shared) &&
                   addSwitch(Promise::readsTogether, "tbb::queuing_rw_mutex",
                             "keeps the order too; never sleeps", queued.shared) &&
                   addSwitch(Promise::oneAtATimeInOrder, "tbb::queuing_rw_mutex",
                             "keeps the order too; never sleeps", exclusive.shared);

}  // namespace
}  // namespace quillonic::benchmarks
