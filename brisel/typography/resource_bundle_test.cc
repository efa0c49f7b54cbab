#include "brisel/typography/resource_bundle.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "brisel/typography/internal/resource_bundle.h"

#include "tests/temporary_directory.h"

namespace Brisel {
namespace {

namespace fs = std::filesystem;
using Platform::NSBundle;

/// A program's directory and a library's, and which bundle is found between them.
class ResourceBundle : public testing::Test {
 protected:
  ResourceBundle() {
    fs::create_directory(main());
    fs::create_directory(code());
  }

  fs::path main() const { return directory_.path() / "bin"; }
  fs::path code() const { return directory_.path() / "lib"; }
  fs::path shared() const { return code() / "MOSSResources.bundle"; }

  fs::path found() const {
    return internal::resourceBundle(NSBundle::bundleWithPath(main()), NSBundle::bundleWithPath(code()))->bundlePath();
  }

  static void makeBundle(const fs::path& in) { fs::create_directories(in / "BriselFoundation.bundle"); }

  TemporaryDirectory directory_;
};

TEST_F(ResourceBundle, IsThatOfTheProgramBeforeAllOthers) {
  makeBundle(main());
  makeBundle(code());
  makeBundle(shared());
  EXPECT_EQ(found(), main() / "BriselFoundation.bundle");
}

TEST_F(ResourceBundle, IsThatOfTheLibraryBeforeTheSharedOne) {
  makeBundle(shared());
  makeBundle(code());
  EXPECT_EQ(found(), code() / "BriselFoundation.bundle");
}

TEST_F(ResourceBundle, IsThatInTheSharedBundleWhereThereIsNoOther) {
  makeBundle(shared());
  EXPECT_EQ(found(), shared() / "BriselFoundation.bundle");
}

TEST_F(ResourceBundle, IsTheLibrarysDirectoryWhereThereIsNone) {
  EXPECT_EQ(found(), code());
  fs::create_directory(shared());
  EXPECT_EQ(found(), code());
}

TEST_F(ResourceBundle, IsNotLookedForInTheProgramsSharedBundle) {
  makeBundle(main() / "MOSSResources.bundle");
  EXPECT_EQ(found(), code());
}

TEST_F(ResourceBundle, PassesOverWhatCannotBeOpened) {
  directory_.write("bin/BriselFoundation.bundle");  // a file
  makeBundle(code());
  EXPECT_EQ(found(), code() / "BriselFoundation.bundle");
  fs::remove_all(code() / "BriselFoundation.bundle");
  directory_.write("lib/BriselFoundation.bundle");
  directory_.write("lib/MOSSResources.bundle");
  EXPECT_EQ(found(), code());
}

TEST_F(ResourceBundle, IsLookedForAfreshEachTime) {
  EXPECT_EQ(found(), code());
  makeBundle(main());
  EXPECT_EQ(found(), main() / "BriselFoundation.bundle");
}

// The layout of the build tree, as of the installed one.
TEST_F(ResourceBundle, OfThisProcessIsInTheShareDirectoryBesideTheLibrarys) {
  const fs::path bundle = resourceBundle()->bundlePath();
  EXPECT_EQ(bundle.filename(), "BriselFoundation.bundle");
  EXPECT_TRUE(fs::equivalent(bundle, BRISEL_TEST_BUNDLE));
}

}  // namespace
}  // namespace Brisel
