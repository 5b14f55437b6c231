// Presets with any options of the vocabulary.
#pragma once

#include <quillonic/transcode_cli.hpp>

#include <random>
#include <string>

namespace quillonic {

// What is left of one job in a preset, or a preset's choice, depends on the flag alone.
inline TranscodeOptionChanges randomChanges(std::mt19937& random, bool withRemovals) {
  const std::string_view texts[] = {"",        "1",     "23.976", "960x540", "255,255,255", "01:00:00;00",
                                    "/L \xff", "{}\n\""};
  TranscodeOptionChanges changes;
  const auto change = [&](std::string_view flag, std::string_view text) {
    if (random() % 4 != 0) return;
    withRemovals&& random() % 4 == 0 ? changes.remove(flag) : changes.set(flag, text);
  };
  for (const auto family : detail::flagRows) {
    for (const auto& row : family) {
      const auto values = row.fixedValues;
      change(row.text, values.empty() || random() % 8 == 0 ? texts[random() % std::size(texts)]
                                                           : values[random() % values.size()]);
    }
  }
  for (const auto* flag : {"-in_0_0", "-in_1_0", "-ac_omit_0", "-ac_omit_1", "-tc_burn_later"})
    change(flag, "2");
  return changes;
}

inline StoredPreset randomPreset(std::mt19937& random, bool withRemovals) {
  StoredPreset preset("id \xff", random() % 2 == 0 ? "Größe\n" : "");
  preset.version = random() % 2 == 0 ? "2" : "";
  preset.setChanges(randomChanges(random, withRemovals));
  if (random() % 2 == 0) preset.otherMembers.add("$later", CodedList{CodedValue(), 1.5, CodedRecord()});
  if (random() % 2 == 0) preset.otherMembers.add("icon", std::string("film"));
  return preset;
}

}  // namespace quillonic
