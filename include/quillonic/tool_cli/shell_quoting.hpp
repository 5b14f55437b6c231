/// Writes words as one line for logs, which a shell splits back into the same words.
///
///     std::clog << program << ' ' << shellQuoted(settings.launchArguments()) << '\n';
///     // /opt/transcoder -in_0_0 '/card/take 3.mov' -web ''
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/tool_cli/argument_words.hpp>

#include <string>

namespace quillonic {

/// The words with one space between them, quoted where needed. As the arguments of a command, `/bin/sh`
/// splits the text into the same words, whatever bytes they have. A word ends before its first NUL, as it
/// does when a program is started. A line break stays, so that the text then has several lines.
QUILLONIC_EXPORT std::string shellQuoted(ArgumentWords words);

}  // namespace quillonic
