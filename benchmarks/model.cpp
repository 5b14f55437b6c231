// Changes of a model among few and among many flags, beside those of plain dictionaries.
#include <quillonic/transcode_cli.hpp>

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "rows.hpp"

namespace quillonic::benchmarks {
namespace {

class Model {
 public:
  auto read(const std::string& flag) const { return model_.argumentFlagValue(flag); }
  void set(const std::string& flag, const std::string& value) { model_.setArgumentFlagValue(flag, value); }
  void remove(const std::string& flag) { model_.setArgumentFlagValue(flag, std::nullopt); }
  void update(const TranscodeInputFileGroup& group) { model_.update(group); }

 private:
  TranscodeCliArguments model_;
};

template <class Dictionary> class Plain {
 public:
  auto read(const std::string& flag) const { return std::string_view(texts_.find(flag)->second); }
  void set(const std::string& flag, const std::string& value) { texts_.insert_or_assign(flag, value); }
  void remove(const std::string& flag) { texts_.erase(flag); }
  void update(const TranscodeInputFileGroup& group) {
    const auto prefix = "-in_" + std::to_string(group.group) + "_";
    auto old = texts_.lower_bound(prefix);
    while (old != texts_.end() && old->first.starts_with(prefix)) old = texts_.erase(old);
    for (std::size_t i = 0; i < group.files.size(); ++i) set(prefix + std::to_string(i), group.files[i]);
  }

 private:
  Dictionary texts_;
};

using Map = Plain<std::map<std::string, std::string>>;
using Table = Plain<std::unordered_map<std::string, std::string>>;

constexpr std::size_t editsOfATurn = 250;

// Edits flags from here and there: a few are known ones, many are numbered input files.
template <class Edited, class Edit> Work editing(std::size_t count, Edit edit) {
  auto model = std::make_shared<Edited>();
  std::vector<std::string> flags;
  const auto known = TranscodeCliArguments::allKnownCommandFlags();
  for (std::size_t i = 0; i < count; ++i) {
    flags.push_back(count < 100 ? std::string(known[i]) : "-in_0_" + std::to_string(i));
    model->set(flags.back(), "a value");
  }
  return [=, flags = std::move(flags), at = std::size_t{0}]() mutable {
    for (std::size_t i = 0; i < editsOfATurn; ++i) edit(*model, flags[at = (at + 7919) % flags.size()]);
  };
}

constexpr auto read = [](const auto& model, const std::string& flag) { use(model.read(flag)); };
constexpr auto set = [](auto& model, const std::string& flag) { model.set(flag, "another"); };
constexpr auto removeAndSet = [](auto& model, const std::string& flag) {
  model.remove(flag);
  model.set(flag, "another");
};

template <class Edited> void addEdits(const std::string& who, const std::string& note = {}) {
  using Size = std::pair<std::size_t, const char*>;
  for (const auto& [size, text] : {Size(25, "25"), Size(1'000, "1,000"), Size(100'000, "100,000")}) {
    const auto addOne = [&, size_ = size, text_ = text](const std::string& work, auto edit) {
      add({work + " among " + text_, who, note, editsOfATurn, size_ != 1'000},
          [=] { return editing<Edited>(size_, edit); });
    };
    addOne("read a flag", read);
    addOne("set a flag", set);
    addOne("remove a flag and set it again", removeAndSet);
  }
}

// Gives the first `updated` of the groups other files in every turn.
template <class Edited> Work updating(std::size_t groups, std::size_t files, std::size_t updated) {
  auto model = std::make_shared<Edited>();
  std::vector<TranscodeInputFileGroup> made(groups);
  for (std::size_t group = 0; group < groups; ++group) {
    made[group].group = static_cast<std::int64_t>(group);
    for (std::size_t i = 0; i < files; ++i) {
      made[group].files.push_back("/media/CARD 1/A001_C" + std::to_string(i) + ".mov");
      model->set("-in_" + std::to_string(group) + "_" + std::to_string(i), made[group].files[i]);
    }
  }
  made.resize(updated);
  return [=, made = std::move(made)]() mutable {
    for (auto& group : made) {
      for (auto& file : group.files) file[12] ^= '1' ^ '2';
      model->update(group);
    }
  };
}

template <class Edited> void addUpdates(const std::string& who) {
  add({"update a group of 40,000 files", who}, [] { return updating<Edited>(1, 40'000, 1); });
  add({"update each of 8,000 groups of one file, all", who},
      [] { return updating<Edited>(8'000, 1, 8'000); });
}

const bool added = [] {
  addEdits<Model>(ours, "trims the flag first, and to set it lower-cases and checks it");
  addEdits<Map>("std::map");
  addEdits<Table>(least("a hash probe per step"));
  addUpdates<Model>(ours);
  addUpdates<Map>("std::map");
  addGrowth("remove and set a flag", editsOfATurn,
            [](std::size_t size) { return editing<Model>(size, removeAndSet); });
  addGrowth("update a group of one file", 100,
            [](std::size_t size) { return updating<Model>(size, 1, 100); });
  return true;
}();

}  // namespace
}  // namespace quillonic::benchmarks
