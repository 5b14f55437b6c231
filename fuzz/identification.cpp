// Identifies any bytes, under each kind of name.
#include <quillonic/catalogue.hpp>
#include <quillonic/media.hpp>

#include <string>
#include <string_view>

#include "target.hpp"

namespace quillonic::fuzz {

void run(std::string_view bytes) {
  const auto alone = catalogue::identifyBytes(bytes);
  require(!alone.byName && !alone.isContradictory, "bytes without a name contradict nothing");
  require(alone == catalogue::identifyBytes(bytes), "the same bytes are the same file");
  require(!alone.xmlContent || alone.signature == catalogue::Signature::xml, "only XML has a root element");
  for (const auto extension : allCases<FileExtension>()) {
    const auto file = catalogue::identify("a." + std::string(rawValue(extension)), bytes);
    require(file.byName == formatOf(extension), "a name means the same whatever the bytes are");
    require(file.signature == alone.signature && file.byBytes == alone.byBytes,
            "bytes mean the same whatever the name is");
    require(!file.isContradictory || !file.format, "a contradiction is not decided");
    require(!file.format || file.format == file.byName || file.byName == MediaFormat::xml,
            "a format is a member of the name's family");
  }
}

}  // namespace quillonic::fuzz
