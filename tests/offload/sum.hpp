// A checksum without another library.
#pragma once

#include <quillonic/offload/checksum.hpp>

#include <cstdint>
#include <string>

namespace quillonic {

class SumHasher final : public offload::Hasher {
 public:
  void add(std::span<const std::byte> bytes) override {
    for (const auto byte : bytes) sum_ = (sum_ ^ std::to_integer<std::uint64_t>(byte)) * 0x100000001b3;
  }
  std::string checksum() override { return std::to_string(sum_); }

 private:
  std::uint64_t sum_ = 0xcbf29ce484222325;
};

inline const offload::ChecksumKind sum{"sum", [] { return std::make_unique<SumHasher>(); }};

}  // namespace quillonic
