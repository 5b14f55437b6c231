/// Writes any record of command-line settings as words, as one text, and as lists.
///
///     auto words = settings.launchArguments();          // what starts a child
///     custodial.appendTo(words);
///     log(shellQuoted(words));                          // see shell_quoting.hpp
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/text_dictionary.hpp>

#include <concepts>
#include <initializer_list>
#include <ranges>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Mix-in for a record of command-line settings. A record supplies its ordered texts and its dictionary, and
/// may change the list syntax. Writing changes nothing and throws only when memory runs out.
class QUILLONIC_EXPORT CliArgumentStore {
 public:
  virtual ~CliArgumentStore();

  /// The texts of `cliString`, in order.
  virtual std::vector<std::string> orderedCLITexts() const = 0;
  /// The settings by flag; a flag without a value has the empty text.
  virtual TextDictionary argumentLookup() const = 0;
  /// The characters that open a list. Reading removes any of them from both ends.
  virtual std::string_view listPrefix() const;
  /// The text between two values of a written list. Any of its characters separates values when a list is
  /// read.
  virtual std::string_view listValueSeparator() const;

  /// The words that start a child with these settings, in order, one element a word. Every record has them
  /// under this name; `commandLineArguments` and `orderedCLITexts` are not both such a list in every record.
  virtual std::vector<std::string> launchArguments() const;
  /// Appends `launchArguments`, so that one child gets the words of several records.
  void appendTo(std::vector<std::string>& words) const;

  /// Joins the ordered texts without spaces or quotes: a fixed form, although it cannot be split again;
  /// `shellQuoted` writes a line that can.
  virtual std::string cliString() const;

  /// Every flag and its value as two words, in key order. A flag without a value has an empty word.
  virtual std::vector<std::string> commandLineArguments() const;

  /// Writes several values as one: "[a b c", without a closing mark. No values give the empty text.
  template <std::ranges::forward_range Values>
  requires std::convertible_to<std::ranges::range_reference_t<Values>, std::string_view> std::string
  buildCLIList(const Values& fromValues)
  const {
    std::string list;
    std::string_view before = listPrefix();
    for (std::string_view value : fromValues) {
      list.append(before).append(value);
      before = listValueSeparator();
    }
    return list;
  }

  /// Writes values listed in braces.
  std::string buildCLIList(std::initializer_list<std::string_view> fromValues) const {
    return buildCLIList<std::initializer_list<std::string_view>>(fromValues);
  }

  /// Calls `block` with each value of a list, in order; the views refer to `list`. Two separators in a row
  /// enclose an empty value, and an empty text is one empty value.
  void enumerateListValues(std::string_view list, FunctionRef<void(std::string_view value)> block) const;

 protected:
  CliArgumentStore() = default;
  CliArgumentStore(const CliArgumentStore&) = default;
  CliArgumentStore(CliArgumentStore&&) = default;
  CliArgumentStore& operator=(const CliArgumentStore&) = default;
  CliArgumentStore& operator=(CliArgumentStore&&) = default;
};

}  // namespace quillonic
