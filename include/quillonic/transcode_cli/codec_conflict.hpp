/// Choices that a video codec does not allow.
///
///     for (const auto& [choice, allowed] : codecConflicts(settings)) {
///       warn(choice.name, choice.text, allowed);      // "Bits per colour", "8", {"10"}
///     }
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/transcode_cli/arguments.hpp>

#include <string>
#include <vector>

namespace quillonic {

/// An option of a transcode for people, in the user's language; control characters are escaped.
struct DisplayedOption {
  /// The flag with its hyphen, which is never translated.
  std::string flag;
  /// What is set, with the unit of a number: "Frame rate (fps)".
  std::string name;
  /// What it is set to: "23.976", "ProRes 422 HQ", "On".
  std::string text;

  friend bool operator==(const DisplayedOption&, const DisplayedOption&) = default;
};

/// A choice that the codec does not allow.
struct CodecConflict {
  /// What is chosen.
  DisplayedOption choice;
  /// What the codec allows and a command line can say, in the order of pickers: numbers as the setters write
  /// them ("24.0", which `choice.text` of a typed "24" is not), names as in `choice.text`. In the user's
  /// language are "Match" and "Auto", which a removed flag says, and "Custom", which means any other number.
  std::vector<std::string> allowed;

  friend bool operator==(const CodecConflict&, const CodecConflict&) = default;
};

/// The settings' choices that their "-vcodec" does not allow: container, frame rate and size, data rate,
/// depth. Values of these that cannot be read are not allowed either. None without a codec, for an unlisted
/// one, and if the video is left out.
QUILLONIC_EXPORT std::vector<CodecConflict> codecConflicts(const TranscodeCliArguments& settings);

}  // namespace quillonic
