#include <quillonic/filesystem.hpp>
#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "temporary_folder.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using Date = AnyValue::Date;
using namespace std::chrono_literals;

// Programs that are already in use store and exchange these texts.
TEST(FileAttributeKey, HasItsFixedText) {
  std::string texts;
  for (const auto& key : allCases<Key>().first(15)) texts.append(key.rawValue()).append(" ");
  EXPECT_EQ(
      texts,
      "filePathName urlFileResourceType isLinkFilePath isDirectoryPath aggregateDirectorySize "
      "directoryStructureAttributes referenceLinkType referencedFileSystemURL isRelativeSymbolicReference "
      "spotlightFileType utFileType s3Etag isRemoteFileURL mimeType fileSizeIsEstimated ");
}

TEST(MatchLevel, IsReadAndCodedAsItsText) {
  EXPECT_EQ(fromRawValue<MatchLevel>("partial"), MatchLevel::partial);
  EXPECT_EQ(fromRawValue<MatchLevel>("Full"), std::nullopt);
  EXPECT_EQ(decode<MatchLevel>(encode(MatchLevel::unmatched)), MatchLevel::unmatched);
}

// Dictionaries made and compared at random agree with maps.
TEST(FileAttributes, CompareLikeMaps) {
  using Map = std::map<std::string, AnyValue>;
  std::mt19937 random(5);
  const auto make = [&](Map& map) {
    std::vector<FileAttributes::Entry> entries;
    for (auto n = random() % 7; n > 0; --n) {
      const AnyValue values[] = {AnyValue(), 1, 1.0, true, "1", Date(1s)};
      entries.push_back({allCases<Key>()[random() % 6], values[random() % 6]});
      map[std::string(entries.back().key)] = entries.back().value;
    }
    return FileAttributes(entries);
  };
  // Nothing is never an empty list.
  const auto textOf = [](const std::optional<FileAttributes::KeyList>& keys) {
    std::string text;
    EXPECT_TRUE(!keys || !keys->empty());
    for (const auto& key : keys.value_or(FileAttributes::KeyList())) text.append(key.rawValue()).append(" ");
    return text;
  };
  for (int round = 0; round < 2000 && !testing::Test::HasFailure(); ++round) {
    Map map;
    Map otherMap;
    auto attributes = make(map);
    const auto other = make(otherMap);
    EXPECT_EQ(attributes == other, map == otherMap);

    // Every other comparison stops where two values differ, every walk at its second key.
    const bool stops = round % 2 == 0;
    std::string common;
    std::string firstTwo;
    std::string objects;
    std::string compared;
    for (const auto& [key, value] : map) {
      const auto found = otherMap.find(key);
      if (found == otherMap.end()) continue;
      common += key + " ";
      if (std::ranges::count(common, ' ') <= 2) firstTwo = common;
      if (value == found->second && !value.empty()) objects += key + " ";
      const bool isOver = stops && compared.find('!') != std::string::npos;
      if (!isOver) compared += key + (value == found->second ? "=" : "!");
    }
    EXPECT_EQ(textOf(attributes.commonAttributeKeys(other)), common);
    EXPECT_EQ(textOf(attributes.objcAttributesIntersection(other)), objects);
    std::string walked;
    attributes.correlatedEnumerateCommonKeyValueEntries(
        other, [&](const Key& key, const AnyValue* mine, const AnyValue* its, bool& stop) {
          EXPECT_TRUE(*mine == map.at(std::string(key)) && *its == otherMap.at(std::string(key)));
          stop = !walked.empty();
          walked.append(key.rawValue()).append(" ");
        });
    EXPECT_EQ(walked, firstTwo);
    std::string seen;
    attributes.compare(
        other, [&](const Key& key, const AnyValue&, bool&) { seen.append(key.rawValue()).append("="); },
        [&](const Key& key, const AnyValue&, const AnyValue&, bool& stop) {
          seen.append(key.rawValue()).append("!");
          stop = stops;
        });
    EXPECT_EQ(seen, compared);

    const auto keys = allCases<Key>().subspan(random() % 6, random() % 6);
    const auto missing = attributes.missingEqualityAttributes(keys).value_or(FileAttributes::KeyList());
    const auto restricted = attributes.intersection(keys);
    EXPECT_EQ(missing.size() + restricted.size(), keys.size());
    for (const auto& key : missing) EXPECT_FALSE(map.contains(std::string(key)));
    for (const auto& [key, value] : restricted) EXPECT_EQ(map.at(std::string(key)), value);

    const auto& key = allCases<Key>()[random() % 6];
    EXPECT_EQ(attributes.remove(key), map.erase(std::string(key)) == 1);
    attributes.set(key, "new");
    EXPECT_EQ(attributes.value<std::string>(key), "new");
    EXPECT_EQ(attributes.size(), map.size() + 1);
  }
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

  EXPECT_EQ(TypedRecord().attributes(), (FileAttributes{{Key::filePathName, "clip.mov"},
                                                        {Key::NSFileSize, 1ULL << 63U},
                                                        {Key::NSFileModificationDate, Date(7ns)}}));
}

