/// Changes of single options, as a value that can be stored, sent and applied to any number of models.
///
///     TranscodeOptionChanges review;
///     review.set(VAVVideoFormatFlag, VAVProRes422Proxy);
///     review.set(VAVVideoFrameRateFlag, 23.976);
///     review.set(VAVTimecodeBurnFontRGB, Color::rgb255(255, 255, 255));
///     review.set(VAVPrepareForWebFlag, true);               // a switch
///     review.remove(VAVVideoBitRateFlag);
///     for (auto& settings : queue) review.apply(*settings);  // every other option stays
///     log(review.description());    // "set -tc_burn_font_rgb 255,255,255, remove -vbr, ..."
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/platform/color.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/time/timecode.hpp>
#include <quillonic/transcode_cli/anchors.hpp>
#include <quillonic/transcode_cli/arguments.hpp>
#include <quillonic/transcode_cli/frame_size.hpp>

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillonic {

/// For each changed option its flag and its new value, or that it is removed. Flags are trimmed and
/// lower-cased, and only valid ones are taken, as in `TranscodeCliArguments`. A later change of a flag
/// replaces an earlier one. "-in" and "-ac_omit" stand for the flags numbered under them too, so that files
/// or tracks are replaced as a whole: a change of "-in" comes before those of "-in_0_0" and so on, and
/// removes the others.
class QUILLONIC_EXPORT TranscodeOptionChanges {
 public:
  /// The new value by flag, in order of the flags' texts; nothing where the flag is removed. A switch has the
  /// empty text.
  using ByFlag = std::map<std::string, std::optional<std::string>, std::less<>>;

  /// No change.
  TranscodeOptionChanges() = default;

  /// What makes `after` of `before`: `between(a, b).apply(a)` makes the flags and values of both equal,
  /// unless the timecode of `b` has another separator than its switch. With an empty `before` it is a
  /// template of all settings. Invalid flags do not count.
  static TranscodeOptionChanges between(const TranscodeCliArguments& before,
                                        const TranscodeCliArguments& after);

  /// Sets a flag to a text, which is kept as given; without a text, sets a switch. This and every other `set`
  /// returns false, without any change, when the flag is not valid or the value cannot be written.
  bool set(std::string_view flag, std::string_view value = {});
  /// A decimal number; NaN, infinity and negative numbers cannot be written.
  bool set(std::string_view flag, DecimalNumber value);
  /// A frame size; negative sides cannot be written.
  bool set(std::string_view flag, const FrameSize& value);
  /// A colour, written as by the model's setters: white is `Color::rgb255(255, 255, 255)`, because
  /// `Color::rgb(1, 1, 1)` is written "1,1,1". A pattern cannot be written.
  bool set(std::string_view flag, const Color& value);
  /// A path.
  bool set(std::string_view flag, const std::same_as<std::filesystem::path> auto& value) {
    return set(flag, std::string_view(value.native()));
  }
  /// A timecode.
  bool set(std::string_view flag, const std::same_as<TimecodeComponents> auto& value) {
    return set(flag, std::string_view(value.timecodeString()));
  }
  /// The place of a crop, a burnt-in timecode or an image watermark.
  bool set(std::string_view flag, const TranscodeAnchor auto& value) { return set(flag, value.rawValue()); }
  /// An integer, which must not be negative; or a Boolean, which sets a switch or removes it.
  bool set(std::string_view flag, std::integral auto value) {
    if constexpr (std::same_as<decltype(value), bool>) {
      return value ? set(flag) : remove(flag);
    } else {
      return std::in_range<std::int64_t>(value) && setInteger(flag, static_cast<std::int64_t>(value));
    }
  }

  /// Makes these the only audio tracks that are left out; an empty list leaves none out. False, without any
  /// change, when a track is negative.
  bool setIgnoredAudioTracks(const std::vector<std::int64_t>& tracks);

  /// Removes a flag from the models. False, without any change, when the flag is not valid.
  bool remove(std::string_view flag);

  /// Takes back what was said about a flag: the models keep their own value.
  void forget(std::string_view flag);

  /// Adds the changes of another value, which replace those of the same flags: applying the result is like
  /// applying both, one after the other.
  void add(const TranscodeOptionChanges& later);

  /// All changes.
  const ByFlag& byFlag() const noexcept { return byFlag_; }

  /// Changes a model. If the timecode or its drop-frame switch changes, the timecode gets the separator of
  /// the model's switch. When memory runs out, some changes may be made.
  void apply(TranscodeCliArguments& arguments) const;

  /// One line in English for people and logs, "set -overwrite, remove -vbr, set -vcodec h264"; empty without
  /// changes. Control characters are escaped.
  std::string description() const;

  /// A record with one member per flag: the text, or nothing where the flag is removed. As JSON:
  /// {"-vbr": null, "-vcodec": "h264", "-web": ""}.
  CodedValue encode() const;
  /// Reads what `encode` wrote. Throws a `DecodingError` that names a flag with another kind of value, or one
  /// that is not valid, as when a later version wrote it.
  static TranscodeOptionChanges from(const CodedValue& coded);

  friend bool operator==(const TranscodeOptionChanges&, const TranscodeOptionChanges&) = default;

 private:
  bool change(std::string_view flag, std::optional<std::string> value);
  bool setInteger(std::string_view flag, std::int64_t value);

  ByFlag byFlag_;
};

}  // namespace quillonic
