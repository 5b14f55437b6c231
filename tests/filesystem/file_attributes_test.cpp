#include <quillonic/filesystem.hpp>
#include <quillonic/support/coding.hpp>

#include <chrono>
#include <gtest/gtest.h>

#include "texts.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using Date = Date;
using namespace std::chrono_literals;

// Shipped programs store and exchange these texts.
TEST(FileAttributeKey, HasItsFixedText) {
  EXPECT_EQ(
      joined(allCases<Key>().first(15)),
      "filePathName urlFileResourceType isLinkFilePath isDirectoryPath aggregateDirectorySize "
      "directoryStructureAttributes referenceLinkType referencedFileSystemURL isRelativeSymbolicReference "
      "spotlightFileType utFileType s3Etag isRemoteFileURL mimeType fileSizeIsEstimated");
}

class Record final : public AttributeBasedStore {
 public:
  explicit Record(FileAttributes attributes) : attributes_(std::move(attributes)) {}
  FileAttributes attributes() const override { return attributes_; }

 private:
  FileAttributes attributes_;
};

class TypedRecord final : public AccessorBasedStore {
 public:
  std::optional<std::string> name() const override { return "clip.mov"; }
  std::optional<std::uint64_t> fileSize() const override { return 1ULL << 63U; }
  std::optional<Date> dateCreated() const override { return std::nullopt; }
  std::optional<Date> dateModified() const override { return Date(7ns); }
};

TEST(FileSystemAttributesStore, SaysTheSameOnBothSides) {
  const Record record({{Key::filePathName, "clip.mov"},
                       {Key::NSFileSize, 4096.0},
                       {Key::NSFileCreationDate, Date(1s)},
                       {Key::NSFileModificationDate, 1}});
  EXPECT_EQ(record.name(), "clip.mov");
  EXPECT_EQ(record.fileSize(), 4096U);
  EXPECT_EQ(record.dateCreated(), Date(1s));
  EXPECT_EQ(record.dateModified(), std::nullopt);
  const Record wrong({{Key::filePathName, 7}, {Key::NSFileSize, -1}});
  EXPECT_FALSE(wrong.name() || wrong.fileSize());

  EXPECT_EQ(joined(FileSystemAttributesStore::attributeKeys()),
            joined(std::vector{Key::filePathName, Key::NSFileSize, Key::NSFileCreationDate,
                               Key::NSFileModificationDate}));
  EXPECT_EQ(TypedRecord().attributes(), (FileAttributes{{Key::filePathName, "clip.mov"},
                                                        {Key::NSFileSize, 1ULL << 63U},
                                                        {Key::NSFileModificationDate, Date(7ns)}}));
}

TEST(IOError, HasItsFixedMessage) {
  std::string messages;
  for (int number = 0; number <= 13; ++number) messages += ioErrorCategory().message(number) + "; ";
  EXPECT_EQ(messages,
            "unknown error; invalid path type; invalid data type; path does not exist; io has closed; "
            "reposition failure; data ignored; file attributes unavailable; invalid replication structure; "
            "replicator type not supported; replication resources unavailable; output already processed; "
            "verification resources unavailable; unknown error; ");
  const std::error_code code = IOError::closedToIOActivity;
  EXPECT_EQ(code.message(), "io has closed");
  EXPECT_NE(code, std::error_code(FilePathAttributeGenerationError::aliasTargetNotFound));
}

}  // namespace
}  // namespace quillonic
