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

/// An argument list taken apart into the records that a parent made it from, in whatever order their words
/// stand. The records come back equal, with two exceptions. A value that began with "-" cannot be told from a
/// flag and is read as one. And a record without a path to analyse, or without a position of a still frame,
/// has nothing to ask for: that is reported as missing.
///
/// A word is a flag as `CLIArgumentSanitizer` has it: capitals do not matter, and "-workDirectoryPath" is
/// read as "-workDirectory" because that occurs within it. Values are taken as they stand, blanks at their
/// ends included. A flag that may have several values takes every word that follows it; of the values of any
/// other flag the last one counts. A switch is on when it is there, whatever follows it.
struct QUILLONIC_EXPORT MediaAnalysisCLIArguments {
  /// A flag that was of no use, in lower case, and its value.
  struct SetAside {
    /// The word that was taken for a flag, its hyphen included.
    std::string flag;
    /// The word behind it as it stood; absent when none followed.
    std::optional<std::string> value;

    friend bool operator==(const SetAside&, const SetAside&) = default;
  };

  /// Present when nothing that it needs is missing.
  std::optional<BasicMediaAnalysisCLIRecord> basic;
  /// What `basic` lacks, in case order: the errors that end in "NotSupplied". Whether paths exist is for the
  /// tool to find out.
  std::vector<MediaAnalysisCLIError> errors;

  /// Present when an image flag stands in the list and nothing that the record needs is missing.
  std::optional<DistributedMediaAnalysisImageRecord> image;
  /// What `image` lacks, in case order; empty when no image flag stands in the list.
  std::vector<MediaAnalysisCLIImageError> imageErrors;

  /// Present when the list has a parent's process identifier.
  std::optional<MediaAnalysisCLICustodialRecord> custodial;

  /// In their order: the unknown flags, once per value; the flags that need a value and have none; and those
  /// whose value is not the number it should be, or not within its range. An application number without a
  /// process identifier is the last.
  std::vector<SetAside> setAside;

  /// Reads the words that follow the tool's name. Never fails, whatever the words hold, unless memory runs out; words
  /// before the first flag are dropped.
  static MediaAnalysisCLIArguments read(ArgumentWords cliArgs);
};

}  // namespace quillonic
