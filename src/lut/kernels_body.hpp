// The bodies of the kernels, which a source includes after it has chosen the instructions. They use no
// function of another header: the linker could pick a copy of it with these instructions for every processor.
// Products and sums are separate on purpose, so that all instructions round alike.
//
// NOLINTBEGIN: this is compiled as part of other sources

namespace quillonic::lut {
namespace {

typedef float F4 __attribute__((vector_size(16)));
typedef double D4 __attribute__((vector_size(32)));
typedef std::int32_t I4 __attribute__((vector_size(16)));

#ifdef QUILLONIC_HAS_AVX2
constexpr int lanes = 8;
#else
constexpr int lanes = 4;
#endif
typedef float Floats __attribute__((vector_size(4 * lanes)));
typedef std::int32_t Integers __attribute__((vector_size(4 * lanes)));

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

// Where inputs of a channel are in a grid: the entry before, and the part of the step after it.
struct Place {
  Integers index;
  Floats part;
};

#ifdef QUILLONIC_HAS_AVX2
QUILLONIC_INLINE Integers joined(I4 low, I4 high) {
  return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
}
QUILLONIC_INLINE Floats joined(F4 low, F4 high) {
  return _mm256_insertf128_ps(_mm256_castps128_ps256(low), high, 1);
}
#endif

// Places inputs by floats.
struct FastAxis {
  Floats min;
  Floats scale;
  Floats last;
  Integers lastBefore;

  QUILLONIC_INLINE FastAxis of(const Grid& grid, int channel) {
    return {Floats{} + static_cast<float>(grid.min[channel]),
            Floats{} + static_cast<float>(grid.scale[channel]), Floats{} + static_cast<float>(grid.size - 1),
            Integers{} + (grid.size - 2)};
  }

  QUILLONIC_MEMBER Place place(const float* values) const {
    Floats at;
    load(at, values);
    at = atMost(atLeast((at - min) * scale, Floats{}), last);
    const Integers index = atMost(__builtin_convertvector(at, Integers), lastBefore);
    return {index, at - __builtin_convertvector(index, Floats)};
  }
};

// Places inputs by doubles, four at a time.
struct ExactAxis {
  D4 min;
  D4 scale;
  D4 last;
  I4 lastBefore;

  QUILLONIC_INLINE ExactAxis of(const Grid& grid, int channel) {
    return {D4{} + grid.min[channel], D4{} + grid.scale[channel], D4{} + static_cast<double>(grid.size - 1),
            I4{} + (grid.size - 2)};
  }

  QUILLONIC_MEMBER D4 position(const float* values) const {
    F4 input;
    load(input, values);
    const D4 at = (__builtin_convertvector(input, D4) - min) * scale;
    return atMost(atLeast(at, D4{}), last);
  }
  QUILLONIC_MEMBER I4 before(D4 at) const { return atMost(__builtin_convertvector(at, I4), lastBefore); }
  QUILLONIC_MEMBER F4 after(D4 at, I4 index) const {
    return __builtin_convertvector(at - __builtin_convertvector(index, D4), F4);
  }
  QUILLONIC_MEMBER I4 nearest4(const float* values) const {
    return __builtin_convertvector(position(values) + 0.5, I4);
  }

#ifdef QUILLONIC_HAS_AVX2
  QUILLONIC_MEMBER Place place(const float* values) const {
    const D4 low = position(values), high = position(values + 4);
    const I4 lowIndex = before(low), highIndex = before(high);
    return {joined(lowIndex, highIndex), joined(after(low, lowIndex), after(high, highIndex))};
  }
  QUILLONIC_MEMBER Integers nearest(const float* values) const {
    return joined(nearest4(values), nearest4(values + 4));
  }
#else
  QUILLONIC_MEMBER Place place(const float* values) const {
    const D4 at = position(values);
    const I4 index = before(at);
    return {index, after(at, index)};
  }
  QUILLONIC_MEMBER Integers nearest(const float* values) const {
    return nearest4(values);
  }
#endif
};

// The places of entries, in memory: loading single ones from there is faster than taking them out of a
// register.
struct alignas(32) Places {
  std::uint32_t numbers[lanes];

