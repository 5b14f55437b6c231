#include <magic.h>
#include <memory>
#include <stdexcept>

#include "../catalogue.hpp"

namespace quillonic::benchmarks {
namespace {

std::string typeOf(const std::filesystem::path& file) {
  static const std::unique_ptr<magic_set, decltype(&magic_close)> database(magic_open(MAGIC_MIME_TYPE),
                                                                           &magic_close);
  static const bool isLoaded = magic_load(database.get(), nullptr) == 0;
  const char* type = isLoaded ? magic_file(database.get(), file.c_str()) : nullptr;
  if (!type) throw std::runtime_error("has no database");
  return type;
}

const bool added = addTypesByBytes("libmagic", "more: over 1,000 types; knows no raw video", typeOf);

}  // namespace
}  // namespace quillonic::benchmarks
