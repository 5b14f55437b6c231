// The bodies of the kernels, which a source includes after it has chosen the instructions. They use no
// function of another header: the linker could pick a copy of it with these instructions for every processor.
// Products and sums are separate on purpose, so that all instructions round alike.
//
// NOLINTBEGIN: this is compiled as part of other sources

namespace quillonic::lut {
namespace {

#ifdef QUILLONIC_HAS_AVX2
constexpr int lanes = 8;
#else
constexpr int lanes = 4;
#endif
typedef float Floats __attribute__((vector_size(4 * lanes)));
typedef std::int32_t Integers __attribute__((vector_size(4 * lanes)));
// As large as they are, and half of one.
typedef double Doubles __attribute__((vector_size(4 * lanes)));
typedef float HalfOfFloats __attribute__((vector_size(2 * lanes)));
typedef std::int32_t HalfOfIntegers __attribute__((vector_size(2 * lanes)));

#define QUILLONIC_INLINE static inline __attribute__((always_inline))
#define QUILLONIC_MEMBER __attribute__((always_inline)) inline

template <class Vector> QUILLONIC_INLINE void load(Vector& vector, const void* from) {
  __builtin_memcpy(&vector, from, sizeof vector);
}
template <class Vector> QUILLONIC_INLINE void store(const Vector& vector, void* to) {
  __builtin_memcpy(to, &vector, sizeof vector);
}

// The operands in this order let NaN become the limit.
template <class Vector> QUILLONIC_INLINE Vector atLeast(const Vector& value, const Vector& limit) {
  return value > limit ? value : limit;
}
template <class Vector> QUILLONIC_INLINE Vector atMost(const Vector& value, const Vector& limit) {
  return value < limit ? value : limit;
}

template <class Vector, class Half> QUILLONIC_INLINE Vector joined(const Half& low, const Half& high) {
#ifdef QUILLONIC_HAS_AVX2
  return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
#else
  return __builtin_shufflevector(low, high, 0, 1, 2, 3);
#endif
}

}  // namespace
}  // namespace quillonic::lut

#include "lut/kernels_samples.hpp"
#include "lut/kernels_tables.hpp"

namespace quillonic::lut {
namespace {

constexpr Kernels kernels{
    .nearest1D = nearest1D,
    .linear1D = linear1D,
    .nearest3D = nearest3D,
    .trilinear = trilinear<ExactAxis>,
    .fastTrilinear = trilinear<FastAxis>,
    .tetrahedral = tetrahedral<ExactAxis>,
    .fastTetrahedral = tetrahedral<FastAxis>,
    .decoders = {decodeIntegers<std::uint8_t, 255>, decodeIntegers<std::uint16_t, 1023>,
                 decodeIntegers<std::uint16_t, 4095>, decodeIntegers<std::uint16_t, 65535>, decodeHalves,
                 nullptr},
    .encoders = {encodeIntegers<std::uint8_t, 255>, encodeIntegers<std::uint16_t, 1023>,
                 encodeIntegers<std::uint16_t, 4095>, encodeIntegers<std::uint16_t, 65535>, encodeHalves,
                 nullptr},
    .splitters = {split<std::uint8_t>, split<std::uint16_t>, split<std::uint32_t>},
    .mergers = {merge<std::uint8_t>, merge<std::uint16_t>, merge<std::uint32_t>},
};

}  // namespace
}  // namespace quillonic::lut
// NOLINTEND
