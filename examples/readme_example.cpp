#include <quillonic/tool_cli.hpp>
#include <quillonic/transcode_cli.hpp>

#include <iostream>

using namespace quillonic;

int main(int argc, char** argv) {
  // Read: the words that followed the tool's name, in order, without those that a parent adds for itself.
  const auto [parent, words] = CLICustodialOptions::read(ArgumentWords::fromMain(argc, argv));
  TranscodeCliArguments settings(words, true);
  for (const auto& problem : settings.problems()) std::cerr << problem.description() << '\n';
  // Change: flags and fixed values are constants.
  settings.setArgumentFlagValue(VAVVideoFormatFlag, VAVProRes422);
  settings.setArgumentFlagValue(VAVOutputFileFlag, "/media/out.mov");
  // Write: the words for the next process.
  for (const auto& word : settings.launchArguments()) std::cout << '"' << word << "\" ";
}
