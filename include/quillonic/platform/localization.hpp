/// The localisation service. A host sets its look-up once; until then display texts are in English.
///
///     class HostTexts : public quillonic::Localizer { ... };
///     quillonic::Localization::setLocalizer(std::make_shared<const HostTexts>());
#pragma once

#include <quillonic/export.hpp>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace quillonic {

/// Looks up display texts in the user's language. Any thread may call it at any time: implementations must be
/// thread-safe.
class QUILLONIC_EXPORT Localizer {
 public:
  Localizer() = default;
  Localizer(const Localizer&) = delete;
  Localizer& operator=(const Localizer&) = delete;
  virtual ~Localizer();

  /// The translation of an English display text, or the text itself when there is none. A text with numbers
  /// has "{}" in place of each ("Custom: {} fps"), because no table could hold a line per number; the
  /// translation keeps these marks in order.
  virtual std::string localized(std::string_view text) const = 0;
};

/// Where the library looks up display texts. Tags, identifiers and raw values are never looked up, so that
/// programs can compare and store them.
class QUILLONIC_EXPORT Localization {
 public:
  Localization() = delete;

  /// Replaces the look-up; null restores the English texts. May be called while other threads read texts.
  static void setLocalizer(std::shared_ptr<const Localizer> localizer);

  /// The text in the user's language, with the values in place of its "{}" marks. A value without a mark is
  /// dropped; a mark without a value stays.
  static std::string localized(std::string_view text, std::initializer_list<std::string_view> values = {});
};

}  // namespace quillonic
