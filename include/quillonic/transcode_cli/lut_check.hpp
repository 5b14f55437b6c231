/// What a transcode's look-up table holds, or why it will fail, before a child is started.
///
///     if (const auto table = colorLutOf(settings); table && !*table) show(table->error().description());
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/lut/lut.hpp>
#include <quillonic/lut/reading.hpp>
#include <quillonic/transcode_cli/arguments.hpp>

#include <optional>

namespace quillonic {

/// Reads the whole file that follows "-clut": the child does the same, and fails where this does. Nothing if
/// the flag is not set or has no path. A relative path counts from the working folder.
QUILLONIC_EXPORT std::optional<Result<lut::Description, lut::Failure>> colorLutOf(
    const TranscodeCliArguments& settings);

}  // namespace quillonic
