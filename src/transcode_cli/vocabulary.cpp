#include <quillonic/media/codec.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <algorithm>
#include <utility>

#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic {
namespace {

using CodecValue = VAVTranscodeArgumentVideoCodecValue;
using CodecList = Service<std::vector<CodecValue>>;

static_assert(std::ranges::equal(allCodecs(), CodecValue::allCases(), {}, &Codec::text,
                                 &CodecValue::rawValue),
              "each codec of the vocabulary has a row, and in the same order");

std::vector<CodecValue> family(CodecFamily family) {
  std::vector<CodecValue> values;
  for (const Codec& codec : allCodecs()) {
    if (codec.family == family) values.emplace_back(codec.text);
  }
  return values;
}

CodecList& avidDNxFormats() {
  static const NeverDestroyed<CodecList> formats(family(CodecFamily::avidDNx));
  return *formats;
}

CodecList& webFormats() {
  static const NeverDestroyed<CodecList> formats(family(CodecFamily::web));
  return *formats;
}

CodecList& proResFormats() {
  static const NeverDestroyed<CodecList> formats(family(CodecFamily::proRes));
  return *formats;
}

constexpr FileExtension movOrMp4[] = {FileExtension::mov, FileExtension::mp4};
constexpr FileExtension mp4OrMov[] = {FileExtension::mp4, FileExtension::mov};
constexpr FileExtension wav[] = {FileExtension::wav};

// A file format and its extensions, the preferred one first.
struct FormatRow {
  std::string_view text;
  std::span<const FileExtension> extensions;
};

constexpr FormatRow formatRows[] = {
    {VAVQuickTimeFileFormat, movOrMp4},
    {VAVMp4Format, mp4OrMov},
    {VAVWaveFileFormat, wav},
};

}  // namespace

std::span<const FileExtension> VAVTranscodeArgumentFileFormatValue::validExtensions() const noexcept {
  const auto* row = detail::rowWhere(formatRows, &FormatRow::text, rawValue());
  return row ? row->extensions : std::span<const FileExtension>{};
}

std::optional<FileExtension> VAVTranscodeArgumentFileFormatValue::preferredFileExtension() const noexcept {
  const auto extensions = validExtensions();
  return extensions.empty() ? std::nullopt : std::optional(extensions.front());
}

std::span<const FileExtension> VAVTranscodeArgumentVideoCodecValue::permittedExtensions() const {
  const Codec* codec = codecWithText(rawValue());
  if (codec && codec->family != CodecFamily::proRes) return codec->permittedExtensions;
  // A host decides which codecs are ProRes, including those of a newer tool; they share their extensions.
  const auto group = allProResFormats();
  const bool isProRes = std::ranges::find(group, *this) != group.end();
  return isProRes ? codecWithText(VAVProRes422)->permittedExtensions : std::span<const FileExtension>{};
}

std::vector<CodecValue> VAVTranscodeArgumentVideoCodecValue::allAvidDNxFormats() {
  return avidDNxFormats().current();
}

void VAVTranscodeArgumentVideoCodecValue::setAllAvidDNxFormats(std::vector<CodecValue> formats) {
  avidDNxFormats().replace(std::move(formats));
}

std::vector<CodecValue> VAVTranscodeArgumentVideoCodecValue::allWebFormats() {
  return webFormats().current();
}

void VAVTranscodeArgumentVideoCodecValue::setAllWebFormats(std::vector<CodecValue> formats) {
  webFormats().replace(std::move(formats));
}

std::vector<CodecValue> VAVTranscodeArgumentVideoCodecValue::allProResFormats() {
  return proResFormats().current();
}

void VAVTranscodeArgumentVideoCodecValue::setAllProResFormats(std::vector<CodecValue> formats) {
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
