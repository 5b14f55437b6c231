/// The cases of `MetadataKey`, `MetadataType` and `MetadataContainer`.
/// Made by scripts/generate-catalogue from src/catalogue/metadata_keys.txt; change that file, not this one.
#pragma once

// clang-format off
#include <quillonic/support/enumeration.hpp>

#include <array>
#include <cstdint>

namespace quillonic {

namespace catalogue {

/// A piece of metadata, by an identifier that stays.
enum class MetadataKey : std::uint8_t {
  reel, altReel, soundRoll, scene, shot, shotNumber, take, circled, wildTrack, noGood, falseStart, clipName,
  clipId, shotId, cameraIndex, cameraAngle, cameraMove, make, model, serialNumber, firmware,
  cameraIdentifier, cameraOperator, director, client, project, note, startTimecode, altTimecode, edgeCode,
  dropFrame, samplesSinceMidnight, frameRate, captureFrameRate, width, height, frameSize, pixelAspect,
  displayAspect, fieldOrder, duration, videoCodec, shutterAngle, shutterTime, iso, exposureIndex,
  whiteBalance, whiteBalanceTint, ndFilter, gamma, colorPrimaries, look, lut, cdl, lensModel, lensMake,
  lensSerial, focalLength, aperture, tStop, focusDistance, created, modified, location, place, direction,
  orientation, livePhotoId, originator, description, trackNames, fileSet, fileSetIndex, fileSetCount,
  audioSampleRate, audioBits, audioChannels, originalFileName, mediaSerial,
};

}  // namespace catalogue

/// The cases and their texts.
template <> struct CaseTable<catalogue::MetadataKey> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::MetadataKey>>({
      {catalogue::MetadataKey::reel, "reel"},
      {catalogue::MetadataKey::altReel, "altReel"},
      {catalogue::MetadataKey::soundRoll, "soundRoll"},
      {catalogue::MetadataKey::scene, "scene"},
      {catalogue::MetadataKey::shot, "shot"},
      {catalogue::MetadataKey::shotNumber, "shotNumber"},
      {catalogue::MetadataKey::take, "take"},
      {catalogue::MetadataKey::circled, "circled"},
      {catalogue::MetadataKey::wildTrack, "wildTrack"},
      {catalogue::MetadataKey::noGood, "noGood"},
      {catalogue::MetadataKey::falseStart, "falseStart"},
      {catalogue::MetadataKey::clipName, "clipName"},
      {catalogue::MetadataKey::clipId, "clipId"},
      {catalogue::MetadataKey::shotId, "shotId"},
      {catalogue::MetadataKey::cameraIndex, "cameraIndex"},
      {catalogue::MetadataKey::cameraAngle, "cameraAngle"},
      {catalogue::MetadataKey::cameraMove, "cameraMove"},
      {catalogue::MetadataKey::make, "make"},
      {catalogue::MetadataKey::model, "model"},
      {catalogue::MetadataKey::serialNumber, "serialNumber"},
      {catalogue::MetadataKey::firmware, "firmware"},
      {catalogue::MetadataKey::cameraIdentifier, "cameraIdentifier"},
      {catalogue::MetadataKey::cameraOperator, "operator"},
      {catalogue::MetadataKey::director, "director"},
      {catalogue::MetadataKey::client, "client"},
      {catalogue::MetadataKey::project, "project"},
      {catalogue::MetadataKey::note, "note"},
      {catalogue::MetadataKey::startTimecode, "startTimecode"},
      {catalogue::MetadataKey::altTimecode, "altTimecode"},
      {catalogue::MetadataKey::edgeCode, "edgeCode"},
      {catalogue::MetadataKey::dropFrame, "dropFrame"},
      {catalogue::MetadataKey::samplesSinceMidnight, "samplesSinceMidnight"},
      {catalogue::MetadataKey::frameRate, "frameRate"},
      {catalogue::MetadataKey::captureFrameRate, "captureFrameRate"},
      {catalogue::MetadataKey::width, "width"},
      {catalogue::MetadataKey::height, "height"},
      {catalogue::MetadataKey::frameSize, "frameSize"},
      {catalogue::MetadataKey::pixelAspect, "pixelAspect"},
      {catalogue::MetadataKey::displayAspect, "displayAspect"},
      {catalogue::MetadataKey::fieldOrder, "fieldOrder"},
      {catalogue::MetadataKey::duration, "duration"},
      {catalogue::MetadataKey::videoCodec, "videoCodec"},
      {catalogue::MetadataKey::shutterAngle, "shutterAngle"},
      {catalogue::MetadataKey::shutterTime, "shutterTime"},
      {catalogue::MetadataKey::iso, "iso"},
      {catalogue::MetadataKey::exposureIndex, "exposureIndex"},
      {catalogue::MetadataKey::whiteBalance, "whiteBalance"},
      {catalogue::MetadataKey::whiteBalanceTint, "whiteBalanceTint"},
      {catalogue::MetadataKey::ndFilter, "ndFilter"},
      {catalogue::MetadataKey::gamma, "gamma"},
      {catalogue::MetadataKey::colorPrimaries, "colorPrimaries"},
      {catalogue::MetadataKey::look, "look"},
      {catalogue::MetadataKey::lut, "lut"},
      {catalogue::MetadataKey::cdl, "cdl"},
      {catalogue::MetadataKey::lensModel, "lensModel"},
      {catalogue::MetadataKey::lensMake, "lensMake"},
      {catalogue::MetadataKey::lensSerial, "lensSerial"},
      {catalogue::MetadataKey::focalLength, "focalLength"},
      {catalogue::MetadataKey::aperture, "aperture"},
      {catalogue::MetadataKey::tStop, "tStop"},
      {catalogue::MetadataKey::focusDistance, "focusDistance"},
      {catalogue::MetadataKey::created, "created"},
      {catalogue::MetadataKey::modified, "modified"},
      {catalogue::MetadataKey::location, "location"},
      {catalogue::MetadataKey::place, "place"},
      {catalogue::MetadataKey::direction, "direction"},
      {catalogue::MetadataKey::orientation, "orientation"},
      {catalogue::MetadataKey::livePhotoId, "livePhotoId"},
      {catalogue::MetadataKey::originator, "originator"},
      {catalogue::MetadataKey::description, "description"},
      {catalogue::MetadataKey::trackNames, "trackNames"},
      {catalogue::MetadataKey::fileSet, "fileSet"},
      {catalogue::MetadataKey::fileSetIndex, "fileSetIndex"},
      {catalogue::MetadataKey::fileSetCount, "fileSetCount"},
      {catalogue::MetadataKey::audioSampleRate, "audioSampleRate"},
      {catalogue::MetadataKey::audioBits, "audioBits"},
      {catalogue::MetadataKey::audioChannels, "audioChannels"},
      {catalogue::MetadataKey::originalFileName, "originalFileName"},
      {catalogue::MetadataKey::mediaSerial, "mediaSerial"},
  });
};

