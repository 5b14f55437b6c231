// Files that begin as media do and hold little else, and cards of them, below TMPDIR, removed at the end.
#include "catalogue.hpp"

#include <quillonic/catalogue.hpp>

#include <array>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillonic::benchmarks {
namespace {

namespace fs = std::filesystem;
using namespace quillonic::catalogue;

constexpr std::size_t fileCount = 10'000;
constexpr std::size_t cardFileCount = 20'000;
constexpr std::size_t headSize = 8192;

struct Folder {
  Folder() {
    std::string name = fs::temp_directory_path() / "quillonic-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    root = name;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
  }

  void file(const std::string& name, const std::string& content = {}) const {
    fs::create_directories((root / name).parent_path());
    std::ofstream(root / name, std::ios::binary) << content;
  }

  fs::path root;
};

// A mixture of what cards hold, in which each kind has its own first bytes.
const std::vector<fs::path>& media() {
  static const Folder folder;
  static const auto files = [] {
    using namespace std::string_literals;
    const std::array<std::pair<const char*, std::string>, 6> kinds{{
        {"MXF", "\x06\x0e\x2b\x34\x02\x05\x01\x01\x0d\x01\x02\x01\x01\x02"s},
        {"MP4",
         "\0\0\0\x18"
         "ftypmp42"s},
        {"JPG", "\xff\xd8\xff\xe0\0\x10JFIF\0"s},
        {"WAV", "RIFF\x24\x40\0\0WAVEfmt "s},
        {"TIF", "II*\0\x08\0\0\0"s},
        {"XML", "<?xml version=\"1.0\"?>\n<NonRealTimeMeta>"s},
    }};
    std::vector<fs::path> all;
    for (std::size_t i = 0; i < fileCount; ++i) {
      auto [extension, head] = kinds.at(i % kinds.size());
      head.resize(headSize, head.starts_with('<') ? ' ' : '\0');
      const auto name = std::string("reel ").append(std::to_string(i / 100)) + "/A001C" + std::to_string(i) +
                        "_201112." + extension;
      folder.file(name, head);
      all.push_back(folder.root / name);
    }
    return all;
  }();
  return files;
}

// A clip of it has a picture, a description, a proxy and a thumbnail.
const fs::path& card() {
  static const Folder folder;
  static const bool isMade = [] {
    for (std::size_t i = 0; i < cardFileCount / 4; ++i) {
      const auto clip = std::string("C").append(std::to_string(10'000 + i));
      folder.file("PRIVATE/M4ROOT/CLIP/" + clip + ".MP4");
      folder.file("PRIVATE/M4ROOT/CLIP/" + clip + "M01.XML");
      folder.file("PRIVATE/M4ROOT/SUB/" + clip + "S03.MP4");
      folder.file("PRIVATE/M4ROOT/THMBNL/" + clip + "T01.JPG");
    }
    return true;
  }();
  use(isMade);
  return folder.root;
}

// A folder of 20,000 pictures in pairs.
const fs::path& stills() {
  static const Folder folder;
  static const bool isMade = [] {
    for (std::size_t i = 0; i < cardFileCount / 2; ++i) {
      const auto shot = std::string("DCIM/").append(std::to_string(100 + i / 1000)) + "CANON/IMG_" +
                        std::to_string(1000 + i % 1000);
      folder.file(shot + ".CR3");
      folder.file(shot + ".JPG");
    }
    return true;
  }();
  use(isMade);
  return folder.root;
}

std::size_t walked(int parent, const char* name) {
  const int descriptor = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  auto* const stream = fdopendir(descriptor);
  std::size_t count = 0;
  while (const auto* entry = readdir(stream)) {
    if (entry->d_name == std::string_view(".") || entry->d_name == std::string_view("..")) continue;
    struct statx status {};
    use(statx(descriptor, entry->d_name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
              STATX_BASIC_STATS | STATX_BTIME, &status));
    count += S_ISDIR(status.stx_mode) ? walked(descriptor, entry->d_name) : 1;
  }
  closedir(stream);
  return count;
}

constexpr auto byName = "identify 10,000 files by name, each";
constexpr auto byBytes = "identify 10,000 files by first bytes, each";

Work typing(const TypeOf& typeOf) {
  if (typeOf(media()[1]) != "video/mp4") throw std::runtime_error("answers something else");
  return [=] {
    for (const auto& file : media()) use(typeOf(file));
  };
}

void read(const fs::path& file) {
  std::array<char, 4096> bytes;
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  use(::read(descriptor, bytes.data(), bytes.size()));
  close(descriptor);
}

void addCard(const std::string& work, const fs::path& (*made)(), std::size_t clipCount) {
  add({work, ours, "", cardFileCount}, [=] {
    if (contentsOf(made()).clips.size() != clipCount) throw std::runtime_error("clips are missing");
    return [=] { use(contentsOf(made())); };
  });
  add({work, least("a walk with one look at each"), "", cardFileCount}, [=] {
    if (walked(AT_FDCWD, made().c_str()) != cardFileCount) throw std::runtime_error("files are missing");
    return [=] { use(walked(AT_FDCWD, made().c_str())); };
  });
}

const bool added = [] {
  static std::vector<std::string> names;
  add({byName, ours, "", fileCount}, [] {
    for (const auto& file : media()) names.push_back(file.filename());
    return [] {
      for (const auto& name : names) use(identifyName(name));
    };
  });
  add({byBytes, ours, "", fileCount}, [] {
    if (identifyFile(media()[1]).format != MediaFormat::mpeg4Movie) throw std::runtime_error("is no movie");
    return [] {
      for (const auto& file : media()) use(identifyFile(file));
    };
  });
  add({byBytes, least("open, read, close"), "", fileCount}, [] {
    return [] {
      for (const auto& file : media()) read(file);
    };
  });
  addCard("clips of a card with 20,000 files, each file", card, cardFileCount / 4);
  addCard("shots of a card with 20,000 pictures, each file", stills, cardFileCount / 2);
  return true;
}();

}  // namespace

bool addTypesByName(const std::string& who, const std::string& note, TypeOf typeOf) {
  return add({byName, who, note, fileCount}, [=] { return typing(typeOf); });
}

bool addTypesByBytes(const std::string& who, const std::string& note, TypeOf typeOf) {
  return add({byBytes, who, note, fileCount}, [=] { return typing(typeOf); });
}

}  // namespace quillonic::benchmarks
