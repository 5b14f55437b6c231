#include <quillonic/filesystem.hpp>

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using Date = AnyValue::Date;
using testing::ElementsAre;
using testing::Optional;
using namespace std::chrono_literals;

// Programs that are already in use store and exchange these texts.
TEST(FileAttributeKey, HasItsFixedText) {
  std::vector<std::string> texts;
  for (const auto& key : allCases<Key>().first(15)) texts.emplace_back(key.rawValue());
  EXPECT_THAT(texts,
              ElementsAre("filePathName", "urlFileResourceType", "isLinkFilePath", "isDirectoryPath",
                          "aggregateDirectorySize", "directoryStructureAttributes", "referenceLinkType",
                          "referencedFileSystemURL", "isRelativeSymbolicReference", "spotlightFileType",
                          "utFileType", "s3Etag", "isRemoteFileURL", "mimeType", "fileSizeIsEstimated"));
}

TEST(MatchLevel, IsReadAndCodedAsItsText) {
  EXPECT_EQ(fromRawValue<MatchLevel>("partial"), MatchLevel::partial);
  EXPECT_EQ(fromRawValue<MatchLevel>("Full"), std::nullopt);
  EXPECT_EQ(encode(MatchLevel::unmatched), CodedValue(std::string("unmatched")));
  EXPECT_EQ(decode<MatchLevel>(std::string("full")), MatchLevel::full);
  EXPECT_THROW(decode<MatchLevel>(std::string("none")), DecodingError);
}

// Dictionaries made and compared at random agree with maps.
TEST(FileAttributes, CompareLikeMaps) {
  std::mt19937 random(5);
  const auto some = [&] {
    std::vector<FileAttributes::Entry> entries;
    for (auto n = random() % 7; n > 0; --n) {
      const AnyValue values[] = {AnyValue(), 1, 1.0, true, "1", Date(1s)};
      entries.push_back({allCases<Key>()[random() % 6], values[random() % 6]});
    }
    return entries;
  };
  const auto asMap = [](const std::vector<FileAttributes::Entry>& entries) {
    std::map<std::string, AnyValue> map;
    for (const auto& [key, value] : entries) map[std::string(key)] = value;
    return map;
  };
  const auto unlessEmpty = [](const std::vector<std::string>& keys) {
    return keys.empty() ? std::nullopt : std::optional(keys);
  };
  const auto texts = [](const std::optional<FileAttributes::KeyList>& keys) {
    return keys ? std::optional(std::vector<std::string>(keys->begin(), keys->end())) : std::nullopt;
  };
  for (int round = 0; round < 2000; ++round) {
    const auto entries = some();
    const auto others = some();
    FileAttributes attributes(entries);
    const FileAttributes other(others);
    auto map = asMap(entries);
    const auto otherMap = asMap(others);
    ASSERT_EQ(attributes == other, map == otherMap);

    std::vector<std::string> common;
    std::vector<std::string> equal;
    std::vector<std::string> objects;
    for (const auto& [key, value] : map) {
      const auto found = otherMap.find(key);
      if (found == otherMap.end()) continue;
      common.push_back(key);
      if (value == found->second) equal.push_back(key);
      if (value == found->second && !value.empty()) objects.push_back(key);
    }
    ASSERT_EQ(texts(attributes.commonAttributeKeys(other)), unlessEmpty(common));
    ASSERT_EQ(texts(attributes.objcAttributesIntersection(other)), unlessEmpty(objects));

    std::vector<std::string> walked;
    const auto walk = [&](const Key& key, const AnyValue* mine, const AnyValue* its, bool& stop) {
      walked.emplace_back(key);
      EXPECT_TRUE(*mine == map.at(walked.back()) && *its == otherMap.at(walked.back()));
      stop = walked.size() == 2;
    };
    attributes.correlatedEnumerateCommonKeyValueEntries(other, walk);
    auto firstTwo = common;
    firstTwo.resize(std::min<std::size_t>(2, firstTwo.size()));
    ASSERT_EQ(walked, firstTwo);

    std::vector<std::string> matched;
    std::vector<std::string> mismatched;
    attributes.compare(
        other, [&](const Key& key, const AnyValue&, bool&) { matched.emplace_back(key); },
        [&](const Key& key, const AnyValue&, const AnyValue&, bool&) { mismatched.emplace_back(key); });
    ASSERT_EQ(matched, equal);
    ASSERT_EQ(matched.size() + mismatched.size(), common.size());

    const auto keys = allCases<Key>().subspan(random() % 6, random() % 6);
    const auto missing = attributes.missingEqualityAttributes(keys).value_or(FileAttributes::KeyList());
    const auto restricted = attributes.intersection(keys);
    ASSERT_EQ(missing.size() + restricted.size(), keys.size());
    for (const auto& key : missing) ASSERT_FALSE(map.contains(std::string(key)));
    for (const auto& [key, value] : restricted) ASSERT_EQ(map.at(std::string(key)), value);

    const auto& key = allCases<Key>()[random() % 6];
    ASSERT_EQ(attributes.remove(key), map.erase(std::string(key)) == 1);
    attributes.set(key, "new");
    ASSERT_EQ(attributes.value<std::string>(key), "new");
    ASSERT_EQ(attributes.size(), map.size() + 1);
  }
}

