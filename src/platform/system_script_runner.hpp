// The script runner that a system brings along.
#pragma once

#include <memory>

#include <quillonic/platform/script_runner.hpp>

namespace quillonic {

std::shared_ptr<ScriptRunner> systemScriptRunner();

}  // namespace quillonic
