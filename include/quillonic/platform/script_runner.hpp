/// Runs a command with administrator rights. A host with its own way to ask for credentials replaces the
/// built-in runner:
///
///     class HostRunner : public quillonic::ScriptRunner { ... };
///     quillonic::ScriptRunner::setDefaultRunner(std::make_shared<HostRunner>());
#pragma once

#include <quillonic/export.hpp>
#include <quillonic/support/text_dictionary.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillonic {

/// The form in which a runner takes what it runs.
enum class ScriptForm : std::uint8_t {
  /// As a script's source, ``do shell script "/bin/rm '/a/b';" with administrator privileges``.
  text,
  /// As a program and its arguments, which no shell reads: "/bin/rm", "--", "/a/b".
  argumentList,
};

/// Runs one command with raised rights and waits for its end. A runner implements the operation of its form.
/// Any thread may call it.
class QUILLONIC_EXPORT ScriptRunner {
 public:
  ScriptRunner() = default;
  ScriptRunner(const ScriptRunner&) = delete;
  ScriptRunner& operator=(const ScriptRunner&) = delete;
  virtual ~ScriptRunner();

  /// Chooses between the two operations below.
  virtual ScriptForm form() const noexcept = 0;

  /// Runs a script. Gives what went wrong, by key; an empty dictionary when the command has done its work;
  /// nothing when the script could not be created, so that nothing ran. Unless overridden it creates nothing.
  virtual std::optional<TextDictionary> runText(std::string_view source);
  /// Runs a program, the first word, with the other words as its arguments. The result is that of `runText`.
  virtual std::optional<TextDictionary> runArguments(std::span<const std::string> words);

  /// The runner in use, never null. The built-in one takes an argument list. In a process that is root
  /// already it starts the program directly; in any other it asks for the rights through `pkexec`, or where
  /// that has nobody to ask, through `sudo` if that needs no password. It never uses a terminal. On failure
  /// it gives "exit status" (or "signal") with the number, and "output" with at most 64 KiB of what the
  /// program printed. Where there is no way to raise the rights it creates nothing. A thread that is
  /// cancelled meanwhile ends after the program has.
  static std::shared_ptr<ScriptRunner> defaultRunner();

  /// Replaces the runner; null brings the built-in one back. May be called while other threads run scripts.
  static void setDefaultRunner(std::shared_ptr<ScriptRunner> runner);
};

}  // namespace quillonic
