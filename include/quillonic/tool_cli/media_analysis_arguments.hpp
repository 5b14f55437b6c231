/// Reads the argument list of the media-analysis tool.
///
///     auto arguments = MediaAnalysisCLIArguments::read(ArgumentWords::fromMain(argc, argv));
///     if (!arguments.basic) return report(arguments.errors);
///     for (const std::string& path : arguments.basic->pathsToAnalyze) analyze(path);
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/tool_cli/argument_words.hpp>
#include <quillonic/tool_cli/media_analysis_errors.hpp>
#include <quillonic/tool_cli/media_analysis_options.hpp>

#include <optional>
#include <string>
#include <vector>

namespace quillonic {

/// An argument list read into the records that a parent made it from, with the records in any order. They
/// come back equal, with two exceptions: a value with a leading "-" is read as a flag, and a record without a
/// path to analyse, or without a position of a still frame, is reported as missing.
///
/// `CLIArgumentSanitizer` decides which words are flags: case does not matter, and "-workDirectoryPath" is
/// read as "-workDirectory", which it contains. Values keep leading and trailing spaces. A flag that allows
/// several values takes every word after it; any other flag takes the last. A switch is on when it is
/// present, whatever comes after it. A path to analyse that begins with "[/" is set aside: it is the list of
/// all paths that `commandLineArguments` writes.
struct QUILLONIC_EXPORT MediaAnalysisCLIArguments {
  /// An unused flag in lower case, and its value.
  struct SetAside {
    /// The flag with its hyphen.
    std::string flag;
    /// The word after the flag, unchanged; absent when there is none.
    std::optional<std::string> value;

    friend bool operator==(const SetAside&, const SetAside&) = default;
  };

  /// Present when nothing required is missing.
  std::optional<BasicMediaAnalysisCLIOptions> basic;
  /// What `basic` lacks, in case order: the errors whose names end in "NotSupplied". The tool itself checks
  /// whether paths exist.
  std::vector<MediaAnalysisCLIError> errors;

  /// Present when the list has an image flag and nothing required is missing.
  std::optional<DistributedMediaAnalysisImageOptions> image;
  /// What `image` lacks, in case order; empty when the list has no image flag.
  std::vector<MediaAnalysisCLIImageError> imageErrors;

  /// Present when the list has a parent's process identifier.
  std::optional<MediaAnalysisCLICustodialOptions> custodial;

  /// In list order: unknown flags, once per value; flags without their required value; and flags whose value
  /// is not a number or out of range. An application number without a process identifier comes last.
  std::vector<SetAside> setAside;

  /// Reads the words after the tool's name. Fails only when memory runs out; drops words before the first
  /// flag.
  static MediaAnalysisCLIArguments read(ArgumentWords cliArgs);
};

}  // namespace quillonic
