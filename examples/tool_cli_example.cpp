// A parent requests an analysis; the tool reads the request and reports what it does not know.
#include <quillonic/tool_cli.hpp>

#include <iostream>
#include <string>
#include <vector>

using namespace quillonic;

namespace {

// The child's arguments: the request, then the sender. A path is absolute, since a word with a leading "-" is
// a flag.
std::vector<std::string> requestedBy(std::int32_t processId) {
  auto words = MediaAnalysisCLIArgumentFactory::buildBasicOptions({"/card/A001", "/card/A002"}, "/tmp/work",
                                                                  "/tmp/results", "card 7", true)
                   .orderedCLITexts();
  auto custodial = MediaAnalysisCLIArgumentFactory::custodialOptions(processId);
  custodial.parentAppNumber = 7;
  for (auto& word : custodial.orderedCLITexts()) words.push_back(std::move(word));
  return words;
}

}  // namespace

int main() {
  auto words = requestedBy(4711);
  words.insert(words.end(), {"-colour", "red"});

  const auto request = MediaAnalysisCLIArguments::read(words);
  for (const auto error : request.errors) std::cout << make_error_code(error).message() << '\n';
  if (!request.basic) return 64;
  for (const auto& path : request.basic->pathsToAnalyze) std::cout << "analyse " << path << '\n';
  std::cout << "deep: " << (request.basic->deepAnalysis ? "yes" : "no") << '\n';
  if (request.custodial) std::cout << "for process " << request.custodial->parentProcessId << '\n';
  for (const auto& [flag, value] : request.setAside) {
    std::cout << "ignored: " << flag << ' ' << value.value_or("without a value") << '\n';
  }

  // Any other tool removes the parent's flags first and reads the rest in its own way.
  constexpr auto form = CLISanitizationOptions::lowercase | CLISanitizationOptions::trimWhiteSpace;
  const CLIArgumentSanitizer sanitizer(sanitizeAllCLIFlags<CLICustodialFlag>(form), form);
  const auto [custodial, rest] = sanitizer.splitByValidity(words);
  std::cout << custodial.size() << " words for the parent's flags, " << rest.size() << " for the tool\n";
}
