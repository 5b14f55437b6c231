#include <quillonic/support/coding.hpp>

#include <gtest/gtest.h>
#include <string>

#include "error_of.hpp"

namespace quillonic {
namespace {

TEST(CodedRecord, KeepsTheOrderOfItsKeysAndNamesTheOneThatIsWrong) {
  CodedRecord record;
  record.add("z", std::int64_t{1});
  record.add("a", CodedList{true, 0.5});
  EXPECT_EQ(record.members().front().key, "z");
  EXPECT_EQ(record.require<std::int64_t>("z"), 1);
  EXPECT_EQ(record.optional<std::string>("missing"), nullptr);
  EXPECT_EQ(undecodedKey([&] { return record.require<std::string>("missing"); }), "missing");
  EXPECT_EQ(undecodedKey([&] { return record.optional<std::string>("z"); }), "z");
  EXPECT_EQ(undecodedKey([&] { return record.require<double>("z"); }), "z");
  EXPECT_EQ(undecodedKey([] { return CodedValue().require<CodedRecord>(); }), "");
  const CodedValue value = record;
  EXPECT_EQ(value, CodedValue(record));
  record.add("more", CodedValue());
  EXPECT_NE(value, CodedValue(record));
}

struct Uncodable {};

struct RecordOfUncodable {
  Uncodable field;
};

}  // namespace

template <> struct FieldTable<RecordOfUncodable> {
  static constexpr std::tuple fields{Field{"field", &RecordOfUncodable::field}};
};

namespace {

static_assert(!Codable<std::vector<Uncodable>> && !Codable<std::vector<RecordOfUncodable>>);

// What holds fewer levels is destroyed, copied and compared by recursion.
TEST(CodedValue, RefusesMoreLevelsThanTheStackHolds) {
  CodedValue value;
  std::size_t depth = 0;
  const auto wrap = [&] {
    for (;; ++depth) {
      CodedRecord record;
      record.add("key", value);
      value = depth % 2 == 0 ? CodedValue(std::move(record)) : CodedValue(CodedList{std::move(value)});
    }
  };
  EXPECT_EQ(undecodedKey(wrap), "");
  EXPECT_EQ(depth, greatestCodedDepth);
  EXPECT_EQ(value, CodedValue(value));
}

}  // namespace
}  // namespace quillonic
