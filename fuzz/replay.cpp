// Runs a target without libFuzzer: over every file of a folder, over every beginning of each, and over 2,000
// random mixtures of their lines, or as many as the second word says. The mixtures are the same in every run.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "quiet_log.hpp"
#include "target.hpp"

namespace {

// In a block of its exact size, so that reading past the end is detected.
void runOn(std::string_view bytes) {
  const std::vector<char> block(bytes.begin(), bytes.end());
  quillonic::fuzz::run({block.data(), block.size()});
}

class Mixer {
 public:
  void add(std::string_view file) {
    const auto lines = quillonic::fuzz::lines(file);
    lines_.insert(lines_.end(), lines.begin(), lines.end());
  }

  std::string mixture() {
    std::string mixed;
    for (auto lines = 1 + below(24); lines > 0; --lines) {
      mixed += changed(lines_[below(lines_.size())]);
      if (lines > 1 || below(2) == 0) mixed += '\n';
    }
    return mixed;
  }

 private:
  std::size_t below(std::size_t n) { return random_() % n; }

  std::string changed(std::string line) {
    if (below(4) != 0) return line;
    const auto at = below(line.size() + 1);
    switch (below(5)) {
      case 0:
        return line.insert(at, 1, static_cast<char>(below(256)));
      case 1:
        return line.insert(at, lines_[below(lines_.size())]);
      case 2:
        return line.erase(at, below(4));
      case 3:
        for (auto& c : line) c = static_cast<char>(c >= 'a' && c <= 'z' && below(2) == 0 ? c - 'a' + 'A' : c);
        return line;
      default:
        return " " + line + "\u3000\t";
    }
  }

  std::vector<std::string> lines_{""};
  std::mt19937 random_;
};

}  // namespace

int main(int argc, char** argv) {
  quillonic::fuzz::QuietLog::install();
  if (argc < 2) return 1;
  std::vector<std::filesystem::path> files;
  std::ranges::copy(std::filesystem::directory_iterator(argv[1]), std::back_inserter(files));
  std::ranges::sort(files);
  Mixer mixer;
  for (const auto& file : files) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    for (std::size_t size = 0; size <= bytes.size(); ++size) runOn(std::string_view(bytes).substr(0, size));
    mixer.add(bytes);
  }
  for (int rounds = argc > 2 ? std::atoi(argv[2]) : 2000; rounds > 0; --rounds) runOn(mixer.mixture());
  std::printf("%zu files\n", files.size());
  return files.empty() ? 1 : 0;
}
