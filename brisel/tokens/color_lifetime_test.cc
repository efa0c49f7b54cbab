// When colours are built, and how long they last.
#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "brisel/tokens/catalogue.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/internal/built_count.h"
#include "brisel/tokens/legacy_color.h"

namespace Brisel {
namespace {

// These count from the start of the process; each test has one of its own.
TEST(PaletteLifetime, BuildsAColourOnFirstUseAndNoOther) {
  ASSERT_EQ(internal::builtPaletteColors(), 0U);
  Color::gray7();
  EXPECT_EQ(internal::builtPaletteColors(), 1U);
  Color::gray7();
  EXPECT_EQ(internal::builtPaletteColors(), 1U);
  Color::halvornBlack7();
  EXPECT_EQ(internal::builtPaletteColors(), 2U);
  EXPECT_EQ(internal::builtLegacyColors(), 0U);
  LegacyColor::black10();
  EXPECT_EQ(internal::builtLegacyColors(), 1U);
  EXPECT_EQ(internal::builtPaletteColors(), 2U);
}

TEST(PaletteLifetime, BuildsNothingWhenNamesAreListed) {
  std::size_t letters = 0;
  for (const auto& family : Catalogue::colorFamilies())
    for (const auto& entry : family.colors) letters += entry.name.size();
  ASSERT_GT(letters, 0U);
  EXPECT_EQ(internal::builtPaletteColors(), 0U);
  for (const auto& entry : Catalogue::colors()) entry.get();
  for (const auto& entry : Catalogue::legacyColors()) entry.get();
  EXPECT_EQ(internal::builtPaletteColors(), 252U);
  EXPECT_EQ(internal::builtLegacyColors(), 60U);
}

TEST(PaletteLifetime, HandsOutPointersThatDoNotCount) {
  const Platform::ColorPtr copy = Color::gray7().value();
  EXPECT_EQ(copy.use_count(), 0);
  EXPECT_EQ(LegacyColor::green().use_count(), 0);
  EXPECT_EQ(copy.get(), Color::gray7().value().get());
}

TEST(PaletteLifetime, GivesConcurrentFirstReadersTheSameInstance) {
  constexpr std::size_t kThreads = 8;
  std::atomic<std::size_t> waiting{kThreads};
  std::vector<std::vector<const Platform::UIColor*>> seen(kThreads);
  std::vector<std::thread> threads;
  for (auto& mine : seen) {
    threads.emplace_back([&] {
      waiting.fetch_sub(1);
      while (waiting.load() > 0) std::this_thread::yield();
      for (const auto& entry : Catalogue::colors()) mine.push_back(entry.get().value().get());
      for (const auto& entry : Catalogue::legacyColors()) mine.push_back(entry.get().get());
    });
  }
  for (auto& thread : threads) thread.join();
  for (const auto& other : seen) EXPECT_EQ(other, seen[0]);
  EXPECT_EQ(seen[0].size(), 312U);
}

TEST(PaletteLifetime, CanBeReadInAnExitHandler) {
  EXPECT_EXIT(
      {
        Color::gray7();
        std::atexit([] {
          // One colour that is built by now, and one that is not.
          const bool right = Color::gray7().value()->getWhite().white == 0.071 &&
                             Color::gray10().value()->getWhite().white == 0.094 &&
                             LegacyColor::white5()->alpha() == 0.05;
          ::_exit(right ? 7 : 1);
        });
        std::exit(0);
      },
      testing::ExitedWithCode(7), "");
}

TEST(PaletteLifetime, CanBeReadFromADetachedThreadWhileTheProcessEnds) {
  EXPECT_EXIT(
      {
        static std::atomic<bool> reading{false};
        std::thread([] {
          for (;;) {
            for (const auto& entry : Catalogue::colors())
              if (entry.get().value()->alpha() < 0) ::_exit(1);
            reading = true;
          }
        }).detach();
        while (!reading) std::this_thread::yield();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace Brisel
