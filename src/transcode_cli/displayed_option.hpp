// Options as people see them.
#pragma once

#include <quillonic/transcode_cli/codec_conflict.hpp>
#include <quillonic/transcode_cli/flags.hpp>

#include <optional>
#include <string_view>

namespace quillonic {

// A flag and its text; no text where it is removed.
DisplayedOption displayed(const TranscodeFlagRow& row, std::optional<std::string_view> text);

}  // namespace quillonic
