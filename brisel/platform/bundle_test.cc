#include "brisel/platform/bundle.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Brisel::Platform {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

// A directory of its own for each test.
class Bundle : public testing::Test {
 protected:
  Bundle() {
    std::string name = (fs::temp_directory_path() / "bundle_test_XXXXXX").native();
    directory_ = mkdtemp(name.data());
  }
  ~Bundle() override {
    std::error_code ignored;
    fs::permissions(directory_, fs::perms::owner_all, ignored);
    fs::remove_all(directory_, ignored);
  }

  fs::path write(const fs::path& name) {
    fs::create_directories((directory_ / name).parent_path());
    std::ofstream(directory_ / name) << "content";
    return directory_ / name;
  }

  fs::path directory_;
};

TEST_F(Bundle, OpensDirectoriesOnly) {
  EXPECT_EQ(NSBundle::bundleWithPath(directory_)->bundlePath(), directory_);
  EXPECT_EQ(NSBundle::bundleWithPath(write("file")), nullptr);
  EXPECT_EQ(NSBundle::bundleWithPath(directory_ / "missing"), nullptr);
  EXPECT_EQ(NSBundle::bundleWithPath(""), nullptr);
}

TEST_F(Bundle, FindsResourcesByNameAndType) {
  const fs::path font = write("glyphs.ttf");
  const fs::path bare = write("bare");
  fs::create_directory(directory_ / "Inner.bundle");
  const auto bundle = NSBundle::bundleWithPath(directory_);
  EXPECT_THAT(bundle->pathForResource("glyphs", "ttf"), Optional(font));
  EXPECT_THAT(bundle->pathForResource("bare", ""), Optional(bare));
  EXPECT_THAT(bundle->pathForResource("Inner", "bundle"), Optional(directory_ / "Inner.bundle"));
  EXPECT_EQ(bundle->pathForResource("glyphs", "otf"), std::nullopt);
}

TEST_F(Bundle, FindsNothingByHostileNames) {
  write("secret.txt");
  fs::create_directory(directory_ / "bundle");
  const auto bundle = NSBundle::bundleWithPath(directory_ / "bundle");
  for (const std::string& name :
       {std::string("../secret"), std::string(), (directory_ / "secret").native(), std::string("../secret.txt\0", 14),
        std::string("secret\0", 7), std::string(5000, 'a')})
    EXPECT_EQ(bundle->pathForResource(name, "txt"), std::nullopt) << name;
  EXPECT_EQ(bundle->pathForResource("..", ""), std::nullopt);
  EXPECT_EQ(bundle->pathForResource(".", ""), std::nullopt);
  EXPECT_EQ(bundle->pathForResource(".", "/../secret.txt"), std::nullopt);
  EXPECT_EQ(bundle->pathForResource("", ""), std::nullopt);
}

TEST_F(Bundle, ListsByExtensionInTheOrderOfTheBytes) {
  write("b.otf");
  write("a.otf");
  write("Z.otf");
  write("\xC3\xA9.otf");
  write("a.OTF");
  write("a.otf.txt");
  write("aotf");
  write(".otf");
  write("inner/c.otf");
  fs::create_directory(directory_ / "directory.otf");
  fs::create_symlink(directory_ / "a.otf", directory_ / "link.otf");
  fs::create_symlink(directory_ / "nowhere", directory_ / "broken.otf");
  ASSERT_EQ(mkfifo((directory_ / "pipe.otf").c_str(), 0600), 0);
  const auto bundle = NSBundle::bundleWithPath(directory_);
  EXPECT_THAT(bundle->URLsForResourcesWithExtension("otf"),
              Optional(ElementsAre(directory_ / "Z.otf", directory_ / "a.otf", directory_ / "b.otf",
                                   directory_ / "link.otf", directory_ / "\xC3\xA9.otf")));
}

TEST_F(Bundle, TellsAnEmptyListFromNone) {
  const auto bundle = NSBundle::bundleWithPath(directory_);
  EXPECT_THAT(bundle->URLsForResourcesWithExtension("otf"), Optional(IsEmpty()));
  EXPECT_THAT(bundle->URLsForResourcesWithExtension(""), Optional(IsEmpty()));
  fs::remove_all(directory_);
  EXPECT_EQ(bundle->URLsForResourcesWithExtension("otf"), std::nullopt);
  if (geteuid() == 0) return;  // Whom no permission stops.
  fs::create_directory(directory_);
  fs::permissions(directory_, fs::perms::none);
  EXPECT_EQ(bundle->URLsForResourcesWithExtension("otf"), std::nullopt);
}

TEST(MainBundle, IsTheDirectoryOfTheProgram) {
  EXPECT_EQ(NSBundle::mainBundle()->bundlePath(), fs::canonical("/proc/self/exe").parent_path());
}

TEST(MainBundle, LooksForNamedResourcesInFurtherDirectories) {
  const std::string program = fs::canonical("/proc/self/exe").filename().native();
  const auto bundle = NSBundle::mainBundle({"missing", fs::path("..")});
  const fs::path beside = bundle->bundlePath().filename();
  EXPECT_EQ(bundle->pathForResource(program, ""), bundle->bundlePath() / program);
  EXPECT_EQ(bundle->pathForResource(beside.native(), ""), bundle->bundlePath());
  EXPECT_EQ(NSBundle::mainBundle()->pathForResource(beside.native(), ""), std::nullopt);
}

TEST(CodeBundle, IsTheDirectoryOfTheObjectThatHoldsTheCode) {
  static const char ours = 0;
  EXPECT_EQ(NSBundle::bundleForAddress(&ours)->bundlePath(), NSBundle::mainBundle()->bundlePath());
  // The C library is no part of the program.
  const auto library = NSBundle::bundleForAddress(stdout);
  EXPECT_NE(library->bundlePath(), NSBundle::mainBundle()->bundlePath());
  EXPECT_NE(library->pathForResource("libc.so", "6"), std::nullopt);
}

TEST(CodeBundle, IsTheProgramsForAnAddressInNoCode) {
  const int onTheStack = 0;
  EXPECT_EQ(NSBundle::bundleForAddress(&onTheStack)->bundlePath(), NSBundle::mainBundle()->bundlePath());
  EXPECT_EQ(NSBundle::bundleForAddress(nullptr)->bundlePath(), NSBundle::mainBundle()->bundlePath());
}

}  // namespace
}  // namespace Brisel::Platform
