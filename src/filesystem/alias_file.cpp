#include <quillonic/filesystem/alias_file.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <utility>
#include <variant>

#include "text/find_sorted.hpp"

namespace quillonic {
namespace {

enum RecordType : std::uint32_t {
  textRecord = 0x0101,
  bytesRecord = 0x0201,
  integer8Record = 0x0301,
  integer16Record = 0x0302,
  integer32Record = 0x0303,
  integer64Record = 0x0304,
  dateRecord = 0x0400,
  arrayRecord = 0x0601,
  urlRecord = 0x0901,
  nullRecord = 0x0A01,
};

enum Key : std::uint32_t {
  pathKey = 0x1004,
  identifiersKey = 0x1005,
  volumeURLKey = 0x2005,
};

constexpr std::string_view aliasMark("book\0\0\0\0mark\0\0\0\0", AliasFile::markSize);
constexpr std::uint32_t versionMark = 0x10040000;
constexpr std::uint32_t tableMark = 0xFFFFFFFE;
constexpr std::size_t greatestTableCount = 64;
constexpr std::size_t greatestEntryCount = 4096;
constexpr std::size_t greatestNameCount = 512;
constexpr std::size_t greatestNameSize = 1024;

// Dates count from 2001.
constexpr std::int64_t epoch = 978307200;

// The number in the leading bytes; there must be enough of them.
template <class Unsigned> Unsigned littleEndian(std::string_view bytes) noexcept {
  std::array<char, sizeof(Unsigned)> digits;
  std::memcpy(digits.data(), bytes.data(), digits.size());
  if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(digits);
  return std::bit_cast<Unsigned>(digits);
}

template <class Unsigned> std::string littleEndianBytes(Unsigned number) {
  std::string bytes(sizeof(Unsigned), '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<char>(static_cast<unsigned char>(number >> (8 * i)));
  }
  return bytes;
}

// Toward zero: the earliest date has no whole second before it.
double secondsOf(Date date) {
  const auto sinceEpoch = date.time_since_epoch();
  const auto whole = std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch);
  return static_cast<double>(whole.count() - epoch) +
         static_cast<double>((sinceEpoch - whole).count()) / 1'000'000'000;
}

std::optional<Date> dateOf(double seconds) {
  constexpr double farthest = 8'000'000'000;  // within a date's range in both directions
  if (!(std::abs(seconds) < farthest)) return std::nullopt;
  const double whole = std::floor(seconds);
  return Date(std::chrono::seconds(static_cast<std::int64_t>(whole) + epoch) +
              std::chrono::nanoseconds(std::llround((seconds - whole) * 1'000'000'000)));
}

struct Record {
  std::uint32_t type;
  std::string_view payload;
};

// The data section of an alias file. Every number in it is checked before use.
class Data {
 public:
  // Nothing without a header, or if the header announces more bytes than there are.
  static std::optional<Data> of(std::string_view bytes) {
    const auto number = [&](std::size_t at) { return littleEndian<std::uint32_t>(bytes.substr(at, 4)); };
    if (bytes.size() < 32) return std::nullopt;
    const bool isFile = bytes.starts_with(aliasMark);
    if (!isFile && (!bytes.starts_with("book") || number(8) != versionMark)) return std::nullopt;
    const std::uint64_t header = number(isFile ? 16 : 12);
    const std::uint64_t end = isFile ? header + number(24) : number(4);
    if (header < 16 || header > end || end > bytes.size()) return std::nullopt;
    return Data(bytes.substr(header, end - header));
  }

  std::optional<std::uint32_t> numberAt(std::uint64_t offset) const noexcept {
    if (offset > bytes_.size() || bytes_.size() - offset < 4) return std::nullopt;
    return littleEndian<std::uint32_t>(bytes_.substr(offset, 4));
  }

  std::optional<Record> recordAt(std::uint64_t offset) const noexcept {
    const auto length = numberAt(offset);
    const auto type = numberAt(offset + 4);
    if (!length || !type || bytes_.size() - (offset + 8) < *length) return std::nullopt;
    return Record{*type, bytes_.substr(offset + 8, *length)};
  }

  // The record offsets by key, from all tables of contents; the first of equal keys counts. Nothing if a
  // table is outside the data or malformed.
  std::optional<std::vector<std::pair<std::uint32_t, std::uint32_t>>> contents() const {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> entries;
    auto table = numberAt(0);
    // A cycle of tables ends at the greatest count, like too many tables.
    for (std::size_t count = 0; count < greatestTableCount; ++count) {
      if (!table || numberAt(*table + std::uint64_t{4}) != tableMark) return std::nullopt;
      const std::uint64_t start = *table;
      const auto next = numberAt(start + 12);
      const auto entryCount = numberAt(start + 16);
      // The table's own length is ignored, because writers count differently.
      if (!next || !entryCount || (bytes_.size() - start - 20) / 12 < *entryCount) return std::nullopt;
      if (entries.size() + *entryCount > greatestEntryCount) return std::nullopt;
      entries.reserve(entries.size() + *entryCount);
      for (std::uint64_t at = start + 20; at < start + 20 + std::uint64_t{12} * *entryCount; at += 12) {
        entries.emplace_back(*numberAt(at), *numberAt(at + 4));
      }
      table = next;
      if (*next == 0) {
        std::ranges::stable_sort(entries, {}, &std::pair<std::uint32_t, std::uint32_t>::first);
        return entries;
      }
    }
    return std::nullopt;
  }

 private:
  explicit Data(std::string_view bytes) noexcept : bytes_(bytes) {}

  std::string_view bytes_;
};

std::optional<std::string> textOf(const Record& record) {
  const bool isText = record.type == textRecord && record.payload.find('\0') == std::string_view::npos;
  return isText ? std::optional(std::string(record.payload)) : std::nullopt;
}

template <class Unsigned> std::optional<std::int64_t> integerOf(std::string_view payload) noexcept {
  if (payload.size() != sizeof(Unsigned)) return std::nullopt;
  return static_cast<std::make_signed_t<Unsigned>>(littleEndian<Unsigned>(payload));
}

// One overload per kind of value: reads it from a record, and writes it as one.
void read(const Record& record, std::optional<std::string>& value) {
  value = textOf(record);
}

void read(const Record& record, std::optional<std::int64_t>& value) {
  switch (record.type) {
    case integer8Record:
      value = integerOf<std::uint8_t>(record.payload);
      break;
    case integer16Record:
      value = integerOf<std::uint16_t>(record.payload);
      break;
    case integer32Record:
      value = integerOf<std::uint32_t>(record.payload);
      break;
    case integer64Record:
      value = integerOf<std::uint64_t>(record.payload);
      break;
    default:
      break;
  }
}

void read(const Record& record, std::optional<Date>& value) {
  if (record.type != dateRecord || record.payload.size() != 8) return;
  std::string reversed(record.payload.rbegin(), record.payload.rend());
  value = dateOf(std::bit_cast<double>(littleEndian<std::uint64_t>(reversed)));
}

void read(const Record& record, std::optional<AliasFile::Properties>& value) {
  if (record.type != bytesRecord || record.payload.size() < 16) return;
  value = AliasFile::Properties{littleEndian<std::uint64_t>(record.payload.substr(0, 8)),
                                littleEndian<std::uint64_t>(record.payload.substr(8, 8))};
}

struct OwnedRecord {
  std::uint32_t type;
  std::string payload;
};

OwnedRecord recordOf(const std::string& text) {
  return {textRecord, text};
}

OwnedRecord recordOf(std::int64_t number) {
  if (std::in_range<std::int32_t>(number)) {
    return {integer32Record,
            littleEndianBytes(static_cast<std::uint32_t>(static_cast<std::int32_t>(number)))};
  }
  return {integer64Record, littleEndianBytes(static_cast<std::uint64_t>(number))};
}

OwnedRecord recordOf(Date date) {
  auto bytes = littleEndianBytes(std::bit_cast<std::uint64_t>(secondsOf(date)));
  std::ranges::reverse(bytes);
  return {dateRecord, std::move(bytes)};
}

OwnedRecord recordOf(const AliasFile::Properties& properties) {
  const auto mask = littleEndianBytes(properties.mask);
  return {bytesRecord, littleEndianBytes(properties.flags).append(mask).append(mask)};
}

using Member =
    std::variant<std::optional<std::string> AliasFile::*, std::optional<std::int64_t> AliasFile::*,
                 std::optional<Date> AliasFile::*, std::optional<AliasFile::Properties> AliasFile::*>;

struct KeyedMember {
  std::uint32_t key;
  Member member;
};

// Everything recorded except the path, by key.
constexpr auto fields = std::to_array<KeyedMember>({
    {0x1010, &AliasFile::targetProperties},
    {0x1040, &AliasFile::targetCreationDate},
    {0x1054, &AliasFile::relativeDirsUp},
    {0x1055, &AliasFile::relativeDirsDown},
    {0x2002, &AliasFile::volumePath},
    {0x2010, &AliasFile::volumeName},
    {0x2011, &AliasFile::volumeUUID},
    {0x2020, &AliasFile::volumeProperties},
    {0xC001, &AliasFile::componentsBelowHome},
    {0xC011, &AliasFile::userName},
    {0xC012, &AliasFile::userID},
    {0xD010, &AliasFile::creationOptions},
    {0xF017, &AliasFile::displayName},
});

bool isPlainName(std::string_view name) noexcept {
  return !name.empty() && name != "." && name != ".." && name.size() <= greatestNameSize &&
         name.find('/') == std::string_view::npos;
}

std::optional<std::vector<std::string>> pathOf(const Data& data, const Record& record) {
  if (record.type != arrayRecord || record.payload.size() % 4 != 0) return std::nullopt;
  if (record.payload.size() / 4 > greatestNameCount) return std::nullopt;
  std::vector<std::string> names;
  names.reserve(record.payload.size() / 4);
  for (std::size_t at = 0; at < record.payload.size(); at += 4) {
    const auto element = data.recordAt(littleEndian<std::uint32_t>(record.payload.substr(at, 4)));
    auto name = element ? textOf(*element) : std::nullopt;
    if (!name || !isPlainName(*name)) return std::nullopt;
    names.push_back(*std::move(name));
  }
  return names;
}

// Letters, digits and the other characters that a path may have unescaped.
std::string fileURL(std::string_view path) {
  constexpr std::string_view unescaped =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : path) {
    if (unescaped.find(c) != std::string_view::npos) {
      url.push_back(c);
    } else {
      const auto byte = static_cast<unsigned char>(c);
      url.append({'%', digits[byte >> 4U], digits[byte & 0xFU]});
    }
  }
  if (!url.ends_with('/')) url.push_back('/');
  return url;
}

// Writes the data section: the records, then the table of contents.
class Writer {
 public:
  std::uint32_t add(const OwnedRecord& record) {
    const auto offset = static_cast<std::uint32_t>(data_.size());
    data_ += littleEndianBytes(static_cast<std::uint32_t>(record.payload.size()));
    data_ += littleEndianBytes(record.type);
    data_ += record.payload;
    data_.resize((data_.size() + 3) / 4 * 4);
    return offset;
  }

  std::uint32_t addArray(const std::vector<std::uint32_t>& offsets) {
    std::string payload;
    for (const auto offset : offsets) payload += littleEndianBytes(offset);
    return add({arrayRecord, std::move(payload)});
  }

  void list(std::uint32_t key, std::uint32_t offset) { entries_.emplace_back(key, offset); }

  std::string finish() {
    std::ranges::sort(entries_);
    const auto table = littleEndianBytes(static_cast<std::uint32_t>(data_.size()));
    data_.replace(0, table.size(), table);
    const auto count = static_cast<std::uint32_t>(entries_.size());
    for (const std::uint32_t number : {12 + 12 * count, tableMark, 1U, 0U, count}) {
      data_ += littleEndianBytes(number);
    }
    for (const auto& [key, offset] : entries_) {
      for (const std::uint32_t number : {key, offset, 0U}) data_ += littleEndianBytes(number);
    }
    return std::move(data_);
  }

 private:
  std::string data_ = std::string(4, '\0');  // becomes the offset of the table
  std::vector<std::pair<std::uint32_t, std::uint32_t>> entries_;
};

}  // namespace

bool AliasFile::isAliasFile(std::string_view firstBytes) noexcept {
  return firstBytes.starts_with(aliasMark);
}

std::optional<AliasFile> AliasFile::fromBytes(std::string_view bytes) {
  const auto data = bytes.size() <= greatestSize ? Data::of(bytes) : std::nullopt;
  const auto contents = data ? data->contents() : std::nullopt;
  if (!contents) return std::nullopt;
  const auto recordOfKey = [&](std::uint32_t key) -> std::optional<Record> {
    const auto* entry = findSorted(*contents, key, &std::pair<std::uint32_t, std::uint32_t>::first);
    return entry ? data->recordAt(entry->second) : std::nullopt;
  };

  const auto path = recordOfKey(pathKey);
  auto names = path ? pathOf(*data, *path) : std::nullopt;
  if (!names) return std::nullopt;
  AliasFile alias;
  alias.pathComponents = *std::move(names);
  for (const auto& field : fields) {
    const auto record = recordOfKey(field.key);
    if (!record) continue;
    std::visit([&](auto member) { read(*record, alias.*member); }, field.member);
  }
  return alias;
}

std::string AliasFile::bytes(Date madeAt) const {
  Writer writer;
  std::vector<std::uint32_t> names;
  for (const auto& name : pathComponents) names.push_back(writer.add({textRecord, name}));
  writer.list(pathKey, writer.addArray(names));
  // The numbers that identify the items in another system are unknown here.
  const auto unknown = writer.add({nullRecord, {}});
  writer.list(identifiersKey, writer.addArray(std::vector(names.size(), unknown)));
  for (const auto& field : fields) {
    std::visit(
        [&](auto member) {
          const auto& value = this->*member;
          if (value) writer.list(field.key, writer.add(recordOf(*value)));
        },
        field.member);
  }
  if (volumePath) writer.list(volumeURLKey, writer.add({urlRecord, fileURL(*volumePath)}));

  const auto data = writer.finish();
  constexpr std::uint32_t headerSize = 56;
  std::string bytes(aliasMark);
  for (const auto number :
       {headerSize, headerSize, static_cast<std::uint32_t>(data.size()), versionMark, 0U, 0U}) {
    bytes += littleEndianBytes(number);
  }
  bytes += littleEndianBytes(std::bit_cast<std::uint64_t>(secondsOf(madeAt)));
  bytes.resize(headerSize);
  return bytes + data;
}

}  // namespace quillonic
