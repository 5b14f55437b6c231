// Identifies files, asks whose card a folder is, and lists its clips.
#include <quillonic/catalogue.hpp>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iostream>

using namespace quillonic;
using namespace quillonic::catalogue;

int main() {
  const auto card = std::filesystem::temp_directory_path() / "catalogue_card" / "card";
  std::filesystem::remove_all(card);
  for (const char* name :
       {"DCIM/100GOPRO/GH010001.MP4", "DCIM/100GOPRO/GH010002.MP4", "DCIM/100GOPRO/GH020001.MP4",
        "DCIM/100GOPRO/GH010001.THM", "DCIM/100GOPRO/GH040001.MP4", "DCIM/100GOPRO/GOPR0003.GPR",
        "DCIM/100GOPRO/GOPR0003.JPG", "DCIM/100GOPRO/._GH010001.MP4", "MISC/version.txt"}) {
    std::filesystem::create_directories((card / name).parent_path());
    std::ofstream(card / name) << "content";
  }

  // By name, and by both.
  std::cout << displayName(*identifyName("A001C001.MOV").format) << '\n';
  const auto file = identify("clip.mov", "\xFF\xD8\xFF\xE0");
  std::cout << "clip.mov: " << displayName(*file.signature)
            << (file.isContradictory ? ", a contradiction" : "") << '\n';

  // Whose card it is, and what belongs together.
  const auto contents = contentsOf(card);
  for (const auto& found : contents.cards)
    std::cout << maker(found.layout) << ", " << family(found.layout) << ", " << rawValue(found.confidence)
              << '\n';
  for (const auto& clip : contents.clips) {
    std::cout << clip.name << ":";
    for (const auto& part : clip.files)
      std::cout << ' ' << std::filesystem::path(part.path).filename().native();
    for (const auto& problem : clip.problems) std::cout << " (" << description(problem) << ')';
    std::cout << '\n';
  }
  std::filesystem::remove_all(card.parent_path());
}
