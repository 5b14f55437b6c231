#include <quillonic/selection/byte_size.hpp>
#include <quillonic/selection/criterion.hpp>

#include <limits>

#include "selection/criterion_words.hpp"
#include "selection/moments.hpp"

namespace quillonic::selection {
namespace {

std::string worded(std::string_view text) {
  if (!text.empty() && text.find_first_of(words::separators) == std::string_view::npos)
    return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted.append("\"");
}

template <class Values, class TextOf>
std::string listed(const Values& values, std::string_view separator, TextOf textOf) {
  std::string list;
  for (const auto& value : values) {
    if (!list.empty()) list += separator;
    list += textOf(value);
  }
  return list;
}

std::string rawText(const Kind& kind) {
  return std::visit([](auto value) { return std::string(rawValue(value)); }, kind);
}

std::string text(const KindCondition& condition) {
  return std::string(words::kind) + " " + listed(condition.kinds, ", ", rawText);
}

std::string text(const ExtensionCondition& condition) {
  return std::string(words::extension) + " " + listed(condition.extensions, ", ", worded);
}

std::string text(const NameCondition& condition) {
  return std::string(condition.ignoresCase ? words::anyCaseName : words::name) + " " +
         worded(condition.pattern);
}

std::string text(const TimeSpan& span) {
  std::string both;
  if (span.since) both.append(" ").append(words::since).append(" ").append(moments::text(*span.since));
  if (span.before) both.append(" ").append(words::before).append(" ").append(moments::text(*span.before));
  return both;
}

std::string text(const TimeFrame& frame) {
  return std::string(" ").append(frame.text());
}

std::string text(const DateCondition& condition) {
  return std::string(rawValue(condition.date)) +
         std::visit([](const auto& when) { return text(when); }, condition.when);
}

// "> 1 GB" rather than ">= 1000000001".
std::string bound(std::string_view above, std::uint64_t limit, std::string_view orEqual, std::uint64_t size) {
  const auto exclusive = byteSizeText(limit);
  const auto inclusive = byteSizeText(size);
  const auto isShorter = exclusive.size() < inclusive.size();
  return std::string(isShorter ? above : orEqual) + " " + (isShorter ? exclusive : inclusive);
}

std::string text(const SizeCondition& condition) {
  const auto [least, most] = condition;
  const auto size = std::string(words::size) + " ";
  if (least > most) return size + "< 0 B";
  if (least == most) return size + "= " + byteSizeText(least);
  if (most == std::numeric_limits<std::uint64_t>::max()) {
    return size + (least == 0 ? ">= 0 B" : bound(">", least - 1, ">=", least));
  }
  if (least == 0) return size + bound("<", most + 1, "<=", most);
  return size + byteSizeText(least) + " " + std::string(words::to) + " " + byteSizeText(most);
}

std::string text(const HiddenCondition& /*condition*/) {
  return std::string(words::hidden);
}

std::string text(const VolumeCondition& condition) {
  return std::string(words::volume) + " " + worded(condition.place.native());
}

std::string inParentheses(std::string_view text) {
  return std::string("(").append(text).append(")");
}

std::string text(const Combination& combination) {
  const bool isAll = combination.of == Combination::Of::all;
  const bool isNone = combination.of == Combination::Of::none;
  const auto count = combination.members.size();
  if (count == 0) return std::string(isAll ? words::everything : words::nothing);
  const auto word = isAll ? words::conjunction : words::disjunction;
  const auto joint = std::string(" ").append(word).append(" ");
  auto all = listed(combination.members, joint, [&](const Criterion& member) {
    const auto* inner = std::get_if<Combination>(&member.alternatives());
    // "and" binds closer than "or", and "not" closest.
    const bool isOpen = inner && inner->members.size() > 1 && inner->of != Combination::Of::none &&
                        (isAll || (isNone && count == 1));
    return isOpen ? inParentheses(member.text()) : member.text();
  });
  if (!isNone) return all;
  return std::string(words::negation).append(" ").append(count > 1 ? inParentheses(all) : all);
}

}  // namespace

std::string Criterion::text() const {
  return std::visit([](const auto& value) { return selection::text(value); }, value_);
}

}  // namespace quillonic::selection
