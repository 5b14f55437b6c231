// The kernels of tables, a part of kernels_body.hpp: colours are placed in the grid and get what is between
// its entries.
//
// NOLINTBEGIN: this is compiled as part of other sources

namespace quillonic::lut {
namespace {

// Where inputs of a channel are in a grid: the entry before, and the part of the step after it.
struct Place {
  Integers index;
  Floats part;
};

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

// Places inputs by doubles, in halves.
struct ExactAxis {
  Doubles min;
  Doubles scale;
  Doubles last;
  HalfOfIntegers lastBefore;

  struct HalfOfPlace {
    HalfOfIntegers index;
    HalfOfFloats part;
  };

  QUILLONIC_INLINE ExactAxis of(const Grid& grid, int channel) {
    return {Doubles{} + grid.min[channel], Doubles{} + grid.scale[channel],
            Doubles{} + static_cast<double>(grid.size - 1), HalfOfIntegers{} + (grid.size - 2)};
  }

  QUILLONIC_MEMBER Doubles position(const float* values) const {
    HalfOfFloats input;
    load(input, values);
    const Doubles at = (__builtin_convertvector(input, Doubles) - min) * scale;
    return atMost(atLeast(at, Doubles{}), last);
  }
  QUILLONIC_MEMBER HalfOfPlace placeHalf(const float* values) const {
    const Doubles at = position(values);
    const HalfOfIntegers index = atMost(__builtin_convertvector(at, HalfOfIntegers), lastBefore);
    return {index, __builtin_convertvector(at - __builtin_convertvector(index, Doubles), HalfOfFloats)};
  }
  QUILLONIC_MEMBER Place place(const float* values) const {
    const auto low = placeHalf(values), high = placeHalf(values + lanes / 2);
    return {joined<Integers>(low.index, high.index), joined<Floats>(low.part, high.part)};
  }
  QUILLONIC_MEMBER Integers nearest(const float* values) const {
    return joined<Integers>(__builtin_convertvector(position(values) + 0.5, HalfOfIntegers),
                            __builtin_convertvector(position(values + lanes / 2) + 0.5, HalfOfIntegers));
  }
};

// An entry of a cube, with its padding.
typedef float Entry __attribute__((vector_size(16)));
constexpr int entryBytes = sizeof(Entry);

QUILLONIC_INLINE const char* entriesOf(const Grid& grid) {
  return reinterpret_cast<const char*>(grid.entries[0]);
}

QUILLONIC_INLINE Entry entryAt(const char* entry) {
  return *reinterpret_cast<const Entry*>(entry);
}

// Entries turned into channels.
struct Turned {
  Floats red;
  Floats green;
  Floats blue;

  QUILLONIC_MEMBER explicit Turned(const Entry (&pixels)[lanes]) {
#ifdef QUILLONIC_HAS_AVX2
    const auto a = joined<Floats>(pixels[0], pixels[4]), b = joined<Floats>(pixels[1], pixels[5]);
    const auto c = joined<Floats>(pixels[2], pixels[6]), d = joined<Floats>(pixels[3], pixels[7]);
    const Floats low0 = __builtin_shufflevector(a, b, 0, 8, 1, 9, 4, 12, 5, 13);
    const Floats low1 = __builtin_shufflevector(c, d, 0, 8, 1, 9, 4, 12, 5, 13);
    const Floats high0 = __builtin_shufflevector(a, b, 2, 10, 3, 11, 6, 14, 7, 15);
    const Floats high1 = __builtin_shufflevector(c, d, 2, 10, 3, 11, 6, 14, 7, 15);
    red = __builtin_shufflevector(low0, low1, 0, 1, 8, 9, 4, 5, 12, 13);
    green = __builtin_shufflevector(low0, low1, 2, 3, 10, 11, 6, 7, 14, 15);
    blue = __builtin_shufflevector(high0, high1, 0, 1, 8, 9, 4, 5, 12, 13);
#else
    const auto& [a, b, c, d] = pixels;
    const Floats low0 = __builtin_shufflevector(a, b, 0, 4, 1, 5);
    const Floats low1 = __builtin_shufflevector(c, d, 0, 4, 1, 5);
    const Floats high0 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const Floats high1 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    red = __builtin_shufflevector(low0, low1, 0, 1, 4, 5);
    green = __builtin_shufflevector(low0, low1, 2, 3, 6, 7);
    blue = __builtin_shufflevector(high0, high1, 0, 1, 4, 5);
#endif
  }

