// Every extension has a format, a format has its extensions, and names find them whatever their case.
#include <quillonic/media.hpp>

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace quillonic {
namespace {

std::string capitals(std::string_view text) {
  std::string all(text);
  for (auto& c : all) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return all;
}

TEST(Formats, ExtensionsAndFormatsAgree) {
  for (const auto extension : allCases<FileExtension>()) {
    const auto text = rawValue(extension);
    EXPECT_EQ(fileExtensionFromText(capitals(text)), extension) << text;
    EXPECT_EQ(fileExtensionOfName("a.b." + std::string(text)), extension) << text;
    const auto own = extensions(formatOf(extension));
    EXPECT_EQ(std::ranges::count(own, extension), 1) << text;
    EXPECT_TRUE(isOfKind(extension, mainKind(extension))) << text;
    EXPECT_EQ(displayName(extension).empty(), false) << text;
  }
  for (const auto format : allCases<MediaFormat>()) {
    for (const auto extension : extensions(format)) EXPECT_EQ(formatOf(extension), format);
  }
}

TEST(Formats, KeepTheOldestExtensionsFirst) {
  using enum FileExtension;
  const std::vector<FileExtension> oldest{mov, mp4, wav, mxf, mjpeg};
  EXPECT_TRUE(std::ranges::equal(allCases<FileExtension>().first(oldest.size()), oldest));
}

TEST(Formats, UnknownNamesHaveNone) {
  for (const auto* name :
       {"", ".", ".mov", "mov", "a.", "a.movx", "a.mo", "a.sidecarsidecar", "a.m\xF6v", "a.mov "})
    EXPECT_EQ(fileExtensionOfName(name), std::nullopt) << name;
  EXPECT_EQ(extensionText("..mov"), "mov");
  EXPECT_TRUE(kinds(static_cast<MediaFormat>(255)).empty());
  EXPECT_EQ(mimeType(static_cast<FileExtension>(60'000)), "");
}

TEST(Formats, SayWhatAnExtensionMeans) {
  EXPECT_EQ(mainKind(FileExtension::crm), FileKind::rawVideo);
  EXPECT_EQ(mimeType(FileExtension::dot3g2), "video/3gpp2");
  EXPECT_TRUE(hasRegisteredMimeType(FileExtension::mov) && !hasRegisteredMimeType(FileExtension::r3d));
  EXPECT_EQ(ambiguity(FileExtension::ts)->told, MeaningTold::byBytes);
  EXPECT_EQ(ambiguity(FileExtension::r3d), nullptr);
  EXPECT_FALSE(isVerified(formatOf(FileExtension::krw)));
  EXPECT_TRUE(isVerified(formatOf(FileExtension::nev)));
}

}  // namespace
}  // namespace quillonic
