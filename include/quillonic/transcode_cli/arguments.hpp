/// The model of one transcoder command line: words in, settings read and changed, words out.
///
///     TranscodeCliArguments settings(ArgumentWords::fromMain(argc, argv), true);   // true: keep the order
///     if (!settings.allFlagsAreValid()) report(*settings.unknownFlags());
///     auto codec = settings.argumentFlagValue(VAVVideoFormatFlag);                 // "h264"
///     settings.setOutputFile("/media/out.mov");                                    // see options_table.hpp
///     std::vector<std::string> words = settings.commandLineArguments();
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/text_dictionary.hpp>
#include <quillonic/tool_cli/argument_store.hpp>
#include <quillonic/tool_cli/argument_words.hpp>
#include <quillonic/transcode_cli/details.hpp>
#include <quillonic/transcode_cli/options_table.hpp>
#include <quillonic/transcode_cli/timecode_source.hpp>
#include <quillonic/transcode_cli/vocabulary.hpp>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillonic {

/// Input files by group number, each group's files in the order of their positions.
using InputFileGroups = std::map<std::int64_t, std::vector<std::string>>;

/// The settings of one transcoder command line.
///
/// Flags are kept lower-cased and trimmed of white space at both ends. A value is trimmed, and lower-cased too
/// unless its flag takes a path ("-clut", "-out", "-progress_file", "-work_dir" and every flag that begins
/// with "-in"): a watermark's text or file is lower-cased, which is a fixed contract with the tool. Lower-casing
/// is Unicode's simple mapping whatever the locale; bytes that are not UTF-8 stay as they are. A path keeps every
/// byte between its trimmed ends. White space at the very ends of a path, a value that begins with a hyphen and a
/// flag that does not, which a dictionary or a setter may bring, are written but cannot travel on a command line: hand
/// over absolute paths.
///
/// A flag is valid when a flag of `allKnownCommandFlags` occurs within it, so "-in_0_0" and "-tc_burn_anchor"
/// are; other flags are set aside and reported. A flag that occurs again replaces its earlier value.
///
/// Lists come as copies: name an optional one before a loop over its content, since the loop does not keep it alive.
///
/// The model can be moved but not copied; share it through a `std::shared_ptr`. One thread at a time uses one
/// model. Only running out of memory makes its operations throw, except for decoding. The model is then as it was;
/// only an operation that changes several options (`setInputFileGroups`, `setIgnoredAudioTracks` and every `update`)
/// may have changed some of them, and the model stays as usable as any.
class QUILLONIC_EXPORT TranscodeCliArguments final : public CliArgumentStore, public TranscodeOptions {
 public:
  /// A model without settings.
  TranscodeCliArguments();

  /// Reads the words that follow the tool's name. A flag's value is the next word unless that begins with
  /// "-", in which case, and at the end, the value is empty; whether the flag takes a value is not asked.
  /// Words that belong to no flag are dropped. With `maintainOriginalOrdering` the flags are written back in
  /// the order in which they first stood, otherwise in the order of their texts. Never fails, whatever the
  /// words hold.
  explicit TranscodeCliArguments(ArgumentWords cliArgs, bool maintainOriginalOrdering = false);

  /// Reads flags and values as if they had stood on a command line. A key without a hyphen is checked like
  /// any other; of keys that become equal when lower-cased and trimmed, the last in key order wins.
  static TranscodeCliArguments fromArgumentLookup(const TextDictionary& argumentLookup);
  /// The same under its second name.
  static TranscodeCliArguments from(const TextDictionary& argumentLookup);

  /// Reads back what `encode` gave, and takes it as it stands: flags are neither normalised nor checked again.
  /// Of two equal keys the first counts. Throws a `DecodingError` that names the key that is missing or mistyped.
  static TranscodeCliArguments from(const CodedValue& coded);
  /// The whole state, set-aside flags and the order of flags included: a record with "flagValueLookup" and,
  /// where they are present, "orderedFlags" and "invalidKeyValueLookup".
  CodedValue encode() const;

  /// Takes the settings over; the other model may then only be assigned to or destroyed.
  TranscodeCliArguments(TranscodeCliArguments&&) noexcept;
  /// Replaces all settings by those of the other, which may then only be assigned to or destroyed.
  TranscodeCliArguments& operator=(TranscodeCliArguments&&) noexcept;
  ~TranscodeCliArguments() override;

  /// The texts of all flags that the transcoder knows, enumeration after enumeration. "-tc_burn_anchor" and
  /// "-wmf_burn_anchors" are not among them, on purpose.
  static constexpr std::span<const std::string_view> allKnownCommandFlags() noexcept {
    return detail::knownCommandFlags;
  }

  /// Every valid flag with its value; a flag without one has the empty text.
  const TextDictionary& flagValueLookup() const noexcept { return flagValueLookup_; }

