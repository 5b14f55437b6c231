/// Runs a command with administrator rights. A host that asks for credentials in its own way replaces the
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

/// How a runner takes a command.
enum class ScriptForm : std::uint8_t {
  /// The source of a script: ``do shell script "/bin/rm '/a/b';" with administrator privileges``.
  text,
  /// A program and its arguments, without a shell: "/bin/rm", "--", "/a/b".
  argumentList,
};

/// Runs one command with raised rights and waits until it ends. A runner implements the operation for its
/// form. Any thread may call it.
class QUILLONIC_EXPORT ScriptRunner {
 public:
  ScriptRunner() = default;
  ScriptRunner(const ScriptRunner&) = delete;
  ScriptRunner& operator=(const ScriptRunner&) = delete;
  virtual ~ScriptRunner();

  /// Selects one of the two operations below.
  virtual ScriptForm form() const noexcept = 0;

  /// Runs a script. Returns what went wrong, by key; an empty dictionary when the command succeeded; nothing
  /// when the script could not be created and so nothing ran. By default it creates nothing.
  virtual std::optional<TextDictionary> runText(std::string_view source);
  /// Runs a program, the first word, with the other words as arguments. Returns what `runText` does.
  virtual std::optional<TextDictionary> runArguments(std::span<const std::string> words);

  /// The runner in use, never null. The built-in runner takes an argument list. If the process is root, it
  /// starts the program directly; otherwise it asks for the rights through `pkexec`, or if nobody can be
  /// asked there, through `sudo` if that needs no password. It never uses a terminal. On failure it gives
  /// "exit status" (or "signal") with the number, and "output" with at most 64 KiB of the program's output.
  /// When the rights cannot be raised, it creates nothing. A cancelled thread ends after the program has.
  static std::shared_ptr<ScriptRunner> defaultRunner();

  /// Replaces the runner; null restores the built-in one. May be called while other threads run scripts.
  static void setDefaultRunner(std::shared_ptr<ScriptRunner> runner);
};

}  // namespace quillonic
