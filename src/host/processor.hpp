// The processor, from the system's table of processors.
#pragma once

#include <quillonic/host/machine.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace quillonic::host {

// `table` has a line "key : value" for each property of each processor. The brand: several with " + " between
// them where cores differ.
std::optional<std::string> processorBrand(std::string_view table);

// As far as the form of the table tells it.
std::optional<Architecture> architectureByTable(std::string_view table);

// Whether the first processor has a word among its features.
bool hasProcessorFlag(std::string_view table, std::string_view flag);

}  // namespace quillonic::host