  /// The flags that are not valid, in the order of their texts; absent when there are none.
  std::optional<std::vector<std::string>> unknownFlags() const;
  /// Whether no flag was set aside, so that `unknownFlags` is absent; true for a model without flags.
  bool allFlagsAreValid() const noexcept { return invalidKeyValueLookup_.empty(); }

  /// Whether the flag is set. The query is trimmed but not lower-cased, on purpose: " -vn " finds "-vn", and
  /// "-VN" finds nothing.
  bool hasArgumentFlag(std::string_view flag) const noexcept;
  /// The value of a flag, empty for a flag without one; nothing when the flag is not set. The query is taken
  /// as above. The view is valid until the model changes.
  std::optional<std::string_view> argumentFlagValue(std::string_view flag) const noexcept;

  /// Stores a value as given: it is neither trimmed nor lower-cased. A flag that is not set as `hasArgumentFlag`
  /// asks is taken in the form that parsing gives it. No value removes the flag; a switch is set by the empty
  /// text. False, and nothing changes, when the flag is neither set nor valid; a text without a hyphen can be,
  /// and travels nowhere.
  bool setArgumentFlagValue(std::string_view flag, std::optional<std::string_view> value);

  /// The numbered input files; absent when there are none. A file is numbered by a key of exactly the form
  /// "-in_<group>_<position>", both decimal integers of 64 bits, where "-" may precede the digits; other keys
  /// are passed over. Two keys for one place both count, in key order.
  std::optional<InputFileGroups> inputFileGroups() const;
  /// Replaces all input files, a plain "-in" included. The files of a group get the positions 0, 1, 2 and so
  /// on. Absent, and groups without files, just remove.
  void setInputFileGroups(const InputFileGroups& groups);
  /// The same; without a value all input files are removed.
  void setInputFileGroups(const std::optional<InputFileGroups>& groups);

  /// All input files: the one of a plain "-in" that has a value, then group by group. Absent when there are
  /// none.
  std::optional<std::vector<std::string>> inputFiles() const;
  /// The first of `inputFiles`.
  std::optional<std::string> firstInputFile() const;

  /// Calls the block once per group, in ascending order of the group numbers, with the group's files in
  /// ascending order of their positions. The list lives until the block returns.
  void enumerateInputFileGroups(
      FunctionRef<void(std::span<const std::string_view> files, std::int64_t group)> didFindGroup) const;

  /// Where the timecode comes from: the first source, in their order, whose flag is set.
  std::optional<TimecodeSource> timecodeSource() const noexcept;
  /// Sets the source's flag and removes those of the other two; nothing removes all three. `custom` keeps the
  /// `timecode` there is and otherwise starts at zero, in drop frame when that is set, because its flag
  /// cannot do without a timecode.
  void setTimecodeSource(std::optional<TimecodeSource> source);

  using TranscodeOptions::update;

  /// The settings of both watermarks.
  TranscodeWatermarkDetail watermarkDetail() const;
  /// Updates both records.
  void update(const TranscodeWatermarkDetail& fromWatermarkDetail);

  /// The files of one group; absent when there is no such group.
  std::optional<TranscodeInputFileGroup> inputFileGroup(std::int64_t group) const;
  /// Replaces the files of one group, which get the positions 0, 1, 2 and so on, and leaves all other input
  /// files alone. A record without files removes the group; one that is equal to what there is changes
  /// nothing.
  void update(const TranscodeInputFileGroup& fromInputFileGroup);

  /// Every flag and its value as two words, also where the value is empty. Flags whose order was recorded
  /// come first, in that order; the others follow in the order of their texts. Set-aside flags are not
  /// written.
  std::vector<std::string> commandLineArguments() const override;
  /// The words of `commandLineArguments` one after another with nothing between them; a fixed form.
  std::string cliString() const override;
  /// The words of `commandLineArguments`.
  std::vector<std::string> orderedCLITexts() const override { return commandLineArguments(); }
  /// A copy of `flagValueLookup`.
  TextDictionary argumentLookup() const override { return flagValueLookup_; }

  /// The flags and values of the built-in presets, to be merged into a dictionary of one's own.
  static TextDictionary vantiroCloudPresetArguments();
  /// The same for the preset of mastering quality.
  static TextDictionary vantiroProRes4444XQPresetArguments();

 private:
  // Takes a flag and its value, both trimmed; returns the flag as it is kept where it was not there before.
  QUILLONIC_HIDDEN const std::string* store(std::string_view flag, std::string_view value);
  template <class Visit> void visitArguments(Visit visit) const;

  std::optional<std::vector<std::string>> orderedFlags_;
  TextDictionary invalidKeyValueLookup_;
};

}  // namespace quillonic
