// A host program: it reads words, changes options, writes words, and shares the library's types.
#include <quillonic/filesystem.hpp>
#include <quillonic/support.hpp>
#include <quillonic/time.hpp>
#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>
#include <quillonic/version.hpp>

#include <iostream>
#include <memory>
#include <stdexcept>

using namespace quillonic;

namespace {

// Whether this program catches what the library throws by its exact type.
bool catchesWhatTheLibraryThrows() {
  try {
    decode<TimecodeComponents>(CodedValue(std::string("no timecode")));
  } catch (const DecodingError&) {
    return true;
  }
  return false;
}

// Whether an error thrown by this program keeps its type on its way through the library.
bool throwsThroughTheLibrary() {
  try {
    TranscodeCliArguments().enumerateListValues("[1 2]", [](std::string_view) { throw CLIExitCodeError(3); });
  } catch (const CLIExitCodeError& error) {
    return error.exitStatus() == 3;
  }
  return false;
}

bool seesThroughBases() {
  const std::unique_ptr<AtomicSwitch> base = std::make_unique<UnfairLockBasedAtomicSwitch>(true);
  return dynamic_cast<UnfairLockBasedAtomicSwitch*>(base.get()) &&
         !dynamic_cast<QueueBasedAtomicSwitch*>(base.get());
}

// The library stores an item's kind as a value of a type that this program must recognise.
bool readsTypesThatTheLibraryStored() {
  const auto attributes = expandedAttributesOfItem("/");
  return attributes && attributes->value<FileType>(FileAttributeKey::NSFileType) == FileType::directory;
}

}  // namespace

extern "C" int consume() {
  TranscodeCliArguments settings(ArgumentWords{"-VR", " 25 ", "-out", "/media/a.mov"}, true);
  settings.setVideoFrameRate(23.976);
  settings.setOverwriteExisting(true);
  for (const auto& word : settings.commandLineArguments()) std::cout << word << ' ';
#ifdef QUILLONIC_STATIC
  std::cout << "static ";
#else
  std::cout << "shared ";
#endif
  std::cout << runningVersion() << '\n';

  const bool fine = runningVersion() == version() && catchesWhatTheLibraryThrows() &&
                    throwsThroughTheLibrary() && seesThroughBases() && readsTypesThatTheLibraryStored();
  if (!fine) std::cerr << "the library's types are not this program's\n";
  return fine ? 0 : 1;
}

int main() {
  return consume();
}
