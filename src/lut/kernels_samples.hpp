// The kernels of samples, a part of kernels_body.hpp: pixels are split into channels and merged, samples are
// converted to floats and back.
//
// NOLINTBEGIN: this is compiled as part of other sources

namespace quillonic::lut {
namespace {

// Samples without alignment.
template <class Sample> struct Loose { typedef Sample Type __attribute__((aligned(1), may_alias)); };

// Plain loops: compilers turn them into vectors better than vectors of bytes.
template <class Sample, int Greatest>
void decodeIntegers(const std::uint8_t* samples, float* values, std::size_t count) {
  const auto* codes = reinterpret_cast<const typename Loose<Sample>::Type*>(samples);
  for (std::size_t i = 0; i < count; ++i) {
    const int code = codes[i] < Greatest ? codes[i] : Greatest;
    values[i] = static_cast<float>(code) / static_cast<float>(Greatest);
  }
}

template <class Sample, int Greatest>
void encodeIntegers(const float* values, std::uint8_t* samples, std::size_t count) {
  alignas(64) std::int32_t codes[blockPixels];
  for (std::size_t at = 0; at < count; at += lanes) {
    Floats value;
    load(value, values + at);
    value = atMost(atLeast(value, Floats{}), Floats{} + 1.0F) * static_cast<float>(Greatest) + 0.5F;
    store(__builtin_convertvector(value, Integers), codes + at);
  }
  auto* to = reinterpret_cast<typename Loose<Sample>::Type*>(samples);
  for (std::size_t i = 0; i < count; ++i) to[i] = static_cast<Sample>(codes[i]);
}

#ifdef QUILLONIC_HAS_AVX2

void decodeHalves(const std::uint8_t* samples, float* values, std::size_t count) {
  for (std::size_t at = 0; at < count; at += lanes)
    _mm256_storeu_ps(values + at,
                     _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(samples + 2 * at))));
}

void encodeHalves(const float* values, std::uint8_t* samples, std::size_t count) {
  for (std::size_t at = 0; at < count; at += lanes)
    _mm_storeu_si128(reinterpret_cast<__m128i*>(samples + 2 * at),
                     _mm256_cvtps_ph(_mm256_loadu_ps(values + at), _MM_FROUND_TO_NEAREST_INT));
}

#else

typedef std::uint32_t Bits __attribute__((vector_size(4 * lanes)));
typedef std::uint16_t Halves __attribute__((vector_size(2 * lanes)));

// A half float with its exponent as a float's is 2^-112 times its value; a product mends that, also where the
// half float is subnormal.
void decodeHalves(const std::uint8_t* samples, float* values, std::size_t count) {
  for (std::size_t at = 0; at < count; at += lanes) {
    Halves halves;
    load(halves, samples + 2 * at);
    const Bits bits = __builtin_convertvector(halves, Bits);
    const Bits magnitude = (bits & 0x7FFFU) << 13;
    Floats scaled;
    load(scaled, &magnitude);
    scaled *= 0x1p112F;
    Bits result;
    load(result, &scaled);
    result |= (bits & 0x7C00U) == 0x7C00U ? Bits{} + 0x7F800000U : Bits{};
    // NaN becomes quiet.
    result |= (bits & 0x7FFFU) > 0x7C00U ? Bits{} + 0x00400000U : Bits{};
    store(result | (bits & 0x8000U) << 16, values + at);
  }
}

void encodeHalves(const float* values, std::uint8_t* samples, std::size_t count) {
  for (std::size_t at = 0; at < count; ++at) {
    std::uint32_t bits;
    __builtin_memcpy(&bits, values + at, 4);
    const std::uint32_t sign = bits >> 16 & 0x8000U;
    const std::uint32_t magnitude = bits & 0x7FFFFFFFU;
    std::uint32_t half;
    if (magnitude > 0x7F800000U) {
      half = 0x7E00U | (magnitude >> 13 & 0x3FFU);
    } else if (magnitude >= 0x477FF000U) {
      half = 0x7C00U;
    } else if (magnitude < 0x38800000U) {
      // The sum with a number whose last place is that of subnormal half floats rounds to it.
      float value;
      __builtin_memcpy(&value, &magnitude, 4);
      value += 0.5F;
      __builtin_memcpy(&half, &value, 4);
      half -= 0x3F000000U;
    } else {
      // Half of the last place, less one where that is even: to nearest, and to even from the middle.
      half = (magnitude - 0x38000000U + 0xFFFU + (magnitude >> 13 & 1U)) >> 13;
    }
    const auto result = static_cast<std::uint16_t>(sign | half);
    __builtin_memcpy(samples + 2 * at, &result, 2);
  }
}

