// When icons are built, and how long they last.
#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon.h"
#include "brisel/icons/icon_constants.h"
#include "brisel/icons/internal/built_count.h"

namespace Brisel {
namespace {

// These count from the start of the process; each test has one of its own.
TEST(IconLifetime, BuildsAnIconOnFirstUseAndNoOther) {
  ASSERT_EQ(internal::builtIcons(), 0U);
  Icon::ad();
  EXPECT_EQ(internal::builtIcons(), 1U);
  Icon::ad();
  EXPECT_EQ(internal::builtIcons(), 1U);
  EXPECT_EQ(&Icon::ad(), &Icon::ad());
  EXPECT_EQ(Icon("VLMBriselIconXAlt").name(), "XAlt");
  EXPECT_EQ(internal::builtIcons(), 2U);
  Icon::allCases();
  EXPECT_EQ(internal::builtIcons(), 328U);
}

TEST(IconLifetime, BuildsNothingForNamesAndNumbers) {
  std::size_t letters = 0;
  for (const auto& entry : Catalogue::icons()) letters += entry.name.size();
  ASSERT_GT(letters, 0U);
  EXPECT_EQ(iconNumber("VLMBriselIconAd"), 1U);
  EXPECT_EQ(iconConstant(2), "VLMBriselIconAddCalendar");
  EXPECT_EQ(internal::builtIcons(), 0U);
}

TEST(IconLifetime, GivesConcurrentFirstReadersTheSameInstance) {
  constexpr std::size_t kThreads = 8;
  std::atomic<std::size_t> waiting{kThreads};
  std::vector<std::vector<const void*>> seen(kThreads);
  std::vector<std::thread> threads;
  for (auto& mine : seen) {
    threads.emplace_back([&] {
      waiting.fetch_sub(1);
      while (waiting.load() > 0) std::this_thread::yield();
      for (const auto& entry : Catalogue::icons()) mine.push_back(&entry.get());
      mine.push_back(&Icon::allCases());
    });
  }
  for (auto& thread : threads) thread.join();
  for (const auto& other : seen) EXPECT_EQ(other, seen[0]);
  EXPECT_EQ(seen[0].size(), 329U);
}

TEST(IconLifetime, CanBeReadInAnExitHandler) {
  EXPECT_EXIT(
      {
        Icon::allCases();
        std::atexit([] {
          const bool right = Icon::chromecastConnectingThree().name() == "ChromecastConnectingThree" &&
                             Icon::allCases()[327].name() == "XAlt" && Icon("Ban").name() == "Ban";
          ::_exit(right ? 7 : 1);
        });
        std::exit(0);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace Brisel
