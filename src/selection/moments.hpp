// Moments as texts: "2026-11-22", "2026-11-22T10:00", "2026-11-22T10:00:30Z".
#pragma once

#include <quillonic/selection/conditions.hpp>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillonic::selection::moments {

// The first and the last moment that texts hold, as clocks show them.
inline constexpr std::chrono::local_seconds first = std::chrono::local_days(std::chrono::year(1) / 1 / 1);
inline constexpr std::chrono::local_seconds last =
    std::chrono::local_days(std::chrono::year(10'000) / 1 / 1) - std::chrono::seconds(1);

std::string text(const Moment& moment);

// Nothing for another form, a date or time that does not exist, and what is beyond the first and the last.
std::optional<Moment> read(std::string_view text) noexcept;

// The midnight that a date begins with.
std::optional<std::chrono::local_days> readDay(std::string_view text) noexcept;

}  // namespace quillonic::selection::moments
