/// A reference to a callable, for blocks that are called but not stored.
#pragma once

#include <quillonic/requirements.hpp>

#include <concepts>
#include <type_traits>
#include <utility>

namespace quillonic {

template <class Signature> class FunctionRef;

/// Refers to any callable of the signature for the length of a call. Never allocates and never owns: an
/// operation that takes one calls it before it returns and stores nothing.
template <class Result, class... Arguments> class FunctionRef<Result(Arguments...)> {
 public:
  /// Binds a function, a lambda or a function object. The callable must outlive the reference; a temporary
  /// lives until the end of the call it is an argument of.
  template <class Callable>
  requires(!std::same_as<std::remove_cvref_t<Callable>, FunctionRef> &&
           !std::is_member_pointer_v<std::remove_cvref_t<Callable>> &&
           std::is_invocable_r_v<Result, Callable&, Arguments...>)
      // NOLINTNEXTLINE(google-explicit-constructor): binds like a reference
      FunctionRef(Callable&& callable)
  noexcept {
    using Target = std::remove_reference_t<Callable>;
    if constexpr (std::is_function_v<Target>) {
      target_.function = reinterpret_cast<void (*)()>(&callable);
      call_ = [](Bound bound, Arguments... arguments) -> Result {
        const auto target = reinterpret_cast<Target*>(bound.function);
        if constexpr (std::is_void_v<Result>) {
          target(std::forward<Arguments>(arguments)...);
        } else {
          return target(std::forward<Arguments>(arguments)...);
        }
      };
    } else {
      // `std::addressof` without <memory>, whose cost every header with a block would pay.
      target_.object = __builtin_addressof(callable);
      call_ = [](Bound bound, Arguments... arguments) -> Result {
        auto& target = *static_cast<Target*>(const_cast<void*>(bound.object));
        if constexpr (std::is_void_v<Result>) {
          target(std::forward<Arguments>(arguments)...);
        } else {
          return target(std::forward<Arguments>(arguments)...);
        }
      };
    }
  }

  /// Calls the callable and returns its result; exceptions pass through.
  Result operator()(Arguments... arguments) const {
    return call_(target_, std::forward<Arguments>(arguments)...);
  }

 private:
  union Bound {
    const void* object;
    void (*function)();
  };

  Bound target_{};
  Result (*call_)(Bound, Arguments...);
};

}  // namespace quillonic
