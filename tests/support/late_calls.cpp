// Calls the library after everything of static life that it made could have been destroyed: in an atexit
// handler and in a destructor, both registered before the first call.

#include <quillonic/filesystem.hpp>
#include <quillonic/host.hpp>
#include <quillonic/media.hpp>
#include <quillonic/platform.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

using namespace quillonic;

// What each part of the library answers.
std::vector<std::string> answers() {
  VantiroLogging::defaultLogger()->logInfo("a host's message");
  std::vector<std::string> said{
      Localization::localized("{} kHz", {"48"}),
      std::to_string(FileManager().removePathWithElevatedPermissions("/missing")),
      std::to_string(settings::useGPUAcceleration.read()),
      std::to_string(ScriptRunner::defaultRunner()->form() == ScriptForm::argumentList),
      std::to_string(SampleRate::allCommonCases().size()),
      std::to_string(VAVTranscodeArgumentVideoCodecValue::allProResFormats().size()),
      std::to_string(VAVTranscodeArgumentVideoCodecValue::allWebFormats().size()),
      std::to_string(VAVTranscodeArgumentVideoCodecValue::allAvidDNxFormats().size())};
  const auto token = host::NotificationCenter::current()->observeAll(
      [&](const host::Notification& notification) { said.push_back(notification.name); });
  host::NotificationCenter::current()->post({"late", {}});
  const std::filesystem::path root("/");
  for (const auto& drive : FileManager().getUniqueDrives({&root, 1})) said.push_back(drive);
  const auto attributes = expandedAttributesOfItem(root);
  for (const auto& [key, value] : attributes.value_or(FileAttributes()))
    said.push_back(std::string(key.rawValue()) + value.description());
  for (const std::error_code error :
       {make_error_code(IOError::closedToIOActivity),
        make_error_code(FilePathAttributeGenerationError::notAnAliasFile),
        make_error_code(MediaAnalysisCLIError{}), make_error_code(MediaAnalysisCLIImageError{})}) {
    said.push_back(error.category().name() + error.message());
  }
  return said;
}

// Never destroyed either.
auto& expected = *new std::vector<std::string>;

void askAgain() {
  if (answers() == expected) return;
  std::fputs("another answer while the program ends\n", stderr);
  _exit(1);
}

struct Host {
  ~Host() { askAgain(); }
} host;

}  // namespace

int main() {
  std::atexit(askAgain);
  expected = answers();
}
