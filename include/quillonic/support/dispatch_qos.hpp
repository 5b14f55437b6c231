/// How urgent work is.
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

/// A quality of service: a class of urgency, and a place within the class. The library only stores and
/// reports it, since it has no threads to schedule.
struct DispatchQoS {
  /// The classes, from none at all to work that a person watches.
  enum class QoSClass : std::uint8_t {
    unspecified,
    background,
    utility,
    default_,
    userInitiated,
    userInteractive,
  };

  /// How urgent the work is.
  QoSClass qosClass = QoSClass::unspecified;
  /// From 0, the most urgent place within the class, to -15, the least; kept as given.
  int relativePriority = 0;

  /// Says nothing about urgency.
  static const DispatchQoS unspecified;
  /// Work that nobody waits for.
  static const DispatchQoS background;
  /// Long work whose progress a person may look at.
  static const DispatchQoS utility;
  /// Ordinary work. The underscore is there because `default` is a keyword.
  static const DispatchQoS default_;
  /// Work that a person has asked for and waits for.
  static const DispatchQoS userInitiated;
  /// Work that a person watches, such as drawing.
  static const DispatchQoS userInteractive;

  friend constexpr bool operator==(const DispatchQoS&, const DispatchQoS&) = default;
};

inline constexpr DispatchQoS DispatchQoS::unspecified{QoSClass::unspecified};
inline constexpr DispatchQoS DispatchQoS::background{QoSClass::background};
inline constexpr DispatchQoS DispatchQoS::utility{QoSClass::utility};
inline constexpr DispatchQoS DispatchQoS::default_{QoSClass::default_};
inline constexpr DispatchQoS DispatchQoS::userInitiated{QoSClass::userInitiated};
inline constexpr DispatchQoS DispatchQoS::userInteractive{QoSClass::userInteractive};

/// The classes by ascending urgency, with their texts for logs.
template <> struct CaseTable<DispatchQoS::QoSClass> {
  static constexpr auto rows = std::to_array<CaseRow<DispatchQoS::QoSClass>>({
      {DispatchQoS::QoSClass::unspecified, "unspecified"},
      {DispatchQoS::QoSClass::background, "background"},
      {DispatchQoS::QoSClass::utility, "utility"},
      {DispatchQoS::QoSClass::default_, "default"},
      {DispatchQoS::QoSClass::userInitiated, "userInitiated"},
      {DispatchQoS::QoSClass::userInteractive, "userInteractive"},
  });
};

}  // namespace quillonic
