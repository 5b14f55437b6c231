/// The model of one transcoder command line: words in, settings read and changed, words out.
///
///     const auto [parent, rest] = CLICustodialOptions::read(ArgumentWords::fromMain(argc, argv));
///     TranscodeCliArguments settings(rest, true);                                  // true: keep the order
///     for (const auto& problem : settings.problems()) refuse(problem.description());
///     auto codec = settings.argumentFlagValue(VAVVideoFormatFlag);                 // "h264"
///     settings.setOutputFile("/media/out.mov");                                    // see options_table.hpp
///     auto words = settings.launchArguments();
///     CLICustodialOptions(getpid(), 7).appendTo(words);    // see tool_cli/custodial_options.hpp
///     log(shellQuoted(words));                             // see tool_cli/shell_quoting.hpp
///
/// A template for many jobs is a model without files:
///
///     auto job = reviewTemplate.clone();
///     job.setInputFiles({"/card/A001_C001.mov", "/card/A001_C002.mov"});
///     job.setOutputFile("/media/review.mov");
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/text_dictionary.hpp>
#include <quillonic/time/timecode.hpp>
#include <quillonic/tool_cli/argument_store.hpp>
#include <quillonic/tool_cli/argument_words.hpp>
#include <quillonic/transcode_cli/details.hpp>
#include <quillonic/transcode_cli/difference.hpp>
#include <quillonic/transcode_cli/options_table.hpp>
#include <quillonic/transcode_cli/presets.hpp>
#include <quillonic/transcode_cli/problem.hpp>
#include <quillonic/transcode_cli/timecode_source.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Input files by group number, each group's files in order of their positions.
using InputFileGroups = std::map<std::int64_t, std::vector<std::string>>;

/// Which of two settings for one flag a model keeps when others are applied to it.
enum class ApplyLayer : std::uint8_t {
  /// What is set stays; only flags that are not set are added.
  belowWhatIsSet,
  /// What is applied replaces what is set.
  aboveWhatIsSet,
};

/// The settings of one transcoder command line.
///
/// Flags are trimmed of white space and lower-cased. Values are trimmed, and lower-cased too unless their
/// flag takes a path ("-clut", "-out", "-progress_file", "-work_dir" and every flag that begins with "-in"):
/// the lower-cased text and file of a watermark are a fixed contract with the tool. Lower-casing is Unicode's
/// simple mapping in every locale; bytes that are not UTF-8 stay. Apart from trimming, a path keeps every
/// byte. A dictionary or a setter may bring a path with leading or trailing white space, a value with a
/// leading hyphen, or a flag without one: these are written but do not survive a command line, so pass
/// absolute paths. `problems` tells what does not arrive.
///
/// A flag is valid when it contains a flag of `allKnownCommandFlags`, so "-in_0_0" and "-tc_burn_anchor" are
/// valid; other flags are set aside and reported. A repeated flag replaces its earlier value.
///
/// Lists are returned as copies. A range-based `for` does not keep an optional one alive: name it first, or
/// walk `unknownFlagLookup`, `inputFilePaths` or `enumerateInputFileGroups`.
///
/// The model can be moved, and is copied only by `clone`; share it through a `std::shared_ptr`. Only one
/// thread at a time may use it. Apart from decoding, operations throw only when memory runs out and then
/// leave the model unchanged; but those that change several options (the setters of input files,
/// `setIgnoredAudioTracks` and every `update`) may have changed some of them, and leave a usable model.
class QUILLONIC_EXPORT TranscodeCliArguments final : public CliArgumentStore, public TranscodeOptions {
 public:
  /// A model without settings.
  TranscodeCliArguments();

  /// Reads the words after the tool's name. A flag's value is the next word; it is empty when that word
  /// begins with "-" or there is none, whether or not the flag takes a value. Words without a flag are
  /// dropped. With `maintainOriginalOrdering`, flags are written in order of first appearance, otherwise in
  /// the order of their texts. Never fails, whatever the words are.
  explicit TranscodeCliArguments(ArgumentWords cliArgs, bool maintainOriginalOrdering = false);
  /// Reads words listed in braces.
  explicit TranscodeCliArguments(std::initializer_list<std::string_view> cliArgs,
                                 bool maintainOriginalOrdering = false)
      : TranscodeCliArguments(ArgumentWords(cliArgs), maintainOriginalOrdering) {}

