#include <quillonic/tool_cli/argument_store.hpp>

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "texts.hpp"

namespace quillonic {
namespace {

class Store : public CliArgumentStore {
 public:
  std::vector<std::string> orderedCLITexts() const override { return {"-b ", "1 ", "-a"}; }
  TextDictionary argumentLookup() const override { return {{"-b", "1"}, {"-a", ""}}; }
};

class OtherSyntax : public Store {
 public:
  std::string_view listPrefix() const override { return "<\u00ab"; }
  std::string_view listValueSeparator() const override { return ",\u00b7"; }
};

// The values, each after a bar.
std::string values(const CliArgumentStore& store, std::string_view list) {
  std::string found;
  store.enumerateListValues(list, [&](std::string_view value) { found.append("|").append(value); });
  return found;
}

TEST(CliArgumentStore, WritesItsTextsInOrderAndItsDictionaryByKey) {
  EXPECT_EQ(Store().cliString(), "-b 1 -a");
  EXPECT_EQ(joined(Store().commandLineArguments(), '|'), "-a||-b|1");
}

TEST(CliArgumentStore, BuildsAListWithoutAClosingMarkAndTakesItApart) {
  EXPECT_EQ(Store().buildCLIList(std::vector<std::string>{}), "");
  EXPECT_EQ(Store().buildCLIList(std::vector<std::string>{"a"}), "[a");
  EXPECT_EQ(Store().buildCLIList({"a", "b", "c"}), "[a b c");
  EXPECT_EQ(OtherSyntax().buildCLIList(std::vector<const char*>{"a", "b"}), "<\u00aba,\u00b7b");
  EXPECT_EQ(values(Store(), "[a b"), "|a|b");
  EXPECT_EQ(values(Store(), ""), "|");
  EXPECT_EQ(values(Store(), "["), "|");
  EXPECT_EQ(values(Store(), "[[a[b [["), "|a[b|");
  EXPECT_EQ(values(Store(), " a  \xff "), "||a||\xff|");
  // Separators are characters: a byte that two of them share does not separate.
  EXPECT_EQ(values(OtherSyntax(), "\u00aba\u00b7b,\u00b8<"), "|a|b|\u00b8");
}

}  // namespace
}  // namespace quillonic
