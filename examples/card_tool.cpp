// Says whose card a folder is, which clips are in it, and what is wrong with them.
//
// usage: card_tool DIR [--json]
//
// Ends with 1 if the folder cannot be read, and 2 for wrong arguments. In JSON, a byte of a name that is not UTF-8
// is the escaped surrogate U+DC00 plus the byte.
#include <quillonic/catalogue.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

using namespace quillonic;
using namespace quillonic::catalogue;

namespace {

// The bytes of the scalar at the start of a text; 0 if it is not UTF-8.
std::size_t scalarLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length > text.size() || (lead >= 0x80 && lead < 0xC2) || lead > 0xF4) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return 0;
  }
  const bool isOutside = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) >= 0xA0) ||
                         (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) >= 0x90);
  return isOutside ? 0 : length;
}

std::string jsonText(std::string_view text) {
  std::string result = "\"";
  const auto escape = [&](unsigned number) {
    char code[8];
    std::snprintf(code, sizeof code, "\\u%04x", number);
    result += code;
  };
  while (!text.empty()) {
    const auto length = scalarLength(text);
    const auto byte = static_cast<unsigned char>(text.front());
    if (length == 0) {
      escape(0xDC00U + byte);
    } else if (byte < 0x20) {
      escape(byte);
    } else {
      if (byte == '"' || byte == '\\') result += '\\';
      result += text.substr(0, length);
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result + '"';
}

std::string field(std::string_view key, std::string_view value) {
  return jsonText(key) + ": " + std::string(value);
}

template <class Items, class Text> std::string list(const Items& items, Text text) {
  std::string result = "[";
  for (const auto& item : items) {
    if (result.size() > 1) result += ", ";
    result += text(item);
  }
  return result + "]";
}

std::string object(const std::vector<std::string>& fields) {
  std::string result = "{";
  for (const auto& each : fields) result += (result.size() > 1 ? ", " : "") + each;
  return result + "}";
}

std::string jsonOf(const Problem& problem) {
  return object({field("kind", jsonText(rawValue(problem.kind))), field("subject", jsonText(problem.subject)),
                 field("text", jsonText(description(problem)))});
}

std::string jsonOf(const FrameSpan& span) {
  return object({field("first", std::to_string(span.first)), field("last", std::to_string(span.last))});
}

std::string jsonOf(const ClipFile& file) {
  std::vector<std::string> fields{field("path", jsonText(file.path)),
                                  field("role", jsonText(rawValue(file.role))),
                                  field("size", std::to_string(file.size))};
  if (file.number) fields.push_back(field("number", std::to_string(*file.number)));
  return object(fields);
}

std::string jsonOf(const LooseFile& file) {
  return object({field("path", jsonText(file.path)), field("size", std::to_string(file.size)),
                 field("leftover", file.isLeftover ? "true" : "false")});
}

std::string jsonOf(const UnreadItem& item) {
  return object({field("path", jsonText(item.path)), field("error", jsonText(item.error.message()))});
}

std::string jsonOf(const Card& card) {
  return object({field("layout", jsonText(rawValue(card.layout))),
                 field("maker", jsonText(maker(card.layout))), field("family", jsonText(family(card.layout))),
                 field("root", jsonText(card.root)), field("confidence", jsonText(rawValue(card.confidence))),
                 field("byFiles", card.isByFiles ? "true" : "false"),
                 field("evidence", list(card.evidence, jsonText))});
}

std::string jsonOf(const Clip& clip) {
  const auto each = [](const auto& item) { return jsonOf(item); };
  std::vector<std::string> fields{field("name", jsonText(clip.name)),
                                  field("kind", jsonText(rawValue(clip.kind))),
                                  field("card", clip.card ? std::to_string(*clip.card) : "null"),
                                  field("parts", std::to_string(clip.essenceCount())),
                                  field("size", std::to_string(clip.totalSize())),
                                  field("files", list(clip.files, each)),
                                  field("problems", list(clip.problems, each))};
  if (clip.frames) {
    fields.push_back(field("frames", jsonOf(*clip.frames)));
    fields.push_back(field("missingFrames", list(clip.missingFrames, each)));
  }
  return object(fields);
}

void printJson(const CardContents& contents) {
  const auto each = [](const auto& item) { return "\n    " + jsonOf(item); };
  std::cout << "{\n  " << field("cards", list(contents.cards, each)) << ",\n  "
            << field("clips", list(contents.clips, each)) << ",\n  "
            << field("bookkeeping", list(contents.bookkeeping, each)) << ",\n  "
            << field("other", list(contents.other, each)) << ",\n  "
            << field("unread", list(contents.unread, each)) << ",\n  "
            << field("problems", list(contents.problems, each)) << "\n}\n";
}

// One line, whatever bytes a name has.
std::string shown(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
  return line;
}

void printTable(const CardContents& contents) {
  for (const auto& card : contents.cards) {
    std::cout << maker(card.layout) << ", " << family(card.layout) << " in "
              << (card.root.empty() ? "." : shown(card.root)) << " (" << rawValue(card.confidence)
              << (card.isByFiles ? ", by files" : "") << "):";
    for (const auto& marker : card.evidence) std::cout << ' ' << shown(marker);
    std::cout << '\n';
  }
  if (contents.cards.empty()) std::cout << "No card is known here.\n";
  std::cout << contents.clips.size() << " clips\n";
  for (const auto& clip : contents.clips) {
    std::cout << "  " << std::left << std::setw(32) << shown(clip.name) << ' ' << std::setw(13)
              << rawValue(clip.kind) << std::right << std::setw(5) << clip.essenceCount() << std::setw(16)
              << clip.totalSize() << " bytes\n";
    for (const auto& problem : clip.problems) std::cout << "    ! " << shown(description(problem)) << '\n';
  }
  std::cout << contents.bookkeeping.size() << " files of bookkeeping, " << contents.other.size()
            << " others\n";
  for (const auto& problem : contents.problems) std::cout << "! " << shown(description(problem)) << '\n';
  for (const auto& item : contents.unread)
    std::cout << "! " << shown(item.path) << " cannot be read: " << item.error.message() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string_view> words(argv + 1, argv + argc);
  std::vector<std::string_view> folders;
  std::ranges::copy_if(words, std::back_inserter(folders), [](auto word) { return word != "--json"; });
  if (folders.size() != 1 || folders.front().starts_with('-')) {
    const bool asksForHelp = folders.size() == 1 && (folders[0] == "-h" || folders[0] == "--help");
    (asksForHelp ? std::cout : std::cerr) << "usage: card_tool DIR [--json]\n";
    return asksForHelp ? 0 : 2;
  }
  const auto contents = contentsOf(std::filesystem::path(folders.front()));
  const auto unread = std::ranges::find(contents.unread, "", &UnreadItem::path);
  const bool isMissing = unread != contents.unread.end();
  if (isMissing) std::cerr << "card_tool: " << folders.front() << ": " << unread->error.message() << '\n';
  if (folders.size() < words.size()) {
    printJson(contents);
  } else if (!isMissing) {
    printTable(contents);
  }
  return isMissing ? 1 : 0;
}
