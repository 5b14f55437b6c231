#include <quillonic/tool_cli/argument_store.hpp>

#include <gtest/gtest.h>
#include <string>
#include <vector>

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

std::vector<std::string> values(const CliArgumentStore& store, std::string_view list) {
  std::vector<std::string> found;
  store.enumerateListValues(list, [&](std::string_view value) { found.emplace_back(value); });
  return found;
}

TEST(CliArgumentStore, WritesItsTextsInOrderAndItsDictionaryByKey) {
  EXPECT_EQ(Store().cliString(), "-b 1 -a");
  EXPECT_EQ(Store().commandLineArguments(), (std::vector<std::string>{"-a", "", "-b", "1"}));
}

TEST(CliArgumentStore, BuildsAListWithoutAClosingMark) {
  EXPECT_EQ(Store().buildCLIList(std::vector<std::string>{}), "");
  EXPECT_EQ(Store().buildCLIList(std::vector<std::string>{"a"}), "[a");
  EXPECT_EQ(Store().buildCLIList(std::vector<std::string_view>{"a", "b", "c"}), "[a b c");
  EXPECT_EQ(OtherSyntax().buildCLIList(std::vector<const char*>{"a", "b"}), "<\u00aba,\u00b7b");
}

TEST(CliArgumentStore, TakesAListApart) {
  using Values = std::vector<std::string>;
  EXPECT_EQ(values(Store(), "[a b"), (Values{"a", "b"}));
  EXPECT_EQ(values(Store(), ""), Values{""});
  EXPECT_EQ(values(Store(), "["), Values{""});
  EXPECT_EQ(values(Store(), "[[a[b [["), (Values{"a[b", ""}));
  EXPECT_EQ(values(Store(), " a  \xff "), (Values{"", "a", "", "\xff", ""}));
  // Separators are characters: a byte that two of them share does not divide.
  EXPECT_EQ(values(OtherSyntax(), "\u00aba\u00b7b,\u00b8<"), (Values{"a", "b", "\u00b8"}));
}

}  // namespace
}  // namespace quillonic
