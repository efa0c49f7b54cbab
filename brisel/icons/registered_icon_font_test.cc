// On the Linux port, where other faces stand in for missing ones.
#include <gtest/gtest.h>

#include "brisel/icons/internal/icon_font_registration.h"
#include "brisel/platform/bundle.h"

#include "tests/temporary_directory.h"

namespace Brisel {
namespace {

TEST(RegisteredIconFontDeathTest, MustBeThereItself) {
  EXPECT_DEATH(internal::registeredIconFont(24), "halvicon, is not registered");
}

TEST(RegisteredIconFontDeathTest, IsNotThereWhenItsFileIsDamaged) {
  const TemporaryDirectory directory;
  directory.write("halvicon.ttf");
  internal::registerIconFont(*Platform::NSBundle::bundleWithPath(directory.path()));
  EXPECT_DEATH(internal::registeredIconFont(24), "halvicon, is not registered");
}

}  // namespace
}  // namespace Brisel
