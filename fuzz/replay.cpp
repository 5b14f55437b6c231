// Runs a target over every file of its corpus and over every beginning of each, without libFuzzer.

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "quiet_log.hpp"
#include "target.hpp"

int main(int argc, char** argv) {
  quillonic::fuzz::QuietLog::install();
  int files = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream in(entry.path(), std::ios::binary);
      const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
      // The last is the whole file. Each in a block of its own size, so that a read behind its end is seen.
      for (std::size_t size = 0; size <= bytes.size(); ++size) {
        const std::vector<char> beginning(bytes.data(), bytes.data() + size);
        quillonic::fuzz::run({beginning.data(), size});
      }
      ++files;
    }
  }
  std::printf("%d files\n", files);
  return files > 0 ? 0 : 1;
}
