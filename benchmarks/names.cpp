#include "names.hpp"

#include <quillonic/filesystem.hpp>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string_view>

#include "rows.hpp"

namespace quillonic::benchmarks {
namespace {

constexpr std::array<std::pair<std::size_t, const char*>, 3> lengths{{{40, "clean a name of 40 bytes"},
                                                                      {255, "clean a name of 255 bytes"},
                                                                      {1 << 20, "clean a name of 1 MiB"}}};

std::string nameOf(std::size_t length) {
  constexpr std::string_view pattern = "A001_C001 take?2 interview: caf\u00E9.mov ";
  std::string name;
  while (name.size() < length) name += pattern;
  name.resize(length);
  return name;
}

const bool added = [] {
  addCleaning(
      ours, "", [](const std::string& name) { return Cleaned{removingInvalidLtfsCharacters(name)}; },
      [](std::string name) { return name; });
  for (const auto& [length, work] : lengths) {
    add({"names", work, limit("memcpy of the bytes")}, [name = nameOf(length)](benchmark::State& state) {
      std::string copy(name.size(), '\0');
      timeTurns(state, [&] {
        std::memcpy(copy.data(), name.data(), name.size());
        benchmark::DoNotOptimize(copy.data());
      });
    });
  }
  return true;
}();

}  // namespace

bool addCleaning(const std::string& who, const std::string& note, const Clean& clean, const Legal& legal) {
  for (const auto& [length, work] : lengths) {
    add({"names", work, who, note}, [=, name = nameOf(length)](benchmark::State& state) {
      if (legal(std::string(clean(name).text())) != removingInvalidLtfsCharacters(name))
        throw std::runtime_error("keeps something else");
      timeTurns(state, [&] {
        const auto cleaned = clean(name);
        benchmark::DoNotOptimize(cleaned.text().data());
      });
    });
  }
  return true;
}

}  // namespace quillonic::benchmarks
