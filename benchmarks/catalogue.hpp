// What files are.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "rows.hpp"

namespace quillonic::benchmarks {

// Gives the MIME type of a file.
using TypeOf = std::function<std::string(const std::filesystem::path&)>;
bool addTypesByName(const std::string& who, const std::string& note, TypeOf typeOf);
bool addTypesByBytes(const std::string& who, const std::string& note, TypeOf typeOf);

}  // namespace quillonic::benchmarks
