// How often the main trip asks for memory. Counts every `operator new` of this program, the library's
// included.

#include <quillonic/transcode_cli.hpp>

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

namespace {
std::atomic<std::size_t> allocations = 0;
}

// Not inlined, or the compiler takes the pair of malloc and free for a mistake.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  ++allocations;
  return std::malloc(size > 0 ? size : 1);
}
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}

namespace quillonic {
namespace {

template <class Work> std::size_t allocationsOf(Work work) {
  const std::size_t before = allocations;
  work();
  return allocations - before;
}

TEST(Allocations, AreAtMostTwoPerStoredPair) {
  constexpr std::size_t pairs = 5000;
  // A few more for the blocks that grow with the list, by doubling.
  constexpr std::size_t growth = 100;
  std::vector<std::string> words;
  for (std::size_t i = 0; i < pairs; ++i) {
    words.push_back("-in_a_key_of_some_length_" + std::to_string(i));
    words.push_back("/a/path/that/fits/no/small/buffer/" + std::to_string(i));
  }
  for (const bool ordered : {false, true}) {
    EXPECT_LE(allocationsOf([&] { TranscodeCliArguments model(words, ordered); }), 2 * pairs + growth);
  }
  const TranscodeCliArguments model(words, true);
  std::size_t flags = 0;
  EXPECT_LE(allocationsOf([&] { flags = model.commandLineArguments().size(); }), 2 * pairs + 2);
  EXPECT_EQ(flags, words.size());
}

TEST(Allocations, AreNoneForRepeatsAndQuestions) {
  const std::vector<std::string> few{"-vcodec", "h264", "-vn", "", "-abr", "1"};
  std::vector<std::string> many;
  for (int i = 0; i < 1000; ++i) many.insert(many.end(), few.begin(), few.end());
  const auto once = allocationsOf([&] { TranscodeCliArguments model(few); });
  EXPECT_EQ(allocationsOf([&] { TranscodeCliArguments model(many); }), once);

  const TranscodeCliArguments model(few);
  EXPECT_EQ(allocationsOf([&] {
              EXPECT_TRUE(model.hasArgumentFlag(" -vn "));
              EXPECT_EQ(model.argumentFlagValue(VAVVideoFormatFlag), "h264");
              EXPECT_TRUE(model.allFlagsAreValid());
            }),
            0U);
}

}  // namespace
}  // namespace quillonic
