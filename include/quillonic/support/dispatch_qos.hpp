/// How urgent work is.
#pragma once

#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

/// A quality of service: a class of urgency, and a place within the class. The library only keeps and reports
/// it: it has no threads whose scheduling could follow it.
struct DispatchQoS {
  /// The classes, from no statement at all up to work that a person watches.
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
  /// 0 is the most urgent place within the class, -15 the least; kept as given.
  int relativePriority = 0;

  /// No statement about urgency.
  static const DispatchQoS unspecified;
  /// Work that nobody waits for.
  static const DispatchQoS background;
  /// Long work whose progress a person may look at.
  static const DispatchQoS utility;
  /// Ordinary work. Ends in an underscore because the language keeps the bare word to itself.
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

/// The classes in the order of their urgency, with the texts by which logs name them.
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
