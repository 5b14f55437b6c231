/// Presets that people name, keep and share.
///
///     StoredPreset review("review", "Review");                          // identifier, name
///     review.setSettings(job);                                          // all but its files
///     menu.add(review.description());                                   // "Review: AVC, H.264, 960x540"
///     for (const auto& [flag, name, text] : review.details()) pane.add(name, text);
///     for (const auto& conflict : review.conflicts()) warn(conflict);
///
///     review.replaceIn(nextJob);                                        // its files stay
///     auto settings = review.settings();                                // a new job without files
///
/// A preset is coded as a record, in JSON
///
///     {"identifier": "review", "name": "Review", "version": "2",
///      "options": {"-vbr": null, "-vcodec": "h264", "-web": ""}}
///
/// with a text for each option that it sets, the empty one for a switch, and null for one that it removes.
/// preset_files.hpp loads and stores whole folders.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/media/conversion_options.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/codec_conflict.hpp>
#include <quillonic/transcode_cli/option_changes.hpp>
#include <quillonic/transcode_cli/presets.hpp>

#include <string>
#include <utility>
#include <vector>

namespace quillonic {

/// A name, and changes of the options that a transcode can have. Options that belong to one job are never
/// among them: input files, the output file, the progress file and prefix, and the commands that only print
/// something.
class QUILLONIC_EXPORT StoredPreset {
 public:
  /// Tells presets apart when their names change. Any text, which is never displayed.
  std::string identifier;
  /// For people, as they gave it; never translated.
  std::string name;
  /// Any text by which its owner tells versions apart; may be empty.
  std::string version;
  /// Members of its record that this version of the library does not know, in their order; hosts can add
  /// their own. `encode` leaves out those with a key of the library's.
  CodedRecord otherMembers;

  /// A preset without any change.
  StoredPreset() = default;
  /// A named preset without any change.
  StoredPreset(std::string itsIdentifier, std::string itsName)
      : identifier(std::move(itsIdentifier)), name(std::move(itsName)) {}
  /// A built-in preset, with its name on a command line as the identifier.
  static StoredPreset builtIn(TranscodeCliPreset preset);

  /// What the preset changes: options that it sets or removes.
  const TranscodeOptionChanges& changes() const noexcept { return changes_; }
  /// Makes these the only changes. Leaves out options that belong to one job. A timecode gets the separator
  /// of the drop-frame switch beside it, and set audio tracks replace all others.
  void setChanges(const TranscodeOptionChanges& changes);

  /// The options that the preset sets, as a new job without files. `setSettings` makes an equal preset of
  /// it, unless this one removes options: a model cannot say that.
  TranscodeCliArguments settings() const;
  /// Sets what these settings set, and removes nothing. Leaves out options that belong to one job, and
  /// set-aside flags.
  void setSettings(const TranscodeCliArguments& settings);
  /// Sets what conversion options say, and removes nothing. Returns the choices that no flag can say, such as
  /// half the source's frame rate, each with the flag of its kind, and a stored number without a meaning as
  /// this number.
  [[nodiscard]] std::vector<DisplayedOption> setSettings(const Cloud_ConversionOptions& options);

  /// Changes a job's settings: every option that the preset does not change stays.
  void applyTo(TranscodeCliArguments& settings) const { changes_.apply(settings); }
  /// Makes the preset's options the only ones of a job: whatever an earlier preset or a person set is
  /// removed, but for the options that belong to the job, and for set-aside flags.
  void replaceIn(TranscodeCliArguments& settings) const;

  /// The choices that the preset's codec does not allow. A codec set by the job it is applied to can allow
  /// others: see `codecConflicts`.
  std::vector<CodecConflict> conflicts() const { return codecConflicts(settings()); }

  /// One line for a menu, in the user's language: the name and what matters most, "Review: AVC, H.264,
  /// 960x540, 3 Mb/s". Control characters are escaped.
  std::string description() const;
  /// All changes for a details pane, in order of the vocabulary: "Video codec", "AVC, H.264". A switch is
  /// "On" or "Off"; any other option that is removed is "Not set". A flag without a name is its own name.
  std::vector<DisplayedOption> details() const;

  /// A record with "identifier", "name", "version", "options" and the other members.
  CodedValue encode() const;
  /// Reads what `encode` wrote; "version" may be missing. Throws a `DecodingError` that names a missing or
  /// mistyped member, an option of one job, or a flag that is not valid: without such an option, the preset
  /// would make something else.
  static StoredPreset from(const CodedValue& coded);

  friend bool operator==(const StoredPreset&, const StoredPreset&) = default;

 private:
  TranscodeOptionChanges changes_;
};

}  // namespace quillonic
