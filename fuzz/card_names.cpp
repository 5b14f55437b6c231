// Takes lines as names of files in the folders of every layout, and collects the clips.
#include <quillonic/catalogue.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "target.hpp"

namespace quillonic::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr const char* places[] = {
    "CONTENTS/CLIP",
    "CONTENTS/VIDEO",
    "CONTENTS/CLIPS001/AA0001",
    "Clip",
    "XDROOT/Clip",
    "PROAV/CLPR/C0001",
    "BPAV/CLPR/x",
    "PRIVATE/M4ROOT/CLIP",
    "VIDEO/HVR",
    "AVCHD/BDMV/STREAM",
    "DCIM/100GOPRO",
    "DCIM/Camera01",
    "DCIM/100APPLE",
    "A.RDM/A.RDC",
    "Proxy",
    "FALSETAKES",
    "SOUND",
    "Avid MediaFiles/MXF/1",
};

// Removed at the end of each run.
struct Card {
  Card() {
    std::string name = fs::temp_directory_path() / "quillonic-fuzz-XXXXXX";
    require(mkdtemp(name.data()) != nullptr, "a temporary folder can be made");
    path = name;
  }
  Card(const Card&) = delete;
  Card& operator=(const Card&) = delete;
  ~Card() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }

  fs::path path;
};

}  // namespace

void run(std::string_view bytes) {
  constexpr std::size_t greatestCount = 8;
  const Card card;
  std::vector<std::string> made;
  std::size_t place = bytes.size();
  auto names = lines(bytes);
  names.resize(std::min(names.size(), greatestCount));
  for (const auto name : names) {
    if (name.empty() || name == "." || name == ".." || name.size() > 255 ||
        name.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos)
      continue;
    for (std::size_t i = 0; i < 3; ++i) {
      const auto folder = fs::path(places[++place % std::size(places)]);
      fs::create_directories(card.path / folder);
      const auto file = folder / fs::path(name);
      if (fs::exists(card.path / file)) continue;
      if (std::ofstream(card.path / file)) made.push_back(file.lexically_normal());
    }
  }
  const auto contents = catalogue::contentsOf(card.path);
  std::vector<std::string> found;
  for (const auto& clip : contents.clips) {
    require(!clip.files.empty(), "a clip has files");
    for (const auto& file : clip.files) found.push_back(file.path);
  }
  for (const auto& file : contents.bookkeeping) found.push_back(file.path);
  for (const auto& file : contents.other) found.push_back(file.path);
  std::ranges::sort(made);
  std::ranges::sort(found);
  require(found == made, "every file is in one place");
  for (const auto& problem : contents.problems)
    require(!description(problem).empty(), "a problem has a text");
}

}  // namespace quillonic::fuzz
