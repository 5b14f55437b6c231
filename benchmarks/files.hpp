// Volume roots and attributes of items.
#pragma once

#include <cstdint>
#include <filesystem>

#include "rows.hpp"

namespace quillonic::benchmarks {

// Finds the mount point of the volume that holds an item.
using RootOf = std::function<std::string(const std::filesystem::path&)>;
bool addRoots(const std::string& who, const std::string& note, RootOf rootOf);

// Reads the attributes of an item, of which the size is returned.
using SizeOf = std::function<std::uint64_t(const std::filesystem::path&)>;
bool addAttributes(const std::string& who, const std::string& note, SizeOf sizeOf);

}  // namespace quillonic::benchmarks
