/// Kinds of checksums for hosts that have xxHash and OpenSSL. Link the target `Quillonic::checksums`, which
/// exists if both were found; the library itself needs neither.
///
///     offload::copyFile(clip, targets, {.checksum = &offload::xxh64});
#pragma once

#include <quillonic/offload/checksum.hpp>

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <openssl/evp.h>
#include <span>
#include <string>
#include <xxhash.h>

namespace quillonic::detail {

inline std::string hexadecimal(std::span<const unsigned char> bytes) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : bytes) text.append(1, digits[byte >> 4]).append(1, digits[byte & 0xF]);
  return text;
}

template <class State, State* (*create)(), XXH_errorcode (*destroy)(State*)> struct XxhState {
  XxhState() : state(create()) {
    if (!state) throw std::bad_alloc();
  }
  XxhState(const XxhState&) = delete;
  XxhState& operator=(const XxhState&) = delete;
  ~XxhState() { destroy(state); }

  State* state;
};

class Xxh64Hasher final : public offload::Hasher {
 public:
  Xxh64Hasher() { XXH64_reset(state_.state, 0); }
  void add(std::span<const std::byte> bytes) override {
    XXH64_update(state_.state, bytes.data(), bytes.size());
  }
  std::string checksum() override {
    XXH64_canonical_t bytes;
    XXH64_canonicalFromHash(&bytes, XXH64_digest(state_.state));
    return hexadecimal(bytes.digest);
  }

 private:
  XxhState<XXH64_state_t, XXH64_createState, XXH64_freeState> state_;
};

class Xxh3Hasher final : public offload::Hasher {
 public:
  Xxh3Hasher() { XXH3_128bits_reset(state_.state); }
  void add(std::span<const std::byte> bytes) override {
    XXH3_128bits_update(state_.state, bytes.data(), bytes.size());
  }
  std::string checksum() override {
    XXH128_canonical_t bytes;
    XXH128_canonicalFromHash(&bytes, XXH3_128bits_digest(state_.state));
    return hexadecimal(bytes.digest);
  }

 private:
  XxhState<XXH3_state_t, XXH3_createState, XXH3_freeState> state_;
};

// The digest is one that the library always has; a system that forbids it fails on use.
template <const EVP_MD* (*algorithm)()> class EvpHasher final : public offload::Hasher {
 public:
  EvpHasher() : context_(EVP_MD_CTX_new()) {
    if (!context_ || EVP_DigestInit_ex(context_.get(), algorithm(), nullptr) != 1) throw std::bad_alloc();
  }
  void add(std::span<const std::byte> bytes) override {
    EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size());
  }
  std::string checksum() override {
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned size = 0;
    EVP_DigestFinal_ex(context_.get(), bytes.data(), &size);
    return hexadecimal(std::span(bytes).first(size));
  }

 private:
  struct Free {
    void operator()(EVP_MD_CTX* context) const noexcept { EVP_MD_CTX_free(context); }
  };
  std::unique_ptr<EVP_MD_CTX, Free> context_;
};

}  // namespace quillonic::detail

namespace quillonic::offload {

/// 64-bit xxHash, most significant byte first: fast, and in media hash lists. Detects faults, not forgery; so
/// do the next one, MD5 and SHA-1.
inline const ChecksumKind xxh64{"xxhash64be", [] { return std::make_unique<detail::Xxh64Hasher>(); }};
/// 128-bit XXH3: faster than memory. No media hash list of the first version has it.
inline const ChecksumKind xxh3{"xxh128", [] { return std::make_unique<detail::Xxh3Hasher>(); }};
/// MD5, as older media hash lists have it.
inline const ChecksumKind md5{"md5", [] { return std::make_unique<detail::EvpHasher<EVP_md5>>(); }};
/// SHA-1, as older media hash lists have it.
inline const ChecksumKind sha1{"sha1", [] { return std::make_unique<detail::EvpHasher<EVP_sha1>>(); }};
/// SHA-256. No media hash list of the first version has it.
inline const ChecksumKind sha256{"sha256", [] { return std::make_unique<detail::EvpHasher<EVP_sha256>>(); }};

}  // namespace quillonic::offload