  /// Reads flags and values as if from a command line. A key without a hyphen is checked like any other; if
  /// keys become equal when lower-cased and trimmed, the last in key order wins.
  static TranscodeCliArguments fromArgumentLookup(const TextDictionary& argumentLookup);
  /// Second name of `fromArgumentLookup`.
  static TranscodeCliArguments from(const TextDictionary& argumentLookup);

  /// Reads what `encode` wrote, unchanged: flags are neither normalised nor checked again. The first of equal
  /// keys counts. Throws a `DecodingError` that names the missing or mistyped key.
  static TranscodeCliArguments from(const CodedValue& coded);
  /// Encodes the whole state, including set-aside flags and the order of flags: a record with
  /// "flagValueLookup" and, if present, "orderedFlags" and "invalidKeyValueLookup".
  CodedValue encode() const;

  /// Moves the settings; the other model may then only be assigned to or destroyed.
  TranscodeCliArguments(TranscodeCliArguments&&) noexcept;
  /// Replaces all settings by those of the other model, which may then only be assigned to or destroyed.
  TranscodeCliArguments& operator=(TranscodeCliArguments&&) noexcept;
  ~TranscodeCliArguments() override;

  /// A copy of the whole state: a template is a model, and each job a clone of it with other files.
  TranscodeCliArguments clone() const;
  /// Whether both have the same flags, values and set-aside flags. The order of writing does not count.
  bool operator==(const TranscodeCliArguments& other) const noexcept;
  /// Every flag whose value differs in an earlier model, set-aside flags included, in order of their texts;
  /// none when the models are equal.
  std::vector<TranscodeDifference> differencesFrom(const TranscodeCliArguments& earlier) const;

  /// All that a tool should refuse at its start and a parent should mend before it starts one: each set flag
  /// in order of the texts, then the set-aside ones. When the list is empty, a tool that is started with
  /// `launchArguments` reads an equal model, except that it lower-cases fixed values ("sRGB"), which read
  /// alike. A tool takes the custodial flags out first. Shows no flag that is missing, and no file.
  std::vector<TranscodeProblem> problems() const;

  /// The texts of all known flags, one enumeration after another. "-tc_burn_anchor" and "-wmf_burn_anchors"
  /// are left out on purpose.
  static constexpr std::span<const std::string_view> allKnownCommandFlags() noexcept {
    return detail::knownCommandFlags;
  }

  /// Every valid flag with its value; a flag without one has the empty text.
  const TextDictionary& flagValueLookup() const noexcept { return flagValueLookup_; }

  /// Every set-aside flag with its value, in order of their texts.
  const TextDictionary& unknownFlagLookup() const noexcept { return invalidKeyValueLookup_; }
  /// The invalid flags, in order of their texts; absent when there are none.
  std::optional<std::vector<std::string>> unknownFlags() const;
  /// Whether no flag is set aside; true for a model without flags.
  bool allFlagsAreValid() const noexcept { return invalidKeyValueLookup_.empty(); }

  /// Whether the flag is set. The query is trimmed but not lower-cased, on purpose: " -vn " finds "-vn", but
  /// "-VN" finds nothing.
  bool hasArgumentFlag(std::string_view flag) const noexcept;
  /// The value of a flag, empty if it has none; nothing when the flag is not set. Treats the query like
  /// `hasArgumentFlag`. Valid until the model changes.
  std::optional<std::string_view> argumentFlagValue(std::string_view flag) const noexcept;

  /// Stores a value as given, neither trimmed nor lower-cased. A flag that `hasArgumentFlag` does not find is
  /// normalised as in parsing. No value removes the flag; the empty text sets a switch. False, without any
  /// change, when the flag is neither set nor valid. A text without a hyphen can be valid but does not
  /// survive a command line.
  bool setArgumentFlagValue(std::string_view flag, std::optional<std::string_view> value);

  /// Adds a preset's settings below or above those that are set. New flags are written after those with a
  /// recorded order.
  void apply(TranscodeCliPreset preset, ApplyLayer layer);
  /// Adds flags and values, read as by `fromArgumentLookup`, below or above those that are set.
  void apply(const TextDictionary& arguments, ApplyLayer layer);

