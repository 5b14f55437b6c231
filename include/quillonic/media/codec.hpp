/// The video codecs: one row per codec, from which all its lists and limits are read.
///
///     static_assert(codecWithText("h265")->type == Cloud_ConversionOptions::CodecType::h265);
///     static_assert(!codecLimits(Cloud_ConversionOptions::CodecType::dnxhd).anyFrameRate);
#pragma once

#include <quillonic/media/conversion_options.hpp>
#include <quillonic/media/file_extension.hpp>
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillonic {

/// What one codec accepts according to its standard.
struct CodecLimits {
  /// The fewest bits per pixel component. Every colour depth from here to `greatestDepth` is accepted.
  std::int64_t leastDepth;
  /// The most bits per pixel component.
  std::int64_t greatestDepth;
  /// Whether an mp4 file can hold it. A mov file holds every codec.
  bool livesInMp4;
  /// Whether it takes every frame rate, or only a few broadcast rates.
  bool anyFrameRate;
  /// Whether it takes every frame size, or only those of high definition.
  bool anyFrameSize;
  /// Whether its data rate can be chosen, or follows from size, frame rate and quality class.
  bool restrictableDataRate;
};

/// The groups in which codecs are offered.
enum class CodecFamily : std::uint8_t { none, avidDNx, web, proRes };

/// One video codec.
struct Codec {
  /// The number in stored presets.
  Cloud_ConversionOptions::CodecType type;
  /// The text after "-vcodec" on the transcoder's command line.
  std::string_view text;
  /// The group of the codec, unless a host sets others.
  CodecFamily family;
  /// The extensions of the files that the transcoder writes, the preferred one first. The codec's standard
  /// may allow other containers: see `limits`.
  std::span<const FileExtension> permittedExtensions;
  /// What the codec accepts.
  CodecLimits limits;
};

namespace detail {

inline constexpr FileExtension movFiles[] = {FileExtension::mov};
inline constexpr FileExtension mxfFiles[] = {FileExtension::mxf};
inline constexpr FileExtension mp4OrMovFiles[] = {FileExtension::mp4, FileExtension::mov};
inline constexpr FileExtension movOrMjpegFiles[] = {FileExtension::mov, FileExtension::mjpeg};

inline constexpr auto codecs = [] {
  using enum Cloud_ConversionOptions::CodecType;
  using enum CodecFamily;
  // The columns: stored number, text, family, extensions; then least and greatest depth, mp4, any frame rate,
  // any frame size, data rate on request.
  return std::to_array<Codec>({
      // SMPTE ST 2019-1 (VC-3): 8 or 10 bits, a closed list of compression identifiers, each with one frame
      // size and one number of bytes per frame. The DNxHD white paper lists their frame rates. QuickTime
      // files hold it, mp4 files do not. The transcoder writes mxf.
      {dnxhd, "dnxhd", avidDNx, mxfFiles, {8, 10, false, false, false, false}},
      // ITU-T H.264, High profile: 8 bits. ISO/IEC 14496-15 defines its samples in mp4 files, and mov files
      // use the same.
      {h264, "h264", web, mp4OrMovFiles, {8, 8, true, true, true, true}},
      // ITU-T H.265, profiles Main and Main 10: 8 or 10 bits. ISO/IEC 14496-15 again. The transcoder writes
      // mov.
      {h265, "h265", web, movFiles, {8, 10, true, true, true, true}},
      // ITU-T T.81, baseline process: 8 bits. The QuickTime file format defines its sample entries.
      {motionJpeg, "mjpeg", web, movOrMjpegFiles, {8, 8, false, true, true, true}},
      // ISO/IEC 14496-2, Advanced Simple profile: 8 bits. ISO/IEC 14496-14 stores it in mp4. The transcoder
      // writes mov, a fixed contract.
      {mpeg4, "mp4", CodecFamily::none, movFiles, {8, 8, true, true, true, true}},
      // SMPTE RDD 36 and the ProRes white paper: mov but not mp4, any size and rate, target data rates that
      // follow from both. The 4444 family carries up to 12 bits, the 422 family 10.
      {proRes4444, "prores4444", proRes, movFiles, {10, 12, false, true, true, false}},
      {proRes4444XQ, "prores4444xq", proRes, movFiles, {10, 12, false, true, true, false}},
      {proRes422, "prores422", proRes, movFiles, {10, 10, false, true, true, false}},
      {proRes422HQ, "prores422hq", proRes, movFiles, {10, 10, false, true, true, false}},
      {proRes422LT, "prores422lt", proRes, movFiles, {10, 10, false, true, true, false}},
      {proRes422Proxy, "prores422proxy", proRes, movFiles, {10, 10, false, true, true, false}},
  });
}();

// An unknown codec has no limits, because a newer tool may accept anything.
inline constexpr CodecLimits unknownCodecLimits{8, 16, true, true, true, true};

}  // namespace detail

/// Every known codec, in order of the stored numbers. The span stays valid for the life of the program.
constexpr std::span<const Codec> allCodecs() noexcept {
  return detail::codecs;
}

/// The codec with this stored number; null for an unlisted number, including 0.
constexpr const Codec* codecWithType(Cloud_ConversionOptions::CodecType type) noexcept {
  return detail::rowWhere(detail::codecs, &Codec::type, type);
}

/// The codec with exactly this text, case included; null for any other text.
constexpr const Codec* codecWithText(std::string_view text) noexcept {
  return detail::rowWhere(detail::codecs, &Codec::text, text);
}

/// What the codec accepts. An unlisted number, including 0, has no limits.
constexpr const CodecLimits& codecLimits(Cloud_ConversionOptions::CodecType type) noexcept {
  const auto* codec = codecWithType(type);
  return codec ? codec->limits : detail::unknownCodecLimits;
}

}  // namespace quillonic
