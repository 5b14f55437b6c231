// Chooses the clips of a card, from text to list.
#include <quillonic/selection.hpp>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

using namespace quillonic;
using namespace quillonic::selection;
namespace fs = std::filesystem;

class Printer : public WalkObserver {
 public:
  explicit Printer(std::size_t skipped) : skipped_(skipped) {}
  void chosen(const WalkItem& item, bool& /*stop*/) override {
    std::cout << "  " << item.path.substr(skipped_) << '\n';
  }

 private:
  std::size_t skipped_;
};

int main() {
  using namespace std::chrono_literals;
  const auto card = fs::temp_directory_path() / "quillonic_selection_example";
  fs::remove_all(card);
  fs::create_directories(card / "CLIPS");
  for (const std::string_view name : {"A001C001.MOV", "A001C002.mov", "A001C002.xml", ".A001C003.mov"}) {
    std::ofstream(card / "CLIPS" / name) << std::string(name.size() * 100, '.');
  }
  // A camera whose clock was never set.
  const auto unset =
      std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::sys_days(1980y / 1 / 1)));
  fs::last_write_time(card / "CLIPS" / "A001C002.mov", unset);

  // An application takes Calendar::ofSystem().
  const Calendar calendar(TimeZone::utc());
  for (const std::string_view typed :
       {"kind video", "kind video modified today", "modified before 1981-01-01", "iname *.MOV and hidden",
        "size 1 kB to 1.2 kB and not extension xml", "kind video and size > 1,5 GB"}) {
    const auto read = Criterion::fromText(typed);
    if (!read) {
      std::cout << read.error().description() << '\n';
      continue;
    }
    std::cout << read->text() << '\n';
    Printer printer(card.native().size() + 1);
    const auto summary = walkTree(card, Selector(*read, calendar), {}, printer);
    std::cout << "  " << read->description() << ": " << summary.chosen << " of " << summary.seen << '\n';
  }
  fs::remove_all(card);
}
