/// The cases of `Signature` and `XmlContent`.
/// Made by scripts/generate-catalogue from src/catalogue/signatures.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

namespace catalogue {

/// A family of formats that begin with the same bytes.
enum class Signature : std::uint8_t {
  appledouble, ftyp, qtold, mxf, ebml, riffavi, riffwav, rf64, w64, aiff, caf, flac, ogg, id3, gxf, lxf, asf,
  wtv, flv, real, nut, ivf, y4m, r3d, arri, cine, jpeg, png, cr2, tiffle, tiffbe, bigtiff, crw, rw2, orf,
  raf, mrw, x3f, gif, psd, psb, webp, jp2, j2c, jxlbox, jxl, exr, dpxbe, dpxle, cin, hdr, mpls, clpi, indx,
  mobj, bplist, zip, gz, dot7z, rar, tar, aaf, ole, pdf, rtf, ebustl, blend, wavpack, ape, dsf, dff, amr, au,
  midi, icc, iso9660, rifx, dts, mpgps, mpges, dv, ts188, ts192, ac3, adts, mpa, annexb, moi, pgs, bmp, scc,
  vtt, ass, ale, edl, cube, html, xml, json, text,
};

}  // namespace catalogue

/// The cases and their texts.
template <> struct CaseTable<catalogue::Signature> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::Signature>>({
      {catalogue::Signature::appledouble, "appledouble"},
      {catalogue::Signature::ftyp, "ftyp"},
      {catalogue::Signature::qtold, "qtold"},
      {catalogue::Signature::mxf, "mxf"},
      {catalogue::Signature::ebml, "ebml"},
      {catalogue::Signature::riffavi, "riffavi"},
      {catalogue::Signature::riffwav, "riffwav"},
      {catalogue::Signature::rf64, "rf64"},
      {catalogue::Signature::w64, "w64"},
      {catalogue::Signature::aiff, "aiff"},
      {catalogue::Signature::caf, "caf"},
      {catalogue::Signature::flac, "flac"},
      {catalogue::Signature::ogg, "ogg"},
      {catalogue::Signature::id3, "id3"},
      {catalogue::Signature::gxf, "gxf"},
      {catalogue::Signature::lxf, "lxf"},
      {catalogue::Signature::asf, "asf"},
      {catalogue::Signature::wtv, "wtv"},
      {catalogue::Signature::flv, "flv"},
      {catalogue::Signature::real, "real"},
      {catalogue::Signature::nut, "nut"},
      {catalogue::Signature::ivf, "ivf"},
      {catalogue::Signature::y4m, "y4m"},
      {catalogue::Signature::r3d, "r3d"},
      {catalogue::Signature::arri, "arri"},
      {catalogue::Signature::cine, "cine"},
      {catalogue::Signature::jpeg, "jpeg"},
      {catalogue::Signature::png, "png"},
      {catalogue::Signature::cr2, "cr2"},
      {catalogue::Signature::tiffle, "tiffle"},
      {catalogue::Signature::tiffbe, "tiffbe"},
      {catalogue::Signature::bigtiff, "bigtiff"},
      {catalogue::Signature::crw, "crw"},
      {catalogue::Signature::rw2, "rw2"},
      {catalogue::Signature::orf, "orf"},
      {catalogue::Signature::raf, "raf"},
      {catalogue::Signature::mrw, "mrw"},
      {catalogue::Signature::x3f, "x3f"},
      {catalogue::Signature::gif, "gif"},
      {catalogue::Signature::psd, "psd"},
      {catalogue::Signature::psb, "psb"},
      {catalogue::Signature::webp, "webp"},
      {catalogue::Signature::jp2, "jp2"},
      {catalogue::Signature::j2c, "j2c"},
      {catalogue::Signature::jxlbox, "jxlbox"},
      {catalogue::Signature::jxl, "jxl"},
      {catalogue::Signature::exr, "exr"},
      {catalogue::Signature::dpxbe, "dpxbe"},
      {catalogue::Signature::dpxle, "dpxle"},
      {catalogue::Signature::cin, "cin"},
      {catalogue::Signature::hdr, "hdr"},
      {catalogue::Signature::mpls, "mpls"},
      {catalogue::Signature::clpi, "clpi"},
      {catalogue::Signature::indx, "indx"},
      {catalogue::Signature::mobj, "mobj"},
      {catalogue::Signature::bplist, "bplist"},
      {catalogue::Signature::zip, "zip"},
      {catalogue::Signature::gz, "gz"},
      {catalogue::Signature::dot7z, "7z"},
      {catalogue::Signature::rar, "rar"},
      {catalogue::Signature::tar, "tar"},
      {catalogue::Signature::aaf, "aaf"},
      {catalogue::Signature::ole, "ole"},
      {catalogue::Signature::pdf, "pdf"},
      {catalogue::Signature::rtf, "rtf"},
      {catalogue::Signature::ebustl, "ebustl"},
      {catalogue::Signature::blend, "blend"},
      {catalogue::Signature::wavpack, "wavpack"},
      {catalogue::Signature::ape, "ape"},
      {catalogue::Signature::dsf, "dsf"},
      {catalogue::Signature::dff, "dff"},
      {catalogue::Signature::amr, "amr"},
      {catalogue::Signature::au, "au"},
      {catalogue::Signature::midi, "midi"},
      {catalogue::Signature::icc, "icc"},
      {catalogue::Signature::iso9660, "iso9660"},
      {catalogue::Signature::rifx, "rifx"},
      {catalogue::Signature::dts, "dts"},
      {catalogue::Signature::mpgps, "mpgps"},
      {catalogue::Signature::mpges, "mpges"},
      {catalogue::Signature::dv, "dv"},
      {catalogue::Signature::ts188, "ts188"},
      {catalogue::Signature::ts192, "ts192"},
      {catalogue::Signature::ac3, "ac3"},
      {catalogue::Signature::adts, "adts"},
      {catalogue::Signature::mpa, "mpa"},
      {catalogue::Signature::annexb, "annexb"},
      {catalogue::Signature::moi, "moi"},
      {catalogue::Signature::pgs, "pgs"},
      {catalogue::Signature::bmp, "bmp"},
      {catalogue::Signature::scc, "scc"},
      {catalogue::Signature::vtt, "vtt"},
      {catalogue::Signature::ass, "ass"},
      {catalogue::Signature::ale, "ale"},
      {catalogue::Signature::edl, "edl"},
      {catalogue::Signature::cube, "cube"},
      {catalogue::Signature::html, "html"},
      {catalogue::Signature::xml, "xml"},
      {catalogue::Signature::json, "json"},
      {catalogue::Signature::text, "text"},
  });
};