  /// Replaces all input files by these, in this order: group 0, positions 0, 1, 2 and so on.
  void setInputFiles(const std::vector<std::filesystem::path>& files);
  /// Replaces the files of one group, which get the positions 0, 1, 2 and so on; no files remove the group.
  void setInputFileGroup(std::int64_t group, const std::vector<std::filesystem::path>& files);
  /// All input files, in the order of `inputFiles`; empty when there are none.
  std::vector<std::filesystem::path> inputFilePaths() const;
  /// The files of one group; empty when there is no such group.
  std::vector<std::filesystem::path> inputFilePaths(std::int64_t group) const;

  /// The numbered input files; absent when there are none. Their keys have exactly the form
  /// "-in_<group>_<position>", both decimal 64-bit integers with an optional "-"; other keys are skipped. Two
  /// keys for one place both count, in key order.
  std::optional<InputFileGroups> inputFileGroups() const;
  /// Replaces all input files, including a plain "-in". The files of a group get the positions 0, 1, 2 and so
  /// on. Groups without files are not stored.
  void setInputFileGroups(const InputFileGroups& groups);
  /// Removes all input files, as empty braces do.
  void setInputFileGroups(std::nullopt_t) { setInputFileGroups(InputFileGroups()); }
  /// Takes the result of `inputFileGroups`; without a value, removes all input files.
  template <std::same_as<std::optional<InputFileGroups>> Groups>
  void setInputFileGroups(const Groups& groups) {
    setInputFileGroups(groups ? *groups : InputFileGroups());
  }

  /// All input files: a plain "-in" with a value first, then group by group. Absent when there are none.
  std::optional<std::vector<std::string>> inputFiles() const;
  /// The first of `inputFiles`.
  std::optional<std::string> firstInputFile() const;

  /// Calls the block once per group, in ascending order of group numbers, with the group's files in ascending
  /// order of positions. The list lives until the block returns.
  void enumerateInputFileGroups(
      FunctionRef<void(std::span<const std::string_view> files, std::int64_t group)> didFindGroup) const;

  /// The source of the timecode: the first one, in case order, whose flag is set.
  std::optional<TimecodeSource> timecodeSource() const noexcept;
  /// Sets the source's flag and removes the other two; nothing removes all three. `custom` needs a timecode:
  /// it keeps the present `timecode`, or else starts at zero, in drop frame if that is set.
  void setTimecodeSource(std::optional<TimecodeSource> source);

  using TranscodeOptions::setTimecode;
  /// Sets the timecode; its separator is that of the drop-frame switch if that is set, else its own.
  template <std::same_as<TimecodeComponents> Timecode> void setTimecode(const Timecode& timecode) {
    setTimecode(timecode.timecodeString());
  }
  /// The timecode, read strictly; nothing when it is not set or cannot be read.
  std::optional<TimecodeComponents> timecodeComponents() const noexcept;

  using TranscodeOptions::update;

  /// The settings of both watermarks.
  TranscodeWatermarkDetail watermarkDetail() const;
  /// Updates both records.
  void update(const TranscodeWatermarkDetail& fromWatermarkDetail);

  /// The files of one group; absent when there is no such group.
  std::optional<TranscodeInputFileGroup> inputFileGroup(std::int64_t group) const;
  /// Replaces the files of one group, which get the positions 0, 1, 2 and so on, and leaves other input files
  /// unchanged. A record without files removes the group; an equal record changes nothing.
  /// `setInputFileGroup` takes the number and the files without a record; `update({0, {"/a.mov"}})` fits other
  /// records too and does not compile.
  void update(const TranscodeInputFileGroup& fromInputFileGroup);

  /// Every flag and its value as two words, even if the value is empty: first the flags with a recorded
  /// order, then the others in order of their texts. Set-aside flags are not written.
  std::vector<std::string> commandLineArguments() const override;
  /// The words of `commandLineArguments`, which start a tool as they are.
  std::vector<std::string> orderedCLITexts() const override { return commandLineArguments(); }
  /// A copy of `flagValueLookup`.
  TextDictionary argumentLookup() const override { return flagValueLookup_; }

  /// The flags and values of the cloud preset, to merge into a dictionary.
  static TextDictionary vantiroCloudPresetArguments();
  /// The flags and values of the mastering preset.
  static TextDictionary vantiroProRes4444XQPresetArguments();

 private:
  // Stores a flag and its value, both trimmed; returns the stored flag if it is new.
  QUILLONIC_HIDDEN const std::string* store(std::string_view flag, std::string_view value);

  std::optional<std::vector<std::string>> orderedFlags_;
  TextDictionary invalidKeyValueLookup_;
};

}  // namespace quillonic
