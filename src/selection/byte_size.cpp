#include <quillonic/selection/byte_size.hpp>

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

#include "selection/written_size.hpp"
#include "text/ascii.hpp"
#include "text/number_text.hpp"

namespace quillonic::selection {
namespace {

struct Unit {
  std::string_view name;
  std::uint64_t bytes;
};

// The largest first, and of two with as many digits the one to write.
constexpr auto units = std::to_array<Unit>({
    {"PB", 1'000'000'000'000'000},
    {"PiB", std::uint64_t{1} << 50U},
    {"TB", 1'000'000'000'000},
    {"TiB", std::uint64_t{1} << 40U},
    {"GB", 1'000'000'000},
    {"GiB", std::uint64_t{1} << 30U},
    {"MB", 1'000'000},
    {"MiB", std::uint64_t{1} << 20U},
    {"kB", 1'000},
    {"KiB", std::uint64_t{1} << 10U},
    {"B", 1},
});

const Unit* unitNamed(std::string_view name) noexcept {
  const auto found = std::ranges::find_if(
      units, [&](const Unit& unit) { return ascii::equalsIgnoringCase(unit.name, name); });
  return found == units.end() ? nullptr : &*found;
}

}  // namespace

bool isSizeUnit(std::string_view word) noexcept {
  return unitNamed(word) != nullptr;
}

std::optional<WrittenSize> writtenSize(std::string_view number, std::string_view unit) noexcept {
  const auto* named = unitNamed(unit.empty() ? "B" : unit);
  if (!named) return std::nullopt;
  const auto point = number.find('.');
  auto fraction = point == std::string_view::npos ? std::string_view() : number.substr(point + 1);
  const auto whole = number_text::read<std::uint64_t>(number.substr(0, point));
  if (!whole || !ascii::isDigits(fraction) || number.ends_with('.')) return std::nullopt;
  // The bytes of the fraction, digit by digit from the last: each step rounds down, and what was lost shows
  // in the rest.
  std::uint64_t part = 0;
  bool isWhole = true;
  for (; !fraction.empty(); fraction.remove_suffix(1)) {
    const auto digit = static_cast<std::uint64_t>(fraction.back() - '0');
    const auto tenfold = digit * named->bytes + part;
    isWhole = isWhole && tenfold % 10 == 0;
    part = tenfold / 10;
  }
  constexpr auto greatest = std::numeric_limits<std::uint64_t>::max();
  if (*whole > (greatest - part) / named->bytes) return std::nullopt;
  return WrittenSize{*whole * named->bytes + part, isWhole};
}

std::string byteSizeText(std::uint64_t bytes) {
  std::string shortest;
  std::string_view name;
  for (const auto& unit : units) {
    const auto thousandths = bytes % unit.bytes * 1000;
    if (bytes < unit.bytes || thousandths % unit.bytes != 0) continue;
    auto text = std::to_string(bytes / unit.bytes);
    if (thousandths != 0) {
      text.append(".").append(number_text::padded(static_cast<std::int64_t>(thousandths / unit.bytes), 3));
      text.erase(text.find_last_not_of('0') + 1);
    }
    if (name.empty() || text.size() < shortest.size()) {
      shortest = std::move(text);
      name = unit.name;
    }
  }
  return name.empty() ? "0 B" : shortest.append(" ").append(name);
}

std::optional<std::uint64_t> byteSizeFromText(std::string_view text) noexcept {
  const auto end = std::min(text.find_first_not_of("0123456789."), text.size());
  auto unit = text.substr(end);
  if (unit.starts_with(' ')) unit.remove_prefix(1);
  if (unit.empty() && end != text.size()) return std::nullopt;
  const auto size = writtenSize(text.substr(0, end), unit);
  return size && size->isWhole ? std::optional(size->bytes) : std::nullopt;
}

}  // namespace quillonic::selection