TEST(FileAttributes, StopAtOnceWhereABlockSaysSo) {
  const FileAttributes attributes{{Key::NSFileSize, 1}, {Key::filePathName, "a"}, {Key::utType, "b"}};
  const FileAttributes other{{Key::NSFileSize, 1}, {Key::filePathName, "c"}, {Key::utType, "b"}};
  int calls = 0;
  const auto stopAtMismatch = [&](const Key&, const AnyValue&, const AnyValue&, bool& stop) {
    ++calls;
    stop = true;
  };
  attributes.compare(
      other, [&](const Key&, const AnyValue&, bool&) { ++calls; }, stopAtMismatch);
  EXPECT_EQ(calls, 2);
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

TEST(FileSystemAttributesStore, ReadsItsDictionaryByType) {
  const Record record({{Key::filePathName, "clip.mov"},
                       {Key::NSFileSize, 4096.0},
                       {Key::NSFileCreationDate, Date(1s)},
                       {Key::NSFileModificationDate, 1}});
  EXPECT_THAT(record.name(), Optional(std::string("clip.mov")));
  EXPECT_EQ(record.fileSize(), 4096U);
  EXPECT_EQ(record.dateCreated(), Date(1s));
  EXPECT_EQ(record.dateModified(), std::nullopt);
  const Record wrong({{Key::filePathName, 7}, {Key::NSFileSize, -1}});
  EXPECT_EQ(wrong.name(), std::nullopt);
  EXPECT_EQ(wrong.fileSize(), std::nullopt);
}

TEST(FileSystemAttributesStore, MakesADictionaryOfWhatIsPresent) {
  const TypedRecord record;
  EXPECT_EQ(record.attributes(), (FileAttributes{{Key::filePathName, "clip.mov"},
                                                 {Key::NSFileSize, 1ULL << 63U},
                                                 {Key::NSFileModificationDate, Date(7ns)}}));
  EXPECT_THAT(
      FileSystemAttributesStore::attributeKeys(),
      ElementsAre(Key::filePathName, Key::NSFileSize, Key::NSFileCreationDate, Key::NSFileModificationDate));
}

// As a host does it: full when all compared attributes match, unmatched when none does.
MatchLevel levelOf(const FileSystemAttributesStore& copy, const FileSystemAttributesStore& source) {
  const auto keys = FileSystemAttributesStore::attributeKeys();
  const auto mine = copy.attributes().intersection(keys);
  const auto its = source.attributes().intersection(keys);
  std::size_t matched = 0;
  mine.compare(
      its, [&](const Key&, const AnyValue&, bool&) { ++matched; },
      [](const Key&, const AnyValue&, const AnyValue&, bool&) {});
  const bool isComplete = !mine.missingEqualityAttributes(keys) && !its.missingEqualityAttributes(keys);
  if (isComplete && matched == keys.size()) return MatchLevel::full;
  return matched > 0 ? MatchLevel::partial : MatchLevel::unmatched;
}

TEST(FileSystemAttributesStore, TellsHowWellACopyMatches) {
  const TemporaryFolder folder;
  const auto source = folder.file("clip.mov");
  const auto copy = folder.folder("backup") / "clip.mov";
  std::filesystem::copy(source, copy);
  std::filesystem::last_write_time(copy, std::filesystem::last_write_time(source));
  const Record original(*expandedAttributesOfItem(source));
  auto attributes = *expandedAttributesOfItem(copy);
  // A copy is made later; hosts that keep the creation date set it.
  if (original.dateCreated()) attributes.set(Key::NSFileCreationDate, *original.dateCreated());
  const bool hasCreationDate = original.dateCreated().has_value();
  EXPECT_EQ(levelOf(Record(attributes), original), hasCreationDate ? MatchLevel::full : MatchLevel::partial);

  auto later = attributes;
  later.set(Key::NSFileModificationDate, *original.dateModified() + 1ns);
  EXPECT_EQ(levelOf(Record(later), original), MatchLevel::partial);
  auto nameless = attributes;
  nameless.remove(Key::filePathName);
  EXPECT_EQ(levelOf(Record(nameless), original), MatchLevel::partial);
  EXPECT_EQ(levelOf(Record({{Key::NSFileSize, 1}}), original), MatchLevel::unmatched);
}

TEST(IOError, HasItsFixedMessage) {
  const std::pair<IOError, const char*> rows[] = {
      {IOError::invalidPathType, "invalid path type"},
      {IOError::invalidDataType, "invalid data type"},
      {IOError::nonexistentIOPath, "path does not exist"},
      {IOError::closedToIOActivity, "io has closed"},
      {IOError::failedToReposition, "reposition failure"},
      {IOError::ioDataIgnored, "data ignored"},
      {IOError::unavailableFileAttributes, "file attributes unavailable"},
      {IOError::invalidReplicationStructure, "invalid replication structure"},
      {IOError::unsupportedReplicator, "replicator type not supported"},
      {IOError::unavailableReplicationResources, "replication resources unavailable"},
      {IOError::outputPreviouslyProcessed, "output already processed"},
      {IOError::unavailableVerificationResources, "verification resources unavailable"},
  };
  for (const auto& [error, message] : rows) {
    const std::error_code code = error;
    EXPECT_TRUE(code);
    EXPECT_EQ(code.message(), message);
    EXPECT_NE(code, std::error_code(static_cast<FilePathAttributeGenerationError>(error)));
  }
  EXPECT_FALSE(ioErrorCategory().message(13).empty());
  EXPECT_FALSE(ioErrorCategory().message(-1).empty());
}

}  // namespace
}  // namespace quillonic
