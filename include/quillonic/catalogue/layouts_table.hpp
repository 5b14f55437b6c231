/// The cases of `CardLayout`.
/// Made by scripts/generate-catalogue from src/catalogue/layouts.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

namespace catalogue {

/// How a family of cameras or recorders arranges its files.
enum class CardLayout : std::uint8_t {
  p2, xdcam, xavcProfessional, xdcamSam, xdcamEx, xavcS, sonyStills, bluRay, avchd, hdv, canonXf,
  canonCinema, canonStills, nikon, fujifilm, lumix, panasonicMov, red, arri, arriRaw, blackmagic, goPro, dji,
  insta360, apple, everio, jvcProfessional, samsung, kiPro, soundDevices, zoom, tascam, avid, dvd,
  digitalCinema,
};

}  // namespace catalogue

/// The cases and their texts.
template <> struct CaseTable<catalogue::CardLayout> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::CardLayout>>({
      {catalogue::CardLayout::p2, "p2"},
      {catalogue::CardLayout::xdcam, "xdcam"},
      {catalogue::CardLayout::xavcProfessional, "xavcProfessional"},
      {catalogue::CardLayout::xdcamSam, "xdcamSam"},
      {catalogue::CardLayout::xdcamEx, "xdcamEx"},
      {catalogue::CardLayout::xavcS, "xavcS"},
      {catalogue::CardLayout::sonyStills, "sonyStills"},
      {catalogue::CardLayout::bluRay, "bluRay"},
      {catalogue::CardLayout::avchd, "avchd"},
      {catalogue::CardLayout::hdv, "hdv"},
      {catalogue::CardLayout::canonXf, "canonXf"},
      {catalogue::CardLayout::canonCinema, "canonCinema"},
      {catalogue::CardLayout::canonStills, "canonStills"},
      {catalogue::CardLayout::nikon, "nikon"},
      {catalogue::CardLayout::fujifilm, "fujifilm"},
      {catalogue::CardLayout::lumix, "lumix"},
      {catalogue::CardLayout::panasonicMov, "panasonicMov"},
      {catalogue::CardLayout::red, "red"},
      {catalogue::CardLayout::arri, "arri"},
      {catalogue::CardLayout::arriRaw, "arriRaw"},
      {catalogue::CardLayout::blackmagic, "blackmagic"},
      {catalogue::CardLayout::goPro, "goPro"},
      {catalogue::CardLayout::dji, "dji"},
      {catalogue::CardLayout::insta360, "insta360"},
      {catalogue::CardLayout::apple, "apple"},
      {catalogue::CardLayout::everio, "everio"},
      {catalogue::CardLayout::jvcProfessional, "jvcProfessional"},
      {catalogue::CardLayout::samsung, "samsung"},
      {catalogue::CardLayout::kiPro, "kiPro"},
      {catalogue::CardLayout::soundDevices, "soundDevices"},
      {catalogue::CardLayout::zoom, "zoom"},
      {catalogue::CardLayout::tascam, "tascam"},
      {catalogue::CardLayout::avid, "avid"},
      {catalogue::CardLayout::dvd, "dvd"},
      {catalogue::CardLayout::digitalCinema, "digitalCinema"},
  });
};

}  // namespace quillonic
