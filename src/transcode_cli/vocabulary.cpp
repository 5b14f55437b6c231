#include <quillonic/transcode_cli/vocabulary.hpp>

#include <utility>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic {
namespace {

using Codec = VAVTranscodeArgumentVideoCodecValue;
using CodecList = Service<std::vector<Codec>>;

CodecList& avidDNxFormats() {
  static const NeverDestroyed<CodecList> formats(std::vector<Codec>{VAVDnxhdCodec});
  return *formats;
}

CodecList& webFormats() {
  static const NeverDestroyed<CodecList> formats(std::vector<Codec>{VAVAvcH264Codec, VAVHevcCodec, VAVMotionJpegCodec});
  return *formats;
}

CodecList& proResFormats() {
  static const NeverDestroyed<CodecList> formats(std::vector<Codec>
      {VAVProRes4444, VAVProRes4444XQ, VAVProRes422, VAVProRes422HQ, VAVProRes422LT, VAVProRes422Proxy});
  return *formats;
}

// The extensions that a fixed value goes with, the preferred one first.
struct ExtensionsRow {
  std::string_view value;
  std::span<const FileExtension> extensions;
};

constexpr FileExtension mov[] = {FileExtension::mov};
constexpr FileExtension mxf[] = {FileExtension::mxf};
constexpr FileExtension wav[] = {FileExtension::wav};
constexpr FileExtension movOrMp4[] = {FileExtension::mov, FileExtension::mp4};
constexpr FileExtension mp4OrMov[] = {FileExtension::mp4, FileExtension::mov};
constexpr FileExtension movOrMjpeg[] = {FileExtension::mov, FileExtension::mjpeg};

constexpr ExtensionsRow formatExtensions[] = {
    {VAVQuickTimeFileFormat, movOrMp4},
    {VAVMp4Format, mp4OrMov},
    {VAVWaveFileFormat, wav},
};

constexpr ExtensionsRow codecExtensions[] = {
    {VAVDnxhdCodec, mxf},
    {VAVMpeg4Codec, mov},
    {VAVHevcCodec, mov},
    {VAVAvcH264Codec, mp4OrMov},
    {VAVMotionJpegCodec, movOrMjpeg},
};

std::span<const FileExtension> extensionsOf(std::string_view value,
                                            std::span<const ExtensionsRow> rows) noexcept {
  const auto row = std::ranges::find(rows, value, &ExtensionsRow::value);
  return row != rows.end() ? row->extensions : std::span<const FileExtension>{};
}

}  // namespace

std::span<const FileExtension> VAVTranscodeArgumentFileFormatValue::validExtensions() const noexcept {
  return extensionsOf(*this, formatExtensions);
}

std::optional<FileExtension> VAVTranscodeArgumentFileFormatValue::preferredFileExtension() const noexcept {
  const auto extensions = validExtensions();
  return extensions.empty() ? std::nullopt : std::optional(extensions.front());
}

std::span<const FileExtension> VAVTranscodeArgumentVideoCodecValue::permittedExtensions() const {
  const auto fixed = extensionsOf(*this, codecExtensions);
  if (!fixed.empty()) return fixed;
  const bool isProRes = proResFormats().ask(
      [&](const std::vector<Codec>& formats) { return std::ranges::find(formats, *this) != formats.end(); });
  return isProRes ? std::span<const FileExtension>(mov) : std::span<const FileExtension>{};
}

std::vector<Codec> VAVTranscodeArgumentVideoCodecValue::allAvidDNxFormats() {
  return avidDNxFormats().current();
}

void VAVTranscodeArgumentVideoCodecValue::setAllAvidDNxFormats(std::vector<Codec> formats) {
  avidDNxFormats().replace(std::move(formats));
}

std::vector<Codec> VAVTranscodeArgumentVideoCodecValue::allWebFormats() {
  return webFormats().current();
}

void VAVTranscodeArgumentVideoCodecValue::setAllWebFormats(std::vector<Codec> formats) {
  webFormats().replace(std::move(formats));
}

std::vector<Codec> VAVTranscodeArgumentVideoCodecValue::allProResFormats() {
  return proResFormats().current();
}

void VAVTranscodeArgumentVideoCodecValue::setAllProResFormats(std::vector<Codec> formats) {
  proResFormats().replace(std::move(formats));
}

std::optional<VAVTranscodeArgumentColorSpaceValue> VAVTranscodeArgumentColorSpaceValue::fromColorSpace(
    Cloud_ConversionOptions::VideoTranscodeOptions::ColorSpace colorSpace) {
  using enum Cloud_ConversionOptions::VideoTranscodeOptions::ColorSpace;
  switch (colorSpace) {
    case rec2020:
      return VAVRec2020ColorSpace;
    case rec709:
      return VAVRec709ColorSpace;
    case sRgb:
      return VAVSrgbColorSpace;
    case smpteC:
      return VAVSmptecColorSpace;
    case ebu3213:
      return VAVEbu3213ColorSpace;
  }
  return std::nullopt;
}

}  // namespace quillonic