// As a host does it: full when all compared attributes match, unmatched when none does.
MatchLevel levelOf(const FileSystemAttributesStore& copy, const FileSystemAttributesStore& source) {
  const auto keys = FileSystemAttributesStore::attributeKeys();
  const auto matched = copy.attributes().intersection(keys).objcAttributesIntersection(source.attributes());
  if (!matched) return MatchLevel::unmatched;
  return matched->size() == keys.size() ? MatchLevel::full : MatchLevel::partial;
}

TEST(FileSystemAttributesStore, TellsHowWellACopyMatches) {
  const TemporaryFolder folder;
  const auto source = folder.file("clip.mov");
  const auto copy = folder.folder("backup") / "clip.mov";
  std::filesystem::copy(source, copy);
  std::filesystem::last_write_time(copy, std::filesystem::last_write_time(source));
  const Record original(*expandedAttributesOfItem(source));
  const auto created = original.dateCreated();
  const auto levelWith = [&](const Key& key, const AnyValue& value) {
    auto attributes = *expandedAttributesOfItem(copy);
    // A copy is made later; hosts that keep the creation date set it.
    if (created) attributes.set(Key::NSFileCreationDate, *created);
    attributes.remove(key);
    if (!value.empty()) attributes.set(key, value);
    return levelOf(Record(attributes), original);
  };
  EXPECT_EQ(levelWith(Key::utType, {}), created ? MatchLevel::full : MatchLevel::partial);
  EXPECT_EQ(levelWith(Key::NSFileModificationDate, *original.dateModified() + 1ns), MatchLevel::partial);
  EXPECT_EQ(levelWith(Key::filePathName, {}), MatchLevel::partial);
  EXPECT_EQ(levelOf(Record({{Key::NSFileSize, 1}}), original), MatchLevel::unmatched);
}

TEST(IOError, HasItsFixedMessage) {
  using enum IOError;
  std::string messages;
  for (const auto error :
       {invalidPathType, invalidDataType, nonexistentIOPath, closedToIOActivity, failedToReposition,
        ioDataIgnored, unavailableFileAttributes, invalidReplicationStructure, unsupportedReplicator,
        unavailableReplicationResources, outputPreviouslyProcessed, unavailableVerificationResources}) {
    const std::error_code code = error;
    messages += code.message() + "; ";
    EXPECT_TRUE(code && code != std::error_code(static_cast<FilePathAttributeGenerationError>(error)));
  }
  EXPECT_EQ(messages,
            "invalid path type; invalid data type; path does not exist; io has closed; reposition failure; "
            "data ignored; file attributes unavailable; invalid replication structure; "
            "replicator type not supported; replication resources unavailable; output already processed; "
            "verification resources unavailable; ");
  EXPECT_FALSE(ioErrorCategory().message(13).empty() || ioErrorCategory().message(-1).empty());
}

}  // namespace
}  // namespace quillonic
