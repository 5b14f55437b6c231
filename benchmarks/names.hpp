// Names of a few lengths, cleaned for a tape.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillonic::benchmarks {

// A text as its maker returns it, so that timing needs no copy.
struct Cleaned {
  std::string string;
  std::unique_ptr<char, void (*)(void*)> characters{nullptr, nullptr};

  std::string_view text() const noexcept { return characters ? characters.get() : std::string_view(string); }
};

using Clean = std::function<Cleaned(const std::string&)>;
using Legal = std::function<std::string(std::string)>;

// `legal` removes from the peer's result the replacements of characters that the library drops.
bool addCleaning(const std::string& who, const std::string& note, const Clean& clean, const Legal& legal);

}  // namespace quillonic::benchmarks
