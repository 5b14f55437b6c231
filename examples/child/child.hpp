// Child processes: started without a shell, read line by line while they run, and ended with their parent.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace child {

// A descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();
  int number() const noexcept { return number_; }
  bool isOpen() const noexcept { return number_ >= 0; }

 private:
  int number_;
};

struct Program {
  std::string name;  // looked up in PATH unless it has a slash
  std::vector<std::string> words;
  std::filesystem::path folder{};  // its working folder; empty for that of this process
  int feeds = 0;                   // pipes that the child reads, as its descriptors 3, 4 and so on
};

// The program is not there.
struct MissingProgram : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A signal came, or the parent has ended: this process should clean up and end too.
struct Interrupted {
  int signal;
};

// One running child. The destructor ends it, and waits until it has gone.
class Child {
 public:
  explicit Child(const Program& program);
  Child(Child&& other) noexcept;
  ~Child();

  // Writes to a pipe of the child, the whole text at once, and closes it. A child that has ended is no error.
  void feed(std::size_t pipe, std::string_view text);
  void signal(int number) const noexcept;
  // Waits for the end. The exit status, or 128 and the signal that ended it.
  int wait();

  pid_t process = 0;
  Descriptor output;
  Descriptor errors;

 private:
  std::vector<Descriptor> feeds_;
  int status_ = -1;
};

enum class Stream { output, errors };
using OnLine = std::function<void(std::size_t child, Stream stream, std::string_view line)>;

// From now on, signals that would end this process, and the end of the parent (if not 0), are seen by
// `readLines` alone.
void watch(pid_t parent);

// Gives every line that the children write, until all of them have closed their output. On a signal, or when
// the watched parent has ended, passes the signal on to the children and throws `Interrupted`.
void readLines(std::span<Child* const> children, const OnLine& onLine);

// Ends this process as the signal would have ended it.
[[noreturn]] void endBy(int signal);

// What a program prints, until its end.
struct Result {
  int status = 0;
  std::string output;
  std::string errors;
};
Result collect(Child& child);

// A folder for temporary files, removed with all it contains.
class PrivateFolder {
 public:
  explicit PrivateFolder(const std::filesystem::path& parent);
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;
  ~PrivateFolder();
  const std::filesystem::path& path() const noexcept { return path_; }

  // Gives a file a harmless name in this folder, so that its own name meets no other program's syntax.
  std::string link(const std::filesystem::path& file, std::string name) const;
  // Writes a text to a file in this folder, and returns its name.
  std::string write(std::string name, std::string_view text) const;

 private:
  std::filesystem::path path_;
};

// A file that appears under its name only when it is complete. Until then it has no name, so that nothing
// stays whatever ends this process; or, where the file system needs one, a hidden name beside that place.
class PartFile {
 public:
  explicit PartFile(const std::filesystem::path& target);  // throws std::system_error
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;
  ~PartFile();
  // Where this process and its children can write it.
  const std::filesystem::path& path() const noexcept { return path_; }
  // Gives the file its name. Without `overwrite` an existing file stays, and the error says so.
  std::error_code finish(bool overwrite);

 private:
  std::string hiddenName() const;

  std::filesystem::path target_;
  std::filesystem::path path_;
  Descriptor unnamed_;
  std::filesystem::path hidden_;
};

}  // namespace child
