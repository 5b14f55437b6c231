/// The localisation service. A host hands the library its look-up once; until then display texts stay in
/// English.
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

/// Looks display texts up in the user's language. Any thread may call it at any time, so an implementation
/// keeps itself safe.
class QUILLONIC_EXPORT Localizer {
 public:
  Localizer() = default;
  Localizer(const Localizer&) = delete;
  Localizer& operator=(const Localizer&) = delete;
  virtual ~Localizer();

  /// The translation of an English display text, or the text itself where there is none. A text with numbers
  /// arrives with "{}" in the place of each ("Custom: {} fps"), and the translation keeps these marks in
  /// their order: no table could hold a line per number.
  virtual std::string localized(std::string_view text) const = 0;
};

/// Where the library looks display texts up. Tags, identifiers and raw values are never looked up, so that a
/// program can compare and store them.
class QUILLONIC_EXPORT Localization {
 public:
  Localization() = delete;

  /// Replaces the look-up; null brings the English texts back. May be called while other threads read texts.
  static void setLocalizer(std::shared_ptr<const Localizer> localizer);

  /// The text in the user's language with the values in the places of its "{}" marks. A value for which the
  /// translation has no mark is left out, and a mark without a value stays.
  static std::string localized(std::string_view text, std::initializer_list<std::string_view> values = {});
};

}  // namespace quillonic
