#include <quillonic/filesystem/legal_names.hpp>

#include <glib.h>

#include "../names.hpp"

namespace quillonic::benchmarks {
namespace {

Cleaned escaped(const std::string& name) {
  static const std::string legal(legalLtfsCharacters);
  return {.string = {}, .characters = {g_uri_escape_string(name.c_str(), legal.c_str(), FALSE), g_free}};
}

std::string withoutEscapes(std::string name) {
  for (auto at = name.find('%'); at != std::string::npos; at = name.find('%', at)) name.erase(at, 3);
  return name;
}

const bool added =
    addCleaning("g_uri_escape_string", "more: writes three characters for one that is not legal", escaped,
                withoutEscapes);

}  // namespace
}  // namespace quillonic::benchmarks
