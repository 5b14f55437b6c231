// A child that returns what it received: every word, then every input file and the output file of the model
// made from the words, each with a trailing NUL.

#include <quillonic/transcode_cli.hpp>

#include <iostream>

int main(int argc, char** argv) {
  using namespace quillonic;
  const auto words = ArgumentWords::fromMain(argc, argv);
  for (std::size_t i = 0; i < words.size(); ++i) std::cout << words[i] << '\0';
  const TranscodeCliArguments model(words);
  if (const auto files = model.inputFiles()) {
    for (const auto& file : *files) std::cout << file << '\0';
  }
  std::cout << model.argumentFlagValue(VAVOutputFileFlag).value_or("") << '\0';
}
