#include "brisel/platform/layout_direction.h"

#include <gtest/gtest.h>

namespace Brisel::Platform {
namespace {

TEST(LayoutDirection, IsLeftToRightUntilTheHostSaysOtherwise) {
  EXPECT_EQ(userInterfaceLayoutDirection(), UIUserInterfaceLayoutDirection::leftToRight);
  setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_EQ(userInterfaceLayoutDirection(), UIUserInterfaceLayoutDirection::rightToLeft);
}

}  // namespace
}  // namespace Brisel::Platform
