// The system's own script runner.
#pragma once

#include <quillonic/platform/script_runner.hpp>

#include <memory>

namespace quillonic {

std::shared_ptr<ScriptRunner> systemScriptRunner();

}  // namespace quillonic
