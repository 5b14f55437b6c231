#include <quillonic/transcode_cli.hpp>

#include <iostream>

using namespace quillonic;

int main(int argc, char** argv) {
  // Read: the words that followed the tool's name, their order kept.
  TranscodeCliArguments settings(ArgumentWords::fromMain(argc, argv), true);
  for (const auto& problem : settings.problems()) std::cerr << problem.description() << '\n';
  // Change: flags and fixed values are constants.
  settings.setArgumentFlagValue(VAVVideoFormatFlag, VAVProRes422);
  settings.setArgumentFlagValue(VAVOutputFileFlag, "/media/out.mov");
  // Write: the words for the next process.
  for (const auto& word : settings.launchArguments()) std::cout << '"' << word << "\" ";
}
