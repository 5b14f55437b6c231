// Runs the tests in the locale of the environment, like a host with a user interface: nothing that the
// library reads or writes may depend on it.

#include <cstdio>
#include <gtest/gtest.h>
#include <locale>
#include <stdexcept>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  try {
    // Sets the locale of the C library too.
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error&) {
    std::fputs("The locale of the environment is not installed.\n", stderr);
  }
  std::printf("Locale: %s\n", std::locale().name().c_str());
  return RUN_ALL_TESTS();
}
