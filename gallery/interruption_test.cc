#include "gallery/interruption.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

// As nohup has it, and a shell that starts a command in the background.
TEST(Interruption, LeavesASignalIgnoredThatWasWhenTheProgramStarted) {
  for (const int ignored : {SIGINT, SIGTERM, SIGHUP}) {
    const auto run = [ignored] {
      for (const int number : {SIGINT, SIGTERM, SIGHUP}) std::signal(number, number == ignored ? SIG_IGN : SIG_DFL);
      noteInterruptions();
      std::raise(ignored);
      if (wasInterrupted()) std::_Exit(1);
      std::raise(ignored == SIGHUP ? SIGTERM : SIGHUP);
      std::_Exit(wasInterrupted() ? 0 : 2);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "") << ignored;
  }
}

}  // namespace
}  // namespace Brisel::Gallery
