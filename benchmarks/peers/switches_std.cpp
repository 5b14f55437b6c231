#include <mutex>
#include <shared_mutex>

#include "../switches.hpp"

namespace quillonic::benchmarks {
namespace {

using Exclusive = Guarded<std::mutex, std::lock_guard<std::mutex>, std::lock_guard<std::mutex>>;
using Shared =
    Guarded<std::shared_mutex, std::shared_lock<std::shared_mutex>, std::lock_guard<std::shared_mutex>>;

Alone<Exclusive> exclusive;
Alone<Shared> shared;

const bool added =
    addSwitch(Promise::oneAtATime, "std::mutex", "", exclusive.shared) &&
    addSwitch(Promise::oneAtATimeInOrder, "std::mutex", "less: keeps no order", exclusive.shared) &&
    addSwitch(Promise::readsTogether, "std::shared_mutex", "less: keeps no order, a write can starve",
              shared.shared);

}  // namespace
}  // namespace quillonic::benchmarks
