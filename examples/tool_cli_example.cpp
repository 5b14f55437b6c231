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
                   .launchArguments();
  CLICustodialOptions(processId, 7).appendTo(words);
  return words;
}

}  // namespace

int main() {
  auto words = requestedBy(4711);
  words.insert(words.end(), {"-colour", "red"});
  std::cout << shellQuoted(words) << '\n';

  const auto request = MediaAnalysisCLIArguments::read(words);
  for (const auto error : request.errors) std::cout << make_error_code(error).message() << '\n';
  if (!request.basic) return 64;
  for (const auto& path : request.basic->pathsToAnalyze) std::cout << "analyse " << path << '\n';
  std::cout << "deep: " << (request.basic->deepAnalysis ? "yes" : "no") << '\n';
  if (request.custodial) std::cout << "for process " << request.custodial->parentProcessId << '\n';
  for (const auto& [flag, value] : request.setAside) {
    std::cout << "ignored: " << flag << ' ' << value.value_or("without a value") << '\n';
  }

  // Any other tool takes the parent's flags out first and reads the rest in its own way.
  const auto [parent, rest] = CLICustodialOptions::read(words);
  if (parent) std::cout << "parent: " << shellQuoted(parent->launchArguments()) << '\n';
  std::cout << rest.size() << " words for the tool\n";
}
