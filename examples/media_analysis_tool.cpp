// A minimal media-analysis tool: reads its argument list, checks the request, and writes one line per file
// and per still frame to the results file.
//
//     media_analysis_tool -pathToAnalyze /media/a.mov -workDirectory /tmp -resultsFilePath /tmp/results
#include <quillonic/tool_cli.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

namespace {

using quillonic::CLIExitCodeError;
using quillonic::MediaAnalysisCLIArguments;
using quillonic::MediaAnalysisCLIError;

constexpr int wrongArguments = 64;
constexpr int missingInput = 66;
constexpr int noOutput = 73;

template <class Error> [[noreturn]] void fail(int exitStatus, Error error, std::string_view about = {}) {
  throw CLIExitCodeError(exitStatus, make_error_code(error).message().append(" ").append(about));
}

void check(const MediaAnalysisCLIArguments& arguments) {
  for (const auto& [flag, value] : arguments.setAside) {
    std::cerr << "ignored: " << flag << ' ' << value.value_or("") << '\n';
  }
  for (const auto error : arguments.errors) fail(wrongArguments, error);
  for (const auto error : arguments.imageErrors) fail(wrongArguments, error);

  std::error_code ignored;
  const auto exists = [&](const std::string& path) { return std::filesystem::exists(path, ignored); };
  const auto& basic = *arguments.basic;
  for (const auto& path : basic.pathsToAnalyze) {
    if (!exists(path)) fail(missingInput, MediaAnalysisCLIError::pathToAnalyzeDoesNotExist, path);
  }
  if (!exists(basic.workDirectory)) {
    fail(missingInput, MediaAnalysisCLIError::workDirectoryDoesNotExist, basic.workDirectory);
  }
  if (exists(basic.resultsFilePath)) {
    fail(noOutput, MediaAnalysisCLIError::resultsFileAlreadyExists, basic.resultsFilePath);
  }
}

void analyze(const MediaAnalysisCLIArguments& arguments) {
  const auto& basic = *arguments.basic;
  std::ofstream results(basic.resultsFilePath, std::ios::binary);
  if (!results) fail(noOutput, MediaAnalysisCLIError::resultsFilePathNotCreated, basic.resultsFilePath);

  results << (basic.deepAnalysis ? "deep" : "quick") << " analysis "
          << basic.analysisId.value_or("without name");
  if (arguments.custodial) results << " for process " << arguments.custodial->parentProcessId;
  results << '\n';
  for (const auto& path : basic.pathsToAnalyze) {
    results << path << ": ";
    if (std::filesystem::is_directory(path)) {
      results << "folder\n";
    } else {
      results << std::filesystem::file_size(path) << " bytes\n";
    }
  }
  if (!arguments.image) return;
  for (const float location : arguments.image->snapshotLocations) {
    results << "still frame at " << location << ", at most " << arguments.image->maxImageWidth << " wide\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto arguments = MediaAnalysisCLIArguments::read(quillonic::ArgumentWords::fromMain(argc, argv));
    check(arguments);
    analyze(arguments);
  } catch (const CLIExitCodeError& error) {
    std::cerr << error.what() << '\n';
    return error.exitStatus();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
