// A criterion with what was looked up for it once.
#pragma once

#include <quillonic/platform/file_type.hpp>
#include <quillonic/selection/selector.hpp>
#include <quillonic/support/date.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/items.hpp"

namespace quillonic::selection {

// What is known about an item.
struct Facts {
  std::optional<std::string_view> name;
  std::optional<FileType> type;
  std::optional<std::uint64_t> size;
  std::optional<Date> created;
  std::optional<Date> modified;
  std::optional<Date> accessed;
  std::optional<std::uint64_t> device;

  // Adds what a status that was asked for these parts knows.
  void add(const items::Status& status, items::StatusParts parts);
};

struct Selector::Plan {
  Criterion criterion;
  // What the criterion needs to know.
  items::StatusParts parts;
  bool asksForHidden = false;
  // Devices by place, absent for one that could not be looked at.
  std::map<std::filesystem::path, std::optional<std::uint64_t>> devices;
  std::vector<UnseenVolume> unseenVolumes;

  Answer answer(const Facts& facts) const { return answer(criterion, facts); }
  Answer answer(const Criterion& part, const Facts& facts) const;
};

}  // namespace quillonic::selection