namespace catalogue {

/// What the values of a key are.
enum class MetadataType : std::uint8_t {
  text, boolean, identifier, timecode, number, rational, duration, label, transform, instant, location,
  orientation, list,
};

}  // namespace catalogue

/// The cases and their texts.
template <> struct CaseTable<catalogue::MetadataType> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::MetadataType>>({
      {catalogue::MetadataType::text, "text"},
      {catalogue::MetadataType::boolean, "boolean"},
      {catalogue::MetadataType::identifier, "identifier"},
      {catalogue::MetadataType::timecode, "timecode"},
      {catalogue::MetadataType::number, "number"},
      {catalogue::MetadataType::rational, "rational"},
      {catalogue::MetadataType::duration, "duration"},
      {catalogue::MetadataType::label, "label"},
      {catalogue::MetadataType::transform, "transform"},
      {catalogue::MetadataType::instant, "instant"},
      {catalogue::MetadataType::location, "location"},
      {catalogue::MetadataType::orientation, "orientation"},
      {catalogue::MetadataType::list, "list"},
  });
};

namespace catalogue {

/// What holds metadata: a part of a file, or a file beside it.
enum class MetadataContainer : std::uint8_t {
  qt, mdta, xmp, mxf, r3d, exif, ixml, ale, p2, mediaprofile, bext, udta, nrt, dpx, exr, rdd18, braw,
};

}  // namespace catalogue

/// The cases and their texts.
template <> struct CaseTable<catalogue::MetadataContainer> {
  static constexpr auto rows = std::to_array<CaseRow<catalogue::MetadataContainer>>({
      {catalogue::MetadataContainer::qt, "qt"},
      {catalogue::MetadataContainer::mdta, "mdta"},
      {catalogue::MetadataContainer::xmp, "XMP"},
      {catalogue::MetadataContainer::mxf, "MXF"},
      {catalogue::MetadataContainer::r3d, "R3D"},
      {catalogue::MetadataContainer::exif, "EXIF"},
      {catalogue::MetadataContainer::ixml, "iXML"},
      {catalogue::MetadataContainer::ale, "ALE"},
      {catalogue::MetadataContainer::p2, "P2"},
      {catalogue::MetadataContainer::mediaprofile, "MediaProfile"},
      {catalogue::MetadataContainer::bext, "BEXT"},
      {catalogue::MetadataContainer::udta, "udta"},
      {catalogue::MetadataContainer::nrt, "NRT"},
      {catalogue::MetadataContainer::dpx, "DPX"},
      {catalogue::MetadataContainer::exr, "EXR"},
      {catalogue::MetadataContainer::rdd18, "RDD18"},
      {catalogue::MetadataContainer::braw, "braw"},
  });
};

}  // namespace quillonic
