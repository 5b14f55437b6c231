// Prints the paths below a folder that criteria choose, and a summary on standard error.
//
//     select_tool /card 'kind video and size > 1 GB and modified this-week'
//     select_tool -0 /card 'iname "a001*" or not (kind video, audio)' | xargs -0 ls -l
//
// Ends with 0 when everything could be read and decided, with 1 when something could not or a volume that is
// named is not there, and with 64 when it was called wrongly. A closed pipe ends it as any other program.
#include <quillonic/selection.hpp>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

using namespace quillonic;
using namespace quillonic::selection;

constexpr int incomplete = 1;
constexpr int wrongArguments = 64;

constexpr std::string_view usage =
    "usage: select_tool [-0] [-a] [-x] DIR [CRITERIA...]\n"
    "  -0   end each path with a NUL instead of a line break\n"
    "  -a   see hidden items although the criteria do not name them\n"
    "  -x   see what is on volumes that are mounted below the folder\n"
    "The criteria are one text, or several that are joined with spaces; without any, everything is chosen:\n"
    "  kind video, audio     extension mov, mxf     name 'A0*.mov'     iname '*.mov'     hidden\n"
    "  size > 1.5 GB     size 1 MB to 700MiB     modified last-7-days     created since 2026-11-01\n"
    "  volume /media/CARD     and  or  not  ( )\n";

class Printer : public WalkObserver {
 public:
  explicit Printer(char end) : end_(end), isTerminal_(isatty(STDERR_FILENO) != 0) {}

  void chosen(const WalkItem& item, bool& stop) override {
    std::fwrite(item.path.data(), 1, item.path.size(), stdout);
    putchar_unlocked(end_);
    bytes_ += item.size.value_or(0);
    stop = std::ferror(stdout) != 0;
  }
  void undecided(const WalkItem& item) override { std::cerr << "not known enough of: " << item.path << '\n'; }
  void unread(std::string_view path, std::error_code error) override {
    std::cerr << "not read: " << path << ": " << error.message() << '\n';
  }
  void progressed(const WalkSummary& soFar, bool& /*stop*/) override {
    const auto now = std::chrono::steady_clock::now();
    if (!isTerminal_ || now < next_) return;
    next_ = now + std::chrono::milliseconds(200);
    std::cerr << '\r' << soFar.seen << " seen, " << soFar.chosen << " chosen\r";
  }

  std::uint64_t bytes() const { return bytes_; }

 private:
  char end_;
  bool isTerminal_;
  std::uint64_t bytes_ = 0;
  std::chrono::steady_clock::time_point next_ = std::chrono::steady_clock::now() + std::chrono::seconds(1);
};

// As many spaces as a UTF-8 text has characters.
std::string spacesBelow(std::string_view text) {
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  return std::string(static_cast<std::size_t>(std::ranges::count_if(text, begins)), ' ');
}

}  // namespace

int main(int argc, char** argv) {
  WalkOptions options;
  char end = '\n';
  int option = 0;
  while ((option = getopt(argc, argv, "+0ahx")) != -1) {
    if (option == '0') end = '\0';
    if (option == 'a') options.seesHidden = true;
    if (option == 'x') options.entersMountPoints = true;
    if (option == 'h') return (std::cout << usage).flush() ? 0 : incomplete;
    if (option == '?') {
      std::cerr << usage;
      return wrongArguments;
    }
  }
  if (optind >= argc) {
    std::cerr << usage;
    return wrongArguments;
  }
  const char* folder = argv[optind++];
  std::string text;
  for (; optind < argc; ++optind) text.append(text.empty() ? "" : " ").append(argv[optind]);

  const auto criterion = Criterion::fromText(text);
  if (!criterion) {
    // The column is that of the text as it was joined.
    const auto refused = criterion.error();
    std::cerr << "criteria, " << refused.description() << '\n';
    if (refused.line == 1 && text.find('\n') == std::string::npos) {
      std::cerr << "  " << text << "\n  " << spacesBelow(std::string_view(text).substr(0, refused.column - 1))
                << "^\n";
    }
    return wrongArguments;
  }
  const auto calendar = Calendar::ofSystem().value_or(Calendar(TimeZone::utc()));

  const Selector selector(*criterion, calendar);
  for (const auto& [place, error] : selector.unseenVolumes()) {
    std::cerr << "volume " << place.native() << ": " << error.message() << '\n';
  }
  if (!selector.unseenVolumes().empty()) return incomplete;

  Printer printer(end);
  const auto summary = walkTree(folder, selector, options, printer);
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    std::cerr << "the paths cannot be written\n";
    return incomplete;
  }
  std::cerr << criterion->description() << ": " << summary.chosen << " of " << summary.seen;
  if (printer.bytes() != 0) std::cerr << ", " << byteSizeText(printer.bytes());
  if (summary.undecided != 0) std::cerr << "; " << summary.undecided << " not decided";
  if (summary.unread != 0) std::cerr << "; " << summary.unread << " not read";
  std::cerr << '\n';
  return summary.undecided + summary.unread == 0 && !summary.isStopped ? 0 : incomplete;
}
