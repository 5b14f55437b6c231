#include <quillonic/offload/hash_list.hpp>
#include <quillonic/offload/offload_error.hpp>
#include <quillonic/support/coding.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <optional>

#include "offload/copying.hpp"
#include "offload/folders.hpp"
#include "offload/whole_seconds.hpp"
#include "support/xml.hpp"
#include "text/ascii.hpp"
#include "text/number_text.hpp"

namespace quillonic::offload {
namespace {

// The digits of each kind of checksum; "xxhash" is a decimal number.
struct ListedKind {
  std::string_view name;
  std::size_t digits;
};
constexpr ListedKind listedKinds[] = {
    {"xxhash64be", 16}, {"xxhash64", 16}, {"md5", 32}, {"sha1", 40}, {"xxhash", 0}};

const ListedKind* listedKind(std::string_view name) noexcept {
  const auto* kind = std::ranges::find(listedKinds, name, &ListedKind::name);
  return kind != std::end(listedKinds) ? kind : nullptr;
}

bool isChecksum(const ListedKind& kind, std::string_view text) noexcept {
  if (kind.digits == 0) return number_text::read<std::uint32_t>(text).has_value();
  return text.size() == kind.digits &&
         text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

bool isControl(char c) noexcept {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

// "2026-11-22T10:30:00Z".
std::string dateText(Date date) {
  using namespace std::chrono;  // NOLINT(google-build-using-namespace): its units are the text
  const auto moment = floor<seconds>(date);
  const auto day = floor<days>(moment);
  const year_month_day calendar(day);
  const hh_mm_ss time(moment - day);
  const auto two = [](auto number) { return number_text::padded(static_cast<std::int64_t>(number), 2); };
  return number_text::padded(int{calendar.year()}, 4) + "-" + two(unsigned{calendar.month()}) + "-" +
         two(unsigned{calendar.day()}) + "T" + two(time.hours().count()) + ":" + two(time.minutes().count()) +
         ":" + two(time.seconds().count()) + "Z";
}

// The number in a fixed part of a text.
std::optional<int> partOf(std::string_view text, std::size_t at, std::size_t size) {
  const auto part = text.substr(std::min(at, text.size()), size);
  const bool isNumber = part.size() == size && part.find_first_not_of("0123456789") == std::string_view::npos;
  return isNumber ? number_text::read<int>(part) : std::nullopt;
}

// Also with a fraction, which is dropped, and with the difference to UTC: "2026-11-22T11:30:00.5+01:00".
std::optional<Date> dateOf(std::string_view text) {
  using namespace std::chrono;  // NOLINT(google-build-using-namespace): its units are the text
  std::array<int, 6> parts{};
  constexpr std::array<std::size_t, 6> positions{0, 5, 8, 11, 14, 17};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto part = partOf(text, positions[i], i == 0 ? 4 : 2);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  const auto [y, m, d, hour, minute, second] = parts;
  const year_month_day day{year(y), month(static_cast<unsigned>(m)),
                           std::chrono::day(static_cast<unsigned>(d))};
  const bool isDate = text[4] == '-' && text[7] == '-' && text[10] == 'T' && text[13] == ':' &&
                      text[16] == ':' && day.ok() && hour < 24 && minute < 60 && second < 61;
  auto rest = text.substr(19);
  if (rest.starts_with('.'))
    rest.remove_prefix(std::min(rest.find_first_not_of("0123456789", 1), rest.size()));
  auto offset = 0min;
  if (rest.starts_with('+') || rest.starts_with('-')) {
    const auto hours = partOf(rest, 1, 2);
    const auto minutes = partOf(rest, 4, 2);
    if (rest.size() != 6 || rest[3] != ':' || !hours || !minutes) return std::nullopt;
    offset = std::chrono::minutes(*hours * 60 + *minutes) * (rest[0] == '+' ? 1 : -1);
    rest = "Z";
  }
  if (!isDate || (rest != "Z" && !rest.empty())) return std::nullopt;
  return nearestDate(sys_days(day) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
                     std::chrono::seconds(second) - offset);
}

void addElement(std::string& text, std::string_view indent, std::string_view name, std::string_view value) {
  text.append(indent).append("<").append(name).append(">");
  text.append(xmlEscaped(value)).append("</").append(name).append(">\n");
}

// Without the bytes that the form cannot have.
std::string writable(std::string text) {
  std::erase_if(text, isControl);
  if (!isUtf8(text)) std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  return text;
}

Date readDate(XmlReader& xml, std::size_t offset) {
  const auto date = dateOf(xml.leaveWithText());
  if (!date) xml.fail(offset, "a date");
  return *date;
}

void readCreator(XmlReader& xml, HashList& list) {
  struct TextField {
    std::string_view name;
    std::string HashList::*member;
  };
  constexpr TextField fields[] = {{"name", &HashList::name},
                                  {"username", &HashList::username},
                                  {"hostname", &HashList::hostname},
                                  {"tool", &HashList::tool}};
  for (XmlReader::Element element; xml.enter(element);) {
    const auto* field = std::ranges::find(fields, element.name, &TextField::name);
    if (field != std::end(fields)) {
      list.*field->member = xml.leaveWithText();
    } else if (element.name == "startdate" || element.name == "finishdate") {
      (element.name == "startdate" ? list.started : list.finished) = readDate(xml, element.offset);
    } else {
      xml.skip();
    }
  }
}

HashListEntry readEntry(XmlReader& xml, std::size_t offset) {
  HashListEntry entry;
  bool hasSize = false;
  constexpr std::string_view fields[] = {"file", "size", "lastmodificationdate", "hashdate"};
  std::vector<std::string_view> known;
  for (XmlReader::Element element; xml.enter(element);) {
    const auto* kind = listedKind(element.name);
    if (kind || std::ranges::find(fields, element.name) != std::end(fields)) {
      if (std::ranges::find(known, element.name) != known.end()) xml.fail(element.offset, "another element");
      known.push_back(element.name);
    }
    if (element.name == "file") {
      entry.file = xml.leaveWithText();
    } else if (element.name == "size") {
      const auto size = number_text::read<std::uint64_t>(xml.leaveWithText());
      if (!size) xml.fail(element.offset, "a size in bytes");
      entry.size = *size;
      hasSize = true;
    } else if (element.name == "lastmodificationdate") {
      entry.modified = readDate(xml, element.offset);
    } else if (element.name == "hashdate") {
      entry.hashed = readDate(xml, element.offset);
    } else if (kind && entry.kind.empty()) {
      entry.kind = kind->name;
      entry.checksum = ascii::loweredText(xml.leaveWithText());
      if (!isChecksum(*kind, entry.checksum)) xml.fail(element.offset, "the digits of a checksum");
    } else {
      xml.skip();
    }
  }
  if (entry.file.empty()) xml.fail(offset, "a hash with a file");
  if (!hasSize) xml.fail(offset, "a hash with a size");
  if (entry.kind.empty()) xml.fail(offset, "a hash with a checksum");
  return entry;
}

HashList readList(std::string_view text) {
  XmlReader xml(text);
  XmlReader::Element element;
  xml.enter(element);
  if (element.name != "hashlist") xml.fail(element.offset, "\"<hashlist\"");
  const auto version =
      std::ranges::find(element.attributes, "version", &std::pair<std::string_view, std::string>::first);
  if (version == element.attributes.end() || !version->second.starts_with("1.")) {
    xml.fail(element.offset, "a hash list of version 1");
  }
  HashList list;
  while (xml.enter(element)) {
    if (element.name == "creatorinfo") {
      readCreator(xml, list);
    } else if (element.name == "hash") {
      list.entries.push_back(readEntry(xml, element.offset));
    } else {
      xml.skip();
    }
  }
  xml.expectEnd();
  return list;
}

std::error_code verify(const HashListEntry& entry, FoldersBelow& folders,
                       std::span<const ChecksumKind* const> kinds, const ProgressBlock& progress) {
  const auto kind =
      std::ranges::find_if(kinds, [&](const ChecksumKind* known) { return known->name == entry.kind; });
  if (kind == kinds.end() || !isBelow(entry.file)) return std::make_error_code(std::errc::invalid_argument);
  const auto folder = folders.folderOf(entry.file);
  if (!folder) return folder.error();
  const auto file = SourceFile::open(nameOf(entry.file), folder->get());
  if (!file) return file.error();
  if (file->status().size != entry.size) return OffloadError::contentDiffers;
  const auto checksum = checksumOf(*file, **kind, progress);
  if (!checksum) return checksum.error();
  return *checksum == ascii::loweredText(entry.checksum) ? std::error_code() : OffloadError::contentDiffers;
}

}  // namespace

bool HashList::canHold(const HashListEntry& entry) noexcept {
  const auto* kind = listedKind(entry.kind);
  return kind && isChecksum(*kind, entry.checksum) && !entry.file.empty() && isUtf8(entry.file) &&
         std::ranges::none_of(entry.file, isControl) && entry.file.find("\uFFFE") == std::string::npos &&
         entry.file.find("\uFFFF") == std::string::npos;
}

void HashList::write(FunctionRef<void(std::string_view piece)> block) const {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<hashlist version=\"1.1\">\n\n  <creatorinfo>\n";
  addElement(text, "    ", "name", writable(name));
  addElement(text, "    ", "username", writable(username));
  addElement(text, "    ", "hostname", writable(hostname));
  addElement(text, "    ", "tool", writable(tool));
  addElement(text, "    ", "startdate", dateText(started));
  addElement(text, "    ", "finishdate", dateText(finished));
  text += "  </creatorinfo>\n";
  for (const auto& entry : entries) {
    if (!canHold(entry)) continue;
    block(text);
    text = "\n  <hash>\n";
    addElement(text, "    ", "file", entry.file);
    addElement(text, "    ", "size", std::to_string(entry.size));
    addElement(text, "    ", "lastmodificationdate", dateText(entry.modified));
    addElement(text, "    ", entry.kind, entry.checksum);
    addElement(text, "    ", "hashdate", dateText(entry.hashed));
    text += "  </hash>\n";
  }
  block(text += "\n</hashlist>\n");
}

std::string HashList::text() const {
  std::string text;
  write([&](std::string_view piece) { text += piece; });
  return text;
}

Result<HashList, ParseError> HashList::fromText(std::string_view text) {
  try {
    return readList(text);
  } catch (ParseError& error) {
    return std::move(error);
  }
}

void verifyHashList(const HashList& list, const std::filesystem::path& folder,
                    std::span<const ChecksumKind* const> kinds,
                    FunctionRef<void(const VerifiedEntry& result, bool& stop)> didVerify,
                    const ProgressBlock& progress) {
  auto root = openedRoot(folder);
  if (!root) throw std::filesystem::filesystem_error("cannot open folder", folder, root.error());
  FoldersBelow folders(*std::move(root));
  std::uint64_t done = 0;
  const auto goesOn = [&](std::uint64_t bytes) { return !progress || progress(done + bytes); };
  bool stop = false;
  for (auto entry = list.entries.begin(); entry != list.entries.end() && !stop; ++entry) {
    const auto error = verify(*entry, folders, kinds, goesOn);
    if (error == std::errc::operation_canceled) return;
    didVerify({&*entry, error}, stop);
    done += entry->size;
  }
}

}  // namespace quillonic::offload
