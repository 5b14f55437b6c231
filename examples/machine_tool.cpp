// Prints what the system tells of the machine, for a support report.
//
//     machine_tool           a line for each field, and how many transcodes suit the machine
//     machine_tool --json    the same as JSON
#include <quillonic/host.hpp>
#include <quillonic/json.hpp>

#include <iostream>
#include <string_view>

using namespace quillonic;

int main(int argc, char** argv) {
  const std::string_view option = argc > 1 ? argv[1] : "";
  const bool asksForHelp = argc == 2 && (option == "-h" || option == "--help");
  if (argc > 2 || asksForHelp || (argc == 2 && option != "--json")) {
    (asksForHelp ? std::cout : std::cerr) << "usage: machine_tool [--json]\n";
    return asksForHelp ? 0 : 64;
  }
  const auto machine = host::describeMachine();
  const auto transcodes = host::recommendedConcurrentTranscodes(machine);
  if (option.empty()) {
    std::cout << machine.line() << "\n\n"
              << machine.table() << "\ntranscodes at once: " << transcodes << '\n';
  } else {
    auto report = toJson(encode(machine));
    report["concurrentTranscodes"] = transcodes;
    std::cout << report.dump(2) << '\n';
  }
  return std::cout.flush() ? 0 : 1;
}
