#include <quillonic/platform/script_runner.hpp>

#include <utility>

#include "platform/system_script_runner.hpp"
#include "support/never_destroyed.hpp"
#include "support/service.hpp"

namespace quillonic {
namespace {

Service<std::shared_ptr<ScriptRunner>>& runner() {
  static const NeverDestroyed<Service<std::shared_ptr<ScriptRunner>>> service(systemScriptRunner());
  return *service;
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
  return runner().current();
}

void ScriptRunner::setDefaultRunner(std::shared_ptr<ScriptRunner> runner) {
  quillonic::runner().replace(std::move(runner));
}

}  // namespace quillonic