#endif

// A constant number of samples together lets the compiler turn several pixels at once.
template <class Sample, int Together>
void splitTogether(const Run<const std::uint8_t>& run, const Channels& channels, std::size_t count) {
  using Samples = typename Loose<Sample>::Type;
  const auto* from = reinterpret_cast<const Samples*>(run.first[0]);
  Samples* __restrict to[4];
  for (int i = 0; i < Together; ++i) to[i] = reinterpret_cast<Samples*>(channels.samples[run.order[i]]);
  Samples* __restrict a = to[0], * __restrict b = to[1], * __restrict c = to[2];
  if constexpr (Together == 3) {
    for (std::size_t i = 0; i < count; ++i) {
      a[i] = from[3 * i];
      b[i] = from[3 * i + 1];
      c[i] = from[3 * i + 2];
    }
  } else {
    Samples* __restrict d = to[3];
    for (std::size_t i = 0; i < count; ++i) {
      a[i] = from[4 * i];
      b[i] = from[4 * i + 1];
      c[i] = from[4 * i + 2];
      d[i] = from[4 * i + 3];
    }
  }
}

template <class Sample, int Together>
void mergeTogether(const Channels& channels, const Run<std::uint8_t>& run, std::size_t count) {
  using Samples = typename Loose<Sample>::Type;
  auto* __restrict to = reinterpret_cast<Samples*>(run.first[0]);
  const Samples* from[4];
  for (int i = 0; i < Together; ++i)
    from[i] = reinterpret_cast<const Samples*>(channels.samples[run.order[i]]);
  const Samples *a = from[0], *b = from[1], *c = from[2];
  if constexpr (Together == 3) {
    for (std::size_t i = 0; i < count; ++i) {
      to[3 * i] = a[i];
      to[3 * i + 1] = b[i];
      to[3 * i + 2] = c[i];
    }
  } else {
    const Samples* d = from[3];
    for (std::size_t i = 0; i < count; ++i) {
      to[4 * i] = a[i];
      to[4 * i + 1] = b[i];
      to[4 * i + 2] = c[i];
      to[4 * i + 3] = d[i];
    }
  }
}

template <class Sample>
void split(const Run<const std::uint8_t>& run, const Channels& channels, std::size_t count) {
  if (run.together == 3) return splitTogether<Sample, 3>(run, channels, count);
  if (run.together == 4) return splitTogether<Sample, 4>(run, channels, count);
  for (int channel = 0; channel < 4; ++channel) {
    if (!run.first[channel]) continue;
    if (run.together == 1) {
      __builtin_memcpy(channels.samples[channel], run.first[channel], sizeof(Sample) * count);
      continue;
    }
    for (std::size_t i = 0; i < count; ++i)
      __builtin_memcpy(channels.samples[channel] + sizeof(Sample) * i,
                       run.first[channel] + run.stride * static_cast<std::ptrdiff_t>(i), sizeof(Sample));
  }
}

template <class Sample>
void merge(const Channels& channels, const Run<std::uint8_t>& run, std::size_t count) {
  if (run.together == 3) return mergeTogether<Sample, 3>(channels, run, count);
  if (run.together == 4) return mergeTogether<Sample, 4>(channels, run, count);
  for (int channel = 0; channel < 4; ++channel) {
    if (!run.first[channel]) continue;
    if (run.together == 1) {
      __builtin_memcpy(run.first[channel], channels.samples[channel], sizeof(Sample) * count);
      continue;
    }
    for (std::size_t i = 0; i < count; ++i)
      __builtin_memcpy(run.first[channel] + run.stride * static_cast<std::ptrdiff_t>(i),
                       channels.samples[channel] + sizeof(Sample) * i, sizeof(Sample));
  }
}

}  // namespace
}  // namespace quillonic::lut
// NOLINTEND