  QUILLONIC_MEMBER explicit Places(Integers vector) {
    store(vector, numbers);
    // Keeps the compiler from going back to the register.
    __asm__("" : "+m"(numbers));
  }
  QUILLONIC_MEMBER std::uint32_t operator[](int i) const { return numbers[i]; }
};

// The bytes of an entry of a cube, with its padding.
constexpr int entryBytes = 16;

QUILLONIC_INLINE F4 entryAt(const char* entries, std::uint32_t offset) {
  return *reinterpret_cast<const F4*>(entries + offset);
}

// Entries as they are, turned into channels.
QUILLONIC_INLINE void fetch(const char* entries, const Places& offsets, Floats& red, Floats& green,
                            Floats& blue) {
#ifdef QUILLONIC_HAS_AVX2
  const Floats a = joined(entryAt(entries, offsets[0]), entryAt(entries, offsets[4]));
  const Floats b = joined(entryAt(entries, offsets[1]), entryAt(entries, offsets[5]));
  const Floats c = joined(entryAt(entries, offsets[2]), entryAt(entries, offsets[6]));
  const Floats d = joined(entryAt(entries, offsets[3]), entryAt(entries, offsets[7]));
  const Floats low0 = __builtin_shufflevector(a, b, 0, 8, 1, 9, 4, 12, 5, 13);
  const Floats low1 = __builtin_shufflevector(c, d, 0, 8, 1, 9, 4, 12, 5, 13);
  const Floats high0 = __builtin_shufflevector(a, b, 2, 10, 3, 11, 6, 14, 7, 15);
  const Floats high1 = __builtin_shufflevector(c, d, 2, 10, 3, 11, 6, 14, 7, 15);
  red = __builtin_shufflevector(low0, low1, 0, 1, 8, 9, 4, 5, 12, 13);
  green = __builtin_shufflevector(low0, low1, 2, 3, 10, 11, 6, 7, 14, 15);
  blue = __builtin_shufflevector(high0, high1, 0, 1, 8, 9, 4, 5, 12, 13);
#else
  const Floats a = entryAt(entries, offsets[0]);
  const Floats b = entryAt(entries, offsets[1]);
  const Floats c = entryAt(entries, offsets[2]);
  const Floats d = entryAt(entries, offsets[3]);
  const Floats low0 = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const Floats low1 = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const Floats high0 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const Floats high1 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  red = __builtin_shufflevector(low0, low1, 0, 1, 4, 5);
  green = __builtin_shufflevector(low0, low1, 2, 3, 6, 7);
  blue = __builtin_shufflevector(high0, high1, 0, 1, 4, 5);
#endif
}

// Adds weighted entries, or begins a sum with them.
QUILLONIC_INLINE void add(bool isFirst, Floats weight, const char* entries, const Places& offsets,
                          Floats& red, Floats& green, Floats& blue) {
  Floats r, g, b;
  fetch(entries, offsets, r, g, b);
  red = isFirst ? weight * r : red + weight * r;
  green = isFirst ? weight * g : green + weight * g;
  blue = isFirst ? weight * b : blue + weight * b;
#ifdef __x86_64__
  // Keeps the compiler from fetching all corners before it adds the first, for which there are no registers.
  __asm__("" : "+x"(red), "+x"(green), "+x"(blue));
#endif
}

// Between the entries of two corners.
QUILLONIC_INLINE void mix(Floats part, const char* left, const char* right, const Places& offsets,
                          Floats& red, Floats& green, Floats& blue) {
  add(true, 1 - part, left, offsets, red, green, blue);
  add(false, part, right, offsets, red, green, blue);
}

QUILLONIC_INLINE const char* entriesOf(const Grid& grid) {
  return reinterpret_cast<const char*>(grid.entries[0]);
}

void nearest1D(const Grid& grid, Block& block, std::size_t count) {
  for (int channel = 0; channel < 3; ++channel) {
    const auto axis = ExactAxis::of(grid, channel);
    float* const values = block.colors[channel];
    for (std::size_t at = 0; at < count; at += lanes) {
      const Places index(axis.nearest(values + at));
      for (int i = 0; i < lanes; ++i) (values + at)[i] = grid.entries[channel][index[i]];
    }
  }
}

void linear1D(const Grid& grid, Block& block, std::size_t count) {
  for (int channel = 0; channel < 3; ++channel) {
    const auto axis = ExactAxis::of(grid, channel);
    const float* const entries = grid.entries[channel];
    float* const values = block.colors[channel];
    for (std::size_t at = 0; at < count; at += lanes) {
      const auto place = axis.place(values + at);
      const Places index(place.index);
      Floats low;
      Floats high;
      for (int i = 0; i < lanes; ++i) {
        low[i] = entries[index[i]];
        high[i] = entries[index[i] + 1];
      }
      store((1 - place.part) * low + place.part * high, values + at);
    }
  }
}

void nearest3D(const Grid& grid, Block& block, std::size_t count) {
  const auto red = ExactAxis::of(grid, 0), green = ExactAxis::of(grid, 1), blue = ExactAxis::of(grid, 2);
  for (std::size_t at = 0; at < count; at += lanes) {
    const Integers r = red.nearest(block.colors[0] + at);
    const Integers g = green.nearest(block.colors[1] + at);
    const Integers b = blue.nearest(block.colors[2] + at);
    const Places offsets(entryBytes * (r + grid.size * (g + grid.size * b)));
    Floats resultRed, resultGreen, resultBlue;
    fetch(entriesOf(grid), offsets, resultRed, resultGreen, resultBlue);
    store(resultRed, block.colors[0] + at);
    store(resultGreen, block.colors[1] + at);
    store(resultBlue, block.colors[2] + at);
  }
}

template <class Axis> void trilinear(const Grid& grid, Block& block, std::size_t count) {
  const auto red = Axis::of(grid, 0), green = Axis::of(grid, 1), blue = Axis::of(grid, 2);
  const std::ptrdiff_t redStep = entryBytes, greenStep = redStep * grid.size,
                       blueStep = greenStep * grid.size;
  for (std::size_t at = 0; at < count; at += lanes) {
    const auto r = red.place(block.colors[0] + at);
    const auto g = green.place(block.colors[1] + at);
    const auto b = blue.place(block.colors[2] + at);
    const Places offsets(entryBytes * (r.index + grid.size * (g.index + grid.size * b.index)));
    const char* const corner = entriesOf(grid);
    Floats sums[2][3];
    for (int end = 0; end < 2; ++end) {
      const char* const from = corner + end * redStep;
      Floats low[3], high[3];
      mix(b.part, from, from + blueStep, offsets, low[0], low[1], low[2]);
      mix(b.part, from + greenStep, from + greenStep + blueStep, offsets, high[0], high[1], high[2]);
      for (int channel = 0; channel < 3; ++channel)
        sums[end][channel] = (1 - g.part) * low[channel] + g.part * high[channel];
    }
    for (int channel = 0; channel < 3; ++channel)
      store((1 - r.part) * sums[0][channel] + r.part * sums[1][channel], block.colors[channel] + at);
  }
}

template <class Axis> void tetrahedral(const Grid& grid, Block& block, std::size_t count) {
  const auto red = Axis::of(grid, 0), green = Axis::of(grid, 1), blue = Axis::of(grid, 2);
  const Integers redStep = Integers{} + entryBytes, greenStep = redStep * grid.size,
                 blueStep = greenStep * grid.size;
  const Integers allSteps = redStep + greenStep + blueStep;
  for (std::size_t at = 0; at < count; at += lanes) {
    const auto r = red.place(block.colors[0] + at);
    const auto g = green.place(block.colors[1] + at);
    const auto b = blue.place(block.colors[2] + at);
    const Integers first = entryBytes * (r.index + grid.size * (g.index + grid.size * b.index));

    // From the first corner a step along the axis of the greatest part, then one along the next.
    const Floats upper = atLeast(r.part, g.part);
    const Floats lower = atMost(r.part, g.part);
    const Floats greatest = atLeast(upper, b.part);
    const Floats least = atMost(lower, b.part);
    const Floats middle = atLeast(lower, atMost(upper, b.part));
    const Integers isRedUpper = r.part >= g.part;
    const Integers greatestStep = b.part > upper ? blueStep : isRedUpper ? redStep : greenStep;
    const Integers leastStep = b.part <= lower ? blueStep : isRedUpper ? greenStep : redStep;
    const Places second(first + greatestStep), third(first + (allSteps - leastStep));
    const Places start(first), end(first + allSteps);
    const char* const entries = entriesOf(grid);
    Floats sumRed, sumGreen, sumBlue;
    add(true, 1 - greatest, entries, start, sumRed, sumGreen, sumBlue);
    add(false, greatest - middle, entries, second, sumRed, sumGreen, sumBlue);
    add(false, middle - least, entries, third, sumRed, sumGreen, sumBlue);
    add(false, least, entries, end, sumRed, sumGreen, sumBlue);
    store(sumRed, block.colors[0] + at);
    store(sumGreen, block.colors[1] + at);
    store(sumBlue, block.colors[2] + at);
  }
}

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
