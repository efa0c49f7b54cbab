#include "gallery/window/window_command.h"

#include <cmath>

#include <gtest/gtest.h>

#include "brisel/typography/dynamic_type_monitor.h"

namespace Brisel::Gallery {
namespace {

WindowCommand command() {
  WindowCommand command;
  command.width = 480;
  command.height = 320;
  return command;
}

TEST(WindowCommands, LookAsTheyAreToldTo) {
  WindowCommand wanted = command();
  wanted.set = "overMedia";
  wanted.isRightToLeft = true;
  wanted.textSize = "UIContentSizeCategorySmall";
  const auto screen = makeScreen(wanted, WindowLook(wanted));
  EXPECT_EQ(screen->window().frame().size, (Platform::CGSize{480, 320}));
  EXPECT_EQ(screen->direction(), Platform::UIUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_EQ(screen->textSize(), ContentSizeCategory::small);
  EXPECT_EQ(screen->views().labels().front().view->textColor(),
            screen->views().labels().front().color(Theme::dark().overMedia()));
}

TEST(WindowCommands, LookAsTheUsualTextSizeHasThemUnlessTold) {
  EXPECT_FALSE(WindowLook(command()).textSize);
  EXPECT_EQ(makeScreen(command(), WindowLook(command()))->textSize(), ContentSizeCategory::large);
  EXPECT_EQ(DynamicTypeMonitor::shared()->preferredContentSizeCategory(), Platform::UIContentSizeCategoryLarge);
}

TEST(WindowCommands, AreAsHighAsWhatTheyShowWhereNoHeightIsGiven) {
  WindowCommand wanted = command();
  wanted.height.reset();
  const auto screen = makeScreen(wanted, WindowLook(wanted));
  EXPECT_EQ(screen->window().frame().size.height, std::ceil(screen->wholeHeight()));
  EXPECT_EQ(screen->scroll()->largestOffset(), 0);
}

TEST(WindowCommands, RefuseNamesThatNothingBears) {
  WindowCommand wanted = command();
  wanted.set = "light";
  EXPECT_THROW(WindowLook{wanted}, UsageError);
  wanted = command();
  wanted.textSize = "huge";
  EXPECT_THROW(WindowLook{wanted}, UsageError);
}

}  // namespace
}  // namespace Brisel::Gallery
