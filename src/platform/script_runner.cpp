#include <quillonic/platform/script_runner.hpp>

#include <utility>

#include "platform/system_script_runner.hpp"
#include "support/settable.hpp"

namespace quillonic {
namespace {

Settable<std::shared_ptr<ScriptRunner>>& runnerInUse() {
  static Settable<std::shared_ptr<ScriptRunner>> current(systemScriptRunner());
  return current;
}

}  // namespace

ScriptRunner::~ScriptRunner() = default;

std::optional<TextDictionary> ScriptRunner::runText(std::string_view /*source*/) {
  return std::nullopt;
}

std::optional<TextDictionary> ScriptRunner::runArguments(std::span<const std::string> /*words*/) {
  return std::nullopt;
}

std::shared_ptr<ScriptRunner> ScriptRunner::defaultRunner() {
  return runnerInUse().get();
}

void ScriptRunner::setDefaultRunner(std::shared_ptr<ScriptRunner> runner) {
  if (!runner) runner = systemScriptRunner();
  runnerInUse().set(std::move(runner));
}

}  // namespace quillonic
