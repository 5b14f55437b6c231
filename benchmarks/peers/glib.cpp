#include <gio/gio.h>
#include <stdexcept>

#include "../catalogue.hpp"
#include "../files.hpp"
#include "../words.hpp"

namespace quillonic::benchmarks {
namespace {

struct State {
  ~State() { forget(); }
  void forget() {
    for (auto& value : values) g_clear_pointer(&value, g_free);
  }

  std::vector<char*> values;
  std::vector<GOptionEntry> entries;
};

WordsReader reader(const CommandLine& line) {
  const auto state = std::make_shared<State>();
  state->values.resize(line.flags.size());
  for (std::size_t i = 0; i < line.flags.size(); ++i) {
    auto* const value = static_cast<void*>(&state->values[i]);
    state->entries.push_back({line.flags[i].c_str(), 0, 0, G_OPTION_ARG_STRING, value, "", nullptr});
  }
  state->entries.push_back({});
  const auto parse = [=, &line] {
    state->forget();
    // It takes what it reads out of the list.
    auto words = line.argv;
    int count = line.argc();
    char** list = words.data();
    auto* const context = g_option_context_new(nullptr);
    g_option_context_set_help_enabled(context, FALSE);
    g_option_context_add_main_entries(context, state->entries.data(), nullptr);
    const bool isRead = g_option_context_parse(context, &count, &list, nullptr) != FALSE;
    g_option_context_free(context);
    if (!isRead) throw std::runtime_error("cannot read the words");
  };
  return {parse, [=, &line] {
            Words words;
            for (std::size_t i = 0; i < state->values.size(); ++i) {
              if (state->values[i]) append(words, line.flagWords[i], state->values[i]);
            }
            return words;
          }};
}

std::uint64_t sizeOf(const std::filesystem::path& item) {
  constexpr auto asked = "standard::type,standard::size,time::modified,time::created,unix::*";
  auto* const file = g_file_new_for_path(item.c_str());
  auto* const info = g_file_query_info(file, asked, G_FILE_QUERY_INFO_NOFOLLOW_SYMLINKS, nullptr, nullptr);
  const auto size = g_file_info_get_size(info);
  g_object_unref(info);
  g_object_unref(file);
  return static_cast<std::uint64_t>(size);
}

std::string typeByName(const std::filesystem::path& file) {
  auto* const type = g_content_type_guess(file.filename().c_str(), nullptr, 0, nullptr);
  std::string found = type;
  g_free(type);
  return found;
}

// By name and first bytes.
std::string typeOf(const std::filesystem::path& item) {
  auto* const file = g_file_new_for_path(item.c_str());
  auto* const info =
      g_file_query_info(file, "standard::content-type", G_FILE_QUERY_INFO_NONE, nullptr, nullptr);
  std::string found = g_file_info_get_content_type(info);
  g_object_unref(info);
  g_object_unref(file);
  return found;
}

constexpr auto note = "less: normalises nothing, keeps no order; two hyphens; told of the flags each time";
const bool added =
    addWordsReader({"GLib GOptionContext", note, "--"}, reader) &&
    addAttributes("g_file_query_info", "less: no names of owner and group", sizeOf) &&
    addTypesByName("g_content_type_guess", "more: all types of the desktop", typeByName) &&
    addTypesByBytes("g_file_query_info", "more: all types of the desktop, and its size", typeOf);

}  // namespace
}  // namespace quillonic::benchmarks