  QUILLONIC_MEMBER void storeIn(Block& block, std::size_t at) const {
    store(red, block.colors[0] + at);
    store(green, block.colors[1] + at);
    store(blue, block.colors[2] + at);
  }
};

void nearest1D(const Grid& grid, Block& block, std::size_t count) {
  for (int channel = 0; channel < 3; ++channel) {
    const auto axis = ExactAxis::of(grid, channel);
    float* const values = block.colors[channel];
    std::uint32_t places[blockPixels];
    for (std::size_t at = 0; at < count; at += lanes) store(axis.nearest(values + at), places + at);
    for (std::size_t i = 0; i < count; ++i) values[i] = grid.entries[channel][places[i]];
  }
}

void linear1D(const Grid& grid, Block& block, std::size_t count) {
  for (int channel = 0; channel < 3; ++channel) {
    const auto axis = ExactAxis::of(grid, channel);
    float* const values = block.colors[channel];
    std::uint32_t places[blockPixels];
    for (std::size_t at = 0; at < count; at += lanes) {
      const auto place = axis.place(values + at);
      store(place.index, places + at);
      store(place.part, values + at);
    }
    for (std::size_t i = 0; i < count; ++i) {
      const float* const entry = grid.entries[channel] + places[i];
      values[i] = (1 - values[i]) * entry[0] + values[i] * entry[1];
    }
  }
}

// Where the pixels of a block are in a cube. All are located before the first entries are fetched: a processor
// looks too few instructions ahead to locate some pixels while it waits for the entries of others.
struct alignas(64) Located {
  // Of entries, in bytes.
  std::uint32_t offsets[3][blockPixels];
  float weights[4][blockPixels];
};

// A place on each axis of a cube.
struct CubePlace {
  // Of the entry before on all axes, in bytes.
  Integers offset;
  Floats red;
  Floats green;
  Floats blue;
};

template <class Axis> struct CubeAxes {
  Axis red;
  Axis green;
  Axis blue;
  std::int32_t size;

  QUILLONIC_INLINE CubeAxes of(const Grid& grid) {
    return {Axis::of(grid, 0), Axis::of(grid, 1), Axis::of(grid, 2), grid.size};
  }
  QUILLONIC_MEMBER Integers offset(Integers r, Integers g, Integers b) const {
    return entryBytes * (r + size * (g + size * b));
  }
  QUILLONIC_MEMBER CubePlace place(const Block& block, std::size_t at) const {
    const auto r = red.place(block.colors[0] + at);
    const auto g = green.place(block.colors[1] + at);
    const auto b = blue.place(block.colors[2] + at);
    return {offset(r.index, g.index, b.index), r.part, g.part, b.part};
  }
};

void nearest3D(const Grid& grid, Block& block, std::size_t count) {
  const auto axes = CubeAxes<ExactAxis>::of(grid);
  for (std::size_t at = 0; at < count; at += lanes) {
    std::uint32_t offsets[lanes];
    store(axes.offset(axes.red.nearest(block.colors[0] + at), axes.green.nearest(block.colors[1] + at),
                      axes.blue.nearest(block.colors[2] + at)),
          offsets);
    Entry pixels[lanes];
    for (int i = 0; i < lanes; ++i) pixels[i] = entryAt(entriesOf(grid) + offsets[i]);
    Turned(pixels).storeIn(block, at);
  }
}

// Between as many entries as a vector holds, which follow each other along red, and those a step along green
// or blue from them.
QUILLONIC_INLINE Floats betweenRows(const char* corner, std::ptrdiff_t greenStep, std::ptrdiff_t blueStep,
                                    float greenPart, float bluePart) {
  Floats entries[4];
  load(entries[0], corner);
  load(entries[1], corner + blueStep);
  load(entries[2], corner + greenStep);
  load(entries[3], corner + greenStep + blueStep);
  // Numbers less 0 are the same numbers, in all lanes.
  const Floats green = greenPart - Floats{}, blue = bluePart - Floats{};
  const Floats low = (1 - blue) * entries[0] + blue * entries[1];
  const Floats high = (1 - blue) * entries[2] + blue * entries[3];
  return (1 - green) * low + green * high;
}

template <class Axis> void trilinear(const Grid& grid, Block& block, std::size_t count) {
  const auto axes = CubeAxes<Axis>::of(grid);
  Located located;
  auto& [redParts, greenParts, blueParts, unused] = located.weights;
  for (std::size_t at = 0; at < count; at += lanes) {
    const auto place = axes.place(block, at);
    store(place.offset, located.offsets[0] + at);
    store(place.red, redParts + at);
    store(place.green, greenParts + at);
    store(place.blue, blueParts + at);
  }
  const std::ptrdiff_t greenStep = std::ptrdiff_t{entryBytes} * grid.size, blueStep = greenStep * grid.size;
  for (std::size_t at = 0; at < count; at += lanes) {
    Entry left[lanes], right[lanes];
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      const auto i = at + lane;
      const char* const corner = entriesOf(grid) + located.offsets[0][i];
      const Floats rows = betweenRows(corner, greenStep, blueStep, greenParts[i], blueParts[i]);
#ifdef QUILLONIC_HAS_AVX2
      left[lane] = __builtin_shufflevector(rows, rows, 0, 1, 2, 3);
      right[lane] = __builtin_shufflevector(rows, rows, 4, 5, 6, 7);
#else
      left[lane] = rows;
      right[lane] = betweenRows(corner + entryBytes, greenStep, blueStep, greenParts[i], blueParts[i]);
#endif
    }
    Turned colors(left);
    const Turned after(right);
    Floats part;
    load(part, redParts + at);
    colors.red = (1 - part) * colors.red + part * after.red;
    colors.green = (1 - part) * colors.green + part * after.green;
    colors.blue = (1 - part) * colors.blue + part * after.blue;
    colors.storeIn(block, at);
  }
}

template <class Axis> void tetrahedral(const Grid& grid, Block& block, std::size_t count) {
  const auto axes = CubeAxes<Axis>::of(grid);
  const Integers redStep = Integers{} + entryBytes, greenStep = redStep * grid.size,
                 blueStep = greenStep * grid.size;
  const Integers allSteps = redStep + greenStep + blueStep;
  Located located;
  auto& [offsets, weights] = located;
  for (std::size_t at = 0; at < count; at += lanes) {
    const auto place = axes.place(block, at);
    // From the first corner a step along the axis of the greatest part, then one along the next.
    const Floats upper = atLeast(place.red, place.green);
    const Floats lower = atMost(place.red, place.green);
    const Floats greatest = atLeast(upper, place.blue);
    const Floats least = atMost(lower, place.blue);
    const Floats middle = atLeast(lower, atMost(upper, place.blue));
    const Integers isRedUpper = place.red >= place.green;
    const Integers greatestStep = place.blue > upper ? blueStep : isRedUpper ? redStep : greenStep;
    const Integers leastStep = place.blue <= lower ? blueStep : isRedUpper ? greenStep : redStep;
    store(place.offset, offsets[0] + at);
    store(place.offset + greatestStep, offsets[1] + at);
    store(place.offset + (allSteps - leastStep), offsets[2] + at);
    store(1 - greatest, weights[0] + at);
    store(greatest - middle, weights[1] + at);
    store(middle - least, weights[2] + at);
    store(least, weights[3] + at);
  }
  const char* const first = entriesOf(grid);
  const char* const last = first + allSteps[0];
  for (std::size_t at = 0; at < count; at += lanes) {
    Entry pixels[lanes];
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      const auto i = at + lane;
      pixels[lane] =
          weights[0][i] * entryAt(first + offsets[0][i]) + weights[1][i] * entryAt(first + offsets[1][i]) +
          weights[2][i] * entryAt(first + offsets[2][i]) + weights[3][i] * entryAt(last + offsets[0][i]);
    }
    Turned(pixels).storeIn(block, at);
  }
}

}  // namespace
}  // namespace quillonic::lut
// NOLINTEND
