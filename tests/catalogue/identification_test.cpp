// Bytes decide the family, the extension the member; what is weak alone decides nothing.
#include <quillonic/catalogue.hpp>
#include <quillonic/media.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>

#include "temporary_folder.hpp"

namespace quillonic::catalogue {
namespace {

using namespace std::string_literals;

// The format, or "-"; then name and bytes where they contradict each other.
std::string told(const Identification& file) {
  const auto text = [](const auto& format) {
    return format ? std::string(rawValue(*format)) : std::string("-");
  };
  return file.isContradictory ? text(file.byName) + " or " + text(file.byBytes) : text(file.format);
}

TEST(Identification, LetsBytesDecideTheFamilyAndTheNameTheMember) {
  const auto transport = [](std::size_t first, std::size_t step) {
    std::string bytes(600, '\0');
    for (int i = 0; i < 3; ++i) bytes[first + static_cast<std::size_t>(i) * step] = 0x47;
    return bytes;
  };
  const auto ftyp = [](const std::string& brand) { return "\0\0\0\24ftyp"s + brand; };
  const std::tuple<std::string_view, std::string, std::string_view> cases[] = {
      {"a.mov", ftyp("qt  "), "quickTimeMovie"},
      {"", ftyp("qt  "), "quickTimeMovie"},
      {"a.MP4", ftyp("qt  "), "mpeg4Movie"},
      {"", ftyp("heic"), "heif"},
      {"", ftyp("crx "), "-"},
      {"", ftyp("crx ....CanonCRM0001"), "canonRawLight"},
      {"a.cr3", ftyp("crx "), "canonRaw3"},
      {"a.mov", "\xFF\xD8\xFF\xE0", "quickTimeMovie or jpeg"},
      {"a.nef", "II*\0"s, "nikonRaw"},
      {"a.png", "II*\0"s, "png or tiff"},
      {"", "II*\0\x10\0\0\0CR\2"s, "canonRaw2"},
      {"a.docx", "PK\3\4", "wordDocumentXml"},
      {"a.webm", "\x1A\x45\xDF\xA3", "webM"},
      {"", "\x1A\x45\xDF\xA3\x42\x82\x84webm", "webM"},
      {"a.ts", transport(0, 188), "transportStream"},
      {"a.mts", transport(4, 192), "avchdTransportStream"},
      {"a.ts", "import { x } from 'y';\n", "transportStream or plainText"},
      {"a.ts", "", "-"},
      {"a.cc", "#include <x>\n", "colorDecisions or plainText"},
      {"a.cc", "<ColorCorrection id=\"1\">", "colorDecisions"},
      {"a.smi", "<SAMI><HEAD>", "sonyClipList or plainText"},
      {"a.smi", "<?xml version='1.0'?><smil/>", "sonyClipList"},
      {"a.xml", "<anything/>", "xml"},
      {"a.txt", "The free text is no film.", "plainText"},
      {"a.txt", "The free\0bytes of a film"s, "plainText or quickTimeMovie"},
      {"a.mpl", "MPLS0100", "avchdPlayList"},
      {"a.xml", "\xEF\xBB\xBF<?xml version=\"1.0\"?><!-- c --><fcpxml version=\"1.9\">", "finalCutXml"},
      {"a.xml", "\xFF\xFE<\0?\0x\0m\0l\0?\0>\0<\0P\0\x32\0M\0a\0i\0n\0>\0"s, "xml"},
      {"a.cube", "LUT_3D_SIZE 33\n", "cubeLut"},
      {"", "LUT_3D_SIZE 33\n", "plainText"},
      {"a.cine", "CI\x2C\0"s, "phantomCine"},
      {"", "CI\x2C\0"s, "-"},
      {"a.krw", "\1\2", "-"},
      {"a.mxf", std::string(70, '\1') + "\x06\x0e\x2b\x34\x02\x05\x01\x01\x0d\x01\x02\x01\x01\x02", "mxf"},
      {"._a.mov", "\0\5\x16\7"s, "-"},
      {"a.mov", "\0\5\x16\7"s, "-"},
  };
  for (const auto& [name, bytes, expected] : cases)
    EXPECT_EQ(told(identify(name, bytes)), expected) << name << ' ' << bytes;
  EXPECT_EQ(identify("a.xml", "<x:NonRealTimeMeta>").xmlContent, XmlContent::sonyClip);
  EXPECT_EQ(identify("a.xml", "<AssetMap xmlns=''>").xmlContent, XmlContent::assetMap);
  EXPECT_EQ(identify("a.mov", "\0\5\x16\7"s).role, NameRole::companion);
  EXPECT_EQ(identifyName("thumbs.DB").role, NameRole::leftover);
  EXPECT_EQ(displayName(Signature::ftyp), "ISO base media");
  EXPECT_EQ(codecName("apch"), "ProRes 422 HQ");
}

TEST(Identification, ReadsFilesOnceAndOnlyFiles) {
  const TemporaryFolder folder;
  const auto file = folder.file("a.iso", std::string(32'769, '\0') + "CD001");
  EXPECT_EQ(told(identifyFile(file)), "discImage");
  EXPECT_EQ(identifyFile(file).signature, Signature::iso9660);
  EXPECT_EQ(told(identifyFile(folder.link("b.mov", file))), "quickTimeMovie");
  EXPECT_TRUE(identifyFile(folder / "b.mov").readError);
  EXPECT_TRUE(identifyFile(folder.folder("c.mov")).readError);
  EXPECT_EQ(identifyFile(folder / "missing.wav").readError, std::errc::no_such_file_or_directory);
}

// Files that others made, where they were fetched: known formats are told as their list says.
TEST(Identification, AgreesWithTheListsOfOthers) {
  const std::filesystem::path samples(SAMPLES);
  std::ifstream list(samples / "mime-detection" / "list");
  if (!list) GTEST_SKIP() << "run scripts/fetch-samples";
  // Another picture's bytes, a variant of one maker, a template, junk before the content.
  const std::string known = " attachment.tif test.avf test-template.dot testcase.is-really-a-pdf ";
  int count = 0;
  for (std::string line; std::getline(list, line);) {
    std::istringstream words(line);
    std::string name;
    std::string expected;
    words >> name >> expected;
    const auto rows = allCases<FileExtension>();
    const bool isKnown =
        std::ranges::any_of(rows, [&](FileExtension each) { return mimeType(each) == expected; });
    if (name.empty() || name.starts_with('#') || !isKnown || expected == "application/octet-stream" ||
        known.find(" " + name + " ") != std::string::npos)
      continue;
    const auto file = identifyFile(samples / "mime-detection" / name);
    ASSERT_TRUE(file.format) << name << " is " << expected;
    const auto own = extensions(*file.format);
    EXPECT_TRUE(std::ranges::any_of(own, [&](FileExtension each) { return mimeType(each) == expected; }))
        << name << " is " << expected << ", not " << rawValue(*file.format);
    ++count;
  }
  EXPECT_GT(count, 80);
  for (const auto& entry : std::filesystem::directory_iterator(samples / "written")) {
    const auto file = identifyFile(entry.path());
    EXPECT_TRUE(file.format && file.format == file.byName) << entry.path();
  }
}

TEST(MetadataKeys, AreFoundByTheirPlaces) {
  for (const auto key : allCases<MetadataKey>()) {
    EXPECT_FALSE(places(key).empty() || displayName(key).empty()) << rawValue(key);
    for (const auto& place : places(key))
      EXPECT_EQ(std::ranges::count(metadataKeysFor(place.container, place.key), key), 1) << place.key;
  }
  using enum MetadataContainer;
  EXPECT_EQ(metadataKeysFor(exif, "0X829a").front(), MetadataKey::shutterTime);
  EXPECT_EQ(metadataKeysFor(mdta, "COM.ARRI.CAMERA.colorgammasxs").front(), MetadataKey::gamma);
  EXPECT_TRUE(metadataKeysFor(ixml, "scene").empty());
  EXPECT_EQ(metadataKeysFor(ixml, "TAPE"), (std::vector{MetadataKey::reel, MetadataKey::soundRoll}));
  EXPECT_EQ(unit(MetadataKey::shutterAngle), "degrees");
  EXPECT_EQ(places(MetadataKey::shutterAngle).front().divisor, 60U);
}

}  // namespace
}  // namespace quillonic::catalogue
