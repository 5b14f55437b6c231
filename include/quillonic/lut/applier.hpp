/// Applying a look-up table to colours and pictures.
///
///     const Applier applier(look, {.source = SampleType::uint8, .target = SampleType::uint8});
///     auto frame = Picture::interleaved(bytes, SampleType::uint8, 4, {3840, 2160});
///     applier.apply(frame);                       // in place
///     applier.applyRows(source, target, 0, 540);  // one thread's share
///
/// Input outside a table's domain acts as the nearest edge; NaN as the minimum. Integers are scaled by their
/// greatest code; results are clamped to it and rounded, halves up. Nothing clamps floating-point results.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/lut/lut.hpp>
#include <quillonic/lut/picture.hpp>

#include <cstddef>
#include <memory>
#include <span>

namespace quillonic::lut {

/// How values between entries are found. A shaper is always linear. A cube takes `linear` as trilinear, and
/// curves take both kinds for cubes as linear. Tetrahedral keeps greys free of colour casts.
enum class Interpolation { nearest, linear, trilinear, tetrahedral };

/// The processor instructions that are used: what every processor of the family has, or more. All give the
/// same results, to the bit.
enum class Instructions { baseline, avx2 };

/// Whether the processor has them.
QUILLONIC_EXPORT bool isAvailable(Instructions instructions) noexcept;
/// The fastest that are available.
QUILLONIC_EXPORT Instructions bestInstructions() noexcept;

/// What an applier is prepared for.
struct ApplierOptions {
  /// How values between entries are found.
  Interpolation interpolation = Interpolation::tetrahedral;
  /// The samples that it reads.
  SampleType source = SampleType::single;
  /// The samples that it writes.
  SampleType target = SampleType::single;
  /// What to use. Those that are not available are replaced by the baseline.
  Instructions instructions = bestInstructions();
};

/// A look-up table prepared for pictures of one kind. It never changes: any number of threads use it at once.
/// Copies share what was prepared: about four thirds of the memory of the table, and up to 768 KiB more for
/// curves on integers.
class QUILLONIC_EXPORT Applier {
 public:
  /// Keeps nothing of the table itself.
  explicit Applier(const Lut& lut, const ApplierOptions& options = {});

  /// The result for one colour, whatever the types of samples.
  Rgb apply(const Rgb& color) const noexcept;
  /// The results for colours, whatever the types of samples. Handles as many as both spans hold; they may be
  /// the same.
  void apply(std::span<const Rgb> source, std::span<Rgb> target) const noexcept;

  /// Reads the source and writes the target, as far as both extend. They may be the same picture, but must
  /// not overlap otherwise. Alpha is copied, rescaled between types, if both have it; a target's alpha without
  /// one in the source becomes opaque.
  void apply(const ConstPicture& source, const Picture& target) const noexcept;
  /// Works in place. Both types of samples must have equally many bytes.
  void apply(const Picture& picture) const noexcept;
  /// Like `apply`, for some rows: threads share a picture so.
  void applyRows(const ConstPicture& source, const Picture& target, std::size_t firstRow,
                 std::size_t rows) const noexcept;

 private:
  struct Prepared;

  std::shared_ptr<const Prepared> prepared_;
};

}  // namespace quillonic::lut
