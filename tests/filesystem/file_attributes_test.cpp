#include <quillonic/filesystem.hpp>
#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "texts.hpp"

namespace quillonic {
namespace {

using Key = FileAttributeKey;
using Date = AnyValue::Date;
using namespace std::chrono_literals;

// Programs that are already in use store and exchange these texts.
TEST(FileAttributeKey, HasItsFixedText) {
  EXPECT_EQ(
      joined(allCases<Key>().first(15)),
      "filePathName urlFileResourceType isLinkFilePath isDirectoryPath aggregateDirectorySize "
      "directoryStructureAttributes referenceLinkType referencedFileSystemURL isRelativeSymbolicReference "
      "spotlightFileType utFileType s3Etag isRemoteFileURL mimeType fileSizeIsEstimated");
}

// Dictionaries made and compared at random agree with maps.
TEST(FileAttributes, CompareLikeMaps) {
  using Map = std::map<std::string, AnyValue>;
  using Texts = std::vector<std::string>;
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
  const auto textsOf = [](const std::optional<FileAttributes::KeyList>& keys) {
    EXPECT_TRUE(!keys || !keys->empty());
    return keys ? Texts(keys->begin(), keys->end()) : Texts();
  };
  for (int round = 0; round < 2000 && !testing::Test::HasFailure(); ++round) {
    Map map;
    Map otherMap;
    auto attributes = make(map);
    const auto other = make(otherMap);
    EXPECT_EQ(attributes == other, map == otherMap);

    Texts common;
    Texts equal;
    Texts compared;
    for (const auto& [key, value] : map) {
      const auto found = otherMap.find(key);
      if (found == otherMap.end()) continue;
      common.push_back(key);
      compared.push_back(key + (value == found->second ? "=" : "!"));
      if (value == found->second && !value.empty()) equal.push_back(key);
    }
    EXPECT_EQ(textsOf(attributes.commonAttributeKeys(other)), common);
    EXPECT_EQ(textsOf(attributes.objcAttributesIntersection(other)), equal);

    // Both walks stop after a few calls.
    const auto calls = std::min(compared.size(), std::size_t{1 + random() % 3});
    compared.resize(calls);
    Texts seen;
    auto changing = attributes;
    const auto see = [&](const Key& key, const char* sign, bool& stop) {
      changing = {};
      seen.push_back(std::string(key) + sign);
      stop = seen.size() == calls;
    };
    attributes.correlatedEnumerateCommonKeyValueEntries(
        other, [&](const Key& key, const AnyValue* mine, const AnyValue* its, bool& stop) {
          EXPECT_TRUE(*mine == map.at(std::string(key)) && *its == otherMap.at(std::string(key)));
          see(key, *mine == *its ? "=" : "!", stop);
        });
    EXPECT_EQ(std::exchange(seen, {}), compared);
    changing = attributes;
    changing.compare(
        other, [&](const Key& key, const AnyValue&, bool& stop) { see(key, "=", stop); },
        [&](const Key& key, const AnyValue&, const AnyValue&, bool& stop) { see(key, "!", stop); });
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
