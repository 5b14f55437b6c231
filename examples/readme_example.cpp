#include <quillonic/transcode_cli.hpp>

#include <iostream>

using namespace quillonic;

int main(int argc, char** argv) {
  // Read: the words that followed the tool's name, their order kept.
  TranscodeCliArguments settings(ArgumentWords::fromMain(argc, argv), true);
  for (const auto& flag : settings.unknownFlags().value_or(std::vector<std::string>{})) {
    std::cerr << "unknown flag " << flag << '\n';
  }
  // Change: flags and fixed values are constants.
  settings.setArgumentFlagValue(VAVVideoFormatFlag, VAVProRes422);
  settings.setArgumentFlagValue(VAVOutputFileFlag, "/media/out.mov");
  // Write: the words for the next process.
  for (const auto& word : settings.commandLineArguments()) std::cout << '"' << word << "\" ";
}