namespace catalogue {

/// What an XML file is, by its root element.
enum class XmlContent : std::uint8_t {
  p2Clip, sonyClip, sonyCardIndex, clipList, soundMetadata, mediaHashList, finalCutX, finalCut7,
  colorDecisionList, colorCorrections, colorCorrection, commonLut, xmp, timedText, svg, assetMap,
  packingList, composition,
};

}  // namespace catalogue

/// The cases and their texts.
template <> struct CaseTable<catalogue::XmlContent> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::XmlContent>>({
      {catalogue::XmlContent::p2Clip, "p2Clip"},
      {catalogue::XmlContent::sonyClip, "sonyClip"},
      {catalogue::XmlContent::sonyCardIndex, "sonyCardIndex"},
      {catalogue::XmlContent::clipList, "clipList"},
      {catalogue::XmlContent::soundMetadata, "soundMetadata"},
      {catalogue::XmlContent::mediaHashList, "mediaHashList"},
      {catalogue::XmlContent::finalCutX, "finalCutX"},
      {catalogue::XmlContent::finalCut7, "finalCut7"},
      {catalogue::XmlContent::colorDecisionList, "colorDecisionList"},
      {catalogue::XmlContent::colorCorrections, "colorCorrections"},
      {catalogue::XmlContent::colorCorrection, "colorCorrection"},
      {catalogue::XmlContent::commonLut, "commonLut"},
      {catalogue::XmlContent::xmp, "xmp"},
      {catalogue::XmlContent::timedText, "timedText"},
      {catalogue::XmlContent::svg, "svg"},
      {catalogue::XmlContent::assetMap, "assetMap"},
      {catalogue::XmlContent::packingList, "packingList"},
      {catalogue::XmlContent::composition, "composition"},
  });
};

}  // namespace quillonic
