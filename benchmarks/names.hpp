// Names of a few lengths, cleaned for a tape.
#pragma once

#include <functional>
#include <string>

namespace quillonic::benchmarks {

using Clean = std::function<std::string(const std::string&)>;

// `legal` takes out of what the peer returns what stands for a character that the library drops.
bool addCleaning(const std::string& who, const std::string& note, const Clean& clean, const Clean& legal);

}  // namespace quillonic::benchmarks
