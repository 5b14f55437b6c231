#include <oneapi/tbb/queuing_rw_mutex.h>
#include <oneapi/tbb/rw_mutex.h>

#include "../switches.hpp"

namespace quillonic::benchmarks {
namespace {

using Queuing = tbb::queuing_rw_mutex;

template <bool writes> struct Lock {
  explicit Lock(Queuing& mutex) : lock(mutex, writes) {}
  Queuing::scoped_lock lock;
};

Alone<ReadTogether<tbb::rw_mutex>> together;
Alone<Guarded<Queuing, Lock<false>, Lock<true>>> queued;
Alone<Guarded<Queuing, Lock<true>, Lock<true>>> exclusive;

constexpr auto name = "tbb::queuing_rw_mutex";
constexpr auto note = "keeps the order too; never sleeps";
const bool added =
    addSwitch(readsTogether, "tbb::rw_mutex", "less: keeps no order, a read can starve", together.shared) &&
    addSwitch(readsTogether, name, note, queued.shared) && addSwitch(inOrder, name, note, exclusive.shared);

}  // namespace
}  // namespace quillonic::benchmarks
