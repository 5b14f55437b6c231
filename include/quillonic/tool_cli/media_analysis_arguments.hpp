/// What the media-analysis tool reads from its argument list.
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

/// An argument list taken apart into the records that a parent made it from, in any order of their words. The
/// records come back equal, with two exceptions: a value that began with "-" is read as a flag, and a record
/// without a path to analyse, or without a position of a still frame, is reported as missing.
///
/// `CLIArgumentSanitizer` decides which word is a flag: case does not matter, and "-workDirectoryPath" is
/// read as "-workDirectory", which it contains. Values keep leading and trailing spaces. A flag that can have
/// several values takes every word that follows it; any other flag takes the last of its values. A switch is
/// on when it is present, whatever follows it.
struct QUILLONIC_EXPORT MediaAnalysisCLIArguments {
  /// An unused flag in lower case, and its value.
  struct SetAside {
    /// The flag with its hyphen.
    std::string flag;
    /// The word after it, unchanged; absent when none followed.
    std::optional<std::string> value;

    friend bool operator==(const SetAside&, const SetAside&) = default;
  };

  /// Present when nothing that it needs is missing.
  std::optional<BasicMediaAnalysisCLIOptions> basic;
  /// What `basic` lacks, in case order: the errors that end in "NotSupplied". The tool checks whether paths
  /// exist.
  std::vector<MediaAnalysisCLIError> errors;

  /// Present when the list has an image flag and nothing that the record needs is missing.
  std::optional<DistributedMediaAnalysisImageOptions> image;
  /// What `image` lacks, in case order; empty when the list has no image flag.
  std::vector<MediaAnalysisCLIImageError> imageErrors;

  /// Present when the list has a parent's process identifier.
  std::optional<MediaAnalysisCLICustodialOptions> custodial;

  /// In list order: unknown flags, once per value; flags without the value they need; and flags whose value
  /// is not a number or out of range. An application number without a process identifier is the last.
  std::vector<SetAside> setAside;

  /// Reads the words that follow the tool's name. Never fails unless memory runs out; words before the first
  /// flag are dropped.
  static MediaAnalysisCLIArguments read(ArgumentWords cliArgs);
};

}  // namespace quillonic
