// A number for a text, the same at compile time and in every process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillonic::text_hash {

// Four or eight bytes of a text as a number, written so that it is one load.
constexpr std::uint64_t fourBytes(const char* text) noexcept {
  const auto byte = [=](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(text[i])}; };
  return byte(0) | byte(1) << 8U | byte(2) << 16U | byte(3) << 24U;
}
constexpr std::uint64_t eightBytes(const char* text) noexcept {
  return fourBytes(text) | fourBytes(text + 4) << 32U;
}

// Takes eight bytes at a time; the last ones overlap those before them.
constexpr std::uint64_t of(std::string_view text) noexcept {
  std::uint64_t hash = text.size();
  const auto mix = [&](std::uint64_t bytes) {
    hash = (hash ^ bytes) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32U;
  };
  const char* const begin = text.data();
  if (text.size() >= 8) {
    for (std::size_t at = 0; at + 8 < text.size(); at += 8) mix(eightBytes(begin + at));
    mix(eightBytes(begin + text.size() - 8));
  } else if (text.size() >= 4) {
    mix(fourBytes(begin) | fourBytes(begin + text.size() - 4) << 32U);
  } else {
    for (const char c : text) mix(static_cast<unsigned char>(c));
  }
  return hash;
}

// Lets every bit have its part in the upper ones, which say where a table keeps a text.
constexpr std::uint64_t spread(std::uint64_t hash) noexcept {
  return hash * 0xD6E8FEB86659FD93U;
}

}  // namespace quillonic::text_hash
