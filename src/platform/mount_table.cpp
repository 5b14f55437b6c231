#include <quillonic/platform/mount_table.hpp>

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

#include "platform/number_text.hpp"
#include "platform/path_text.hpp"

namespace quillonic {
namespace {

// Takes a text apart at a separator. Two separators in a row enclose an empty piece: a mount may have an
// empty source.
class Pieces {
 public:
  Pieces(std::string_view text, char separator) noexcept : rest_(text), separator_(separator) {}

  std::optional<std::string_view> next() noexcept {
    if (ended_) return std::nullopt;
    const auto end = rest_.find(separator_);
    const auto piece = rest_.substr(0, end);
    ended_ = end == std::string_view::npos;
    if (!ended_) rest_.remove_prefix(end + 1);
    return piece;
  }

 private:
  std::string_view rest_;
  char separator_;
  bool ended_ = false;
};

constexpr bool isOctal(char c) noexcept {
  return c >= '0' && c <= '7';
}

std::string withoutOctalEscapes(std::string_view field) {
  std::string text;
  text.reserve(field.size());
  for (std::size_t at = 0; at < field.size();) {
    const auto code = field.substr(at, 4);
    const bool isEscape = code.size() == 4 && code[0] == '\\' && code[1] >= '0' && code[1] <= '3' &&
                          isOctal(code[2]) && isOctal(code[3]);
    if (isEscape) {
      const auto byte = (code[1] - '0') * 64 + (code[2] - '0') * 8 + (code[3] - '0');
      text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
    } else {
      text.push_back(field[at]);
    }
    at += isEscape ? 4 : 1;
  }
  return text;
}

bool hasOption(std::string_view options, std::string_view wanted) noexcept {
  Pieces pieces(options, ',');
  while (const auto option = pieces.next()) {
    if (*option == wanted) return true;
  }
  return false;
}

std::optional<Mount> mountFromLine(std::string_view line) {
  Pieces fields(line, ' ');
  const auto next = [&] { return fields.next().value_or(std::string_view{}); };
  const auto identifier = number_text::read<std::uint64_t>(next());
  const auto parent = number_text::read<std::uint64_t>(next());
  Pieces device(next(), ':');
  const auto major = number_text::read<std::uint32_t>(device.next().value_or(std::string_view{}));
  const auto minor = number_text::read<std::uint32_t>(device.next().value_or(std::string_view{}));
  if (!identifier || !parent || !major || !minor) return std::nullopt;
  const auto root = next();
  const auto mountPoint = next();
  const auto options = next();
  for (auto optional = fields.next(); optional != "-"; optional = fields.next()) {
    if (!optional) return std::nullopt;
  }
  const auto kind = next();
  const auto source = next();
  const auto superOptions = fields.next();
  if (!mountPoint.starts_with('/') || !superOptions) return std::nullopt;
  return Mount{.identifier = *identifier,
               .parentIdentifier = *parent,
               .deviceMajor = *major,
               .deviceMinor = *minor,
               .root = withoutOctalEscapes(root),
               .mountPoint = withoutOctalEscapes(mountPoint),
               .kind = withoutOctalEscapes(kind),
               .source = withoutOctalEscapes(source),
               .isReadOnly = hasOption(options, "ro") || hasOption(*superOptions, "ro"),
               .superOptions = withoutOctalEscapes(*superOptions)};
}

}  // namespace

MountTable MountTable::fromText(std::string_view text) {
  MountTable table;
  Pieces lines(text, '\n');
  while (const auto line = lines.next()) {
    if (auto mount = mountFromLine(*line)) table.mounts_.push_back(std::move(*mount));
  }
  table.byIdentifier_.resize(table.mounts_.size());
  std::iota(table.byIdentifier_.begin(), table.byIdentifier_.end(), std::size_t{0});
  std::ranges::stable_sort(table.byIdentifier_, {},
                           [&](std::size_t position) { return table.mounts_[position].identifier; });
  return table;
}

const Mount* MountTable::withIdentifier(std::uint64_t identifier) const noexcept {
  const auto identifierAt = [&](std::size_t position) { return mounts_[position].identifier; };
  const auto found = std::ranges::lower_bound(byIdentifier_, identifier, {}, identifierAt);
  return found != byIdentifier_.end() && identifierAt(*found) == identifier ? &mounts_[*found] : nullptr;
}

const Mount* MountTable::withLongestMountPoint(const std::filesystem::path& resolved) const noexcept {
  const Mount* longest = nullptr;
  for (const auto& mount : mounts_) {
    const auto& point = mount.mountPoint.native();
    if (!path_text::isWithin(resolved.native(), point)) continue;
    if (!longest || point.size() >= longest->mountPoint.native().size()) longest = &mount;
  }
  return longest;
}

}  // namespace quillonic
