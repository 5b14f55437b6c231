// Any words, one per line, as the media-analysis tool's arguments. What is read is written and read again.
#include <quillonic/tool_cli/media_analysis.hpp>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

// A record that holds NaN equals nothing.
bool isNone(const std::optional<DistributedMediaAnalysisImageOptions>& image) {
  return image && image != image;
}

std::vector<std::string> written(const MediaAnalysisCLIArguments& arguments) {
  std::vector<std::string> words;
  const auto add = [&](const auto& record) {
    if (!record) return;
    const auto texts = record->orderedCLITexts();
    words.insert(words.end(), texts.begin(), texts.end());

    std::string joined;
    for (const auto& text : texts) joined += text;
    require(record->cliString() == joined, "the text of a record is its words");
    for (const auto& [flag, value] : record->argumentLookup()) {
      require(std::ranges::find(texts, flag) != texts.end(),
              "a record's dictionary has the flags of its words");
    }
  };
  add(arguments.basic);
  add(arguments.image);
  add(arguments.custodial);
  return words;
}

}  // namespace

void run(std::string_view bytes) {
  const auto words = lines(bytes);
  const auto arguments = MediaAnalysisCLIArguments::read(words);
  require(arguments.basic.has_value() == arguments.errors.empty(), "a basic record or what it lacks");
  require(!arguments.image || arguments.imageErrors.empty(), "an image record or what it lacks");
  for (const auto& [flag, value] : arguments.setAside) {
    require(flag.starts_with('-') && CLISanitizationOptions::lowercase.sanitize(flag) == flag,
            "what is set aside is a flag in lower case");
  }

  const auto texts = written(arguments);
  const auto again = MediaAnalysisCLIArguments::read(texts);
  require(written(again) == texts, "what is written reads back");
  require(again.basic.has_value() == arguments.basic.has_value() &&
              again.image.has_value() == arguments.image.has_value() &&
              again.custodial.has_value() == arguments.custodial.has_value(),
          "every record that is written reads back");
  require(again.basic == arguments.basic && again.custodial == arguments.custodial &&
              (again.image == arguments.image || isNone(arguments.image)),
          "a record reads back as it was");
  require(again.setAside.empty() && again.imageErrors.empty(), "nothing that is written is of no use");

  // The order of the flags does not matter: a parent may add the custodial ones at either end.
  if (arguments.custodial && arguments.basic) {
    auto other = arguments.custodial->orderedCLITexts();
    const auto rest = arguments.basic->orderedCLITexts();
    other.insert(other.end(), rest.begin(), rest.end());
    const auto turned = MediaAnalysisCLIArguments::read(other);
    require(turned.basic == arguments.basic && turned.custodial == arguments.custodial,
            "a record reads back behind another one");
  }
}

}  // namespace quillonic::fuzz
