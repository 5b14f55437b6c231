/// Reading the files of look-up tables.
///
///     if (auto look = readFile("/looks/day.cube")) {
///       Applier applier(*look);
///     } else {
///       std::cerr << look.error().description();    // line 12, column 7: found "0,5", expected a number
///     }
///
/// A file is read whole or refused: a missing or additional row, a decimal comma, a number that is not finite
/// or a size that is wrong refuses it. No locale has any effect. The extension selects the reader; without a
/// known one the first significant line does.
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/lut/lut.hpp>
#include <quillonic/support/parse_error.hpp>
#include <quillonic/support/result.hpp>

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <system_error>

namespace quillonic::lut {

/// Why there is no table.
struct Failure {
  /// What went wrong: the file could not be read, no format was recognised, or the text was refused.
  enum class Reason { cannotOpen, unknownFormat, refused };

  /// What went wrong.
  Reason reason = Reason::refused;
  /// The system's error; none unless the file could not be read.
  std::error_code error;
  /// Where the text was refused and why. Long texts are cut. Unused if the file could not be read.
  ParseError where;

  /// One line for logs and users.
  QUILLONIC_EXPORT std::string description() const;

  friend bool operator==(const Failure&, const Failure&) = default;
};

/// The largest file that is read, in bytes. The largest cube with 120 bytes a row is smaller.
inline constexpr std::size_t greatestFileSize = 0x7FFF'FFFF;

/// Reads a regular file, through links. A pipe, a folder or a file above the greatest size fails to open, at
/// once; such failures are logged. Needs the memory of the file and of twice the table.
QUILLONIC_EXPORT Result<Lut, Failure> readFile(const std::filesystem::path& path);

/// Reads a stream to its end. The name, if there is one, is that of the file: it selects the reader, and may
/// tell the depth of a .lut.
QUILLONIC_EXPORT Result<Lut, Failure> readStream(std::istream& stream,
                                                 const std::filesystem::path& name = {});

/// Reads a text; the name as above.
QUILLONIC_EXPORT Result<Lut, Failure> readText(std::string_view text, const std::filesystem::path& name = {});

/// Tells what a file holds from its beginning, as far as its format allows: entries are neither read nor
/// checked, except those of a .3dl, which has no other size. Comments after the first entry are missing.
QUILLONIC_EXPORT Result<Description, Failure> describeFile(const std::filesystem::path& path);

}  // namespace quillonic::lut
