#include "gallery/output_directory.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Brisel::Gallery {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

bool isMarked(const fs::path& directory) { return headHolds(directory / "index.html", "the mark"); }

class OutputDirectoryTest : public testing::Test {
 protected:
  OutputDirectoryTest() {
    std::string name = (fs::temp_directory_path() / "brisel-output-XXXXXX").string();
    root_ = ::mkdtemp(name.data());
  }
  ~OutputDirectoryTest() override { fs::remove_all(root_); }

  static std::string read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  static void put(const fs::path& file, std::string_view text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
  }
  std::vector<std::string> names(const fs::path& directory) const {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(directory)) found.push_back(entry.path().filename().string());
    return found;
  }
  std::string complaint(const fs::path& place) const {
    try {
      OutputDirectory directory(place, isMarked);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "no complaint";
  }

  fs::path root_;
};

TEST_F(OutputDirectoryTest, AppearsWholeWhenItIsCommitted) {
  const fs::path place = root_ / "a" / "site";
  OutputDirectory directory(place, isMarked);
  directory.write("index.html", "the mark");
  directory.write("pictures/deep/a.txt", "a");
  put(root_ / "source", "copied");
  directory.copy(root_ / "source", "b/c.txt");
  EXPECT_FALSE(fs::exists(place));
  directory.commit();
  EXPECT_EQ(read(place / "pictures/deep/a.txt"), "a");
  EXPECT_EQ(read(place / "b/c.txt"), "copied");
  EXPECT_THAT(names(root_ / "a"), ElementsAre("site"));
}

TEST_F(OutputDirectoryTest, LeavesNothingWhenItIsGivenUp) {
  {
    OutputDirectory directory(root_ / "site", isMarked);
    directory.write("index.html", "the mark");
  }
  EXPECT_THAT(names(root_), IsEmpty());
}

TEST_F(OutputDirectoryTest, ReplacesAnEarlierOneWithAllItsFiles) {
  put(root_ / "site/index.html", "<p>the mark</p>");
  put(root_ / "site/outdated.html", "");
  OutputDirectory directory(root_ / "site", isMarked);
  directory.write("index.html", "new, the mark");
  EXPECT_EQ(read(root_ / "site/index.html"), "<p>the mark</p>");
  directory.commit();
  EXPECT_EQ(read(root_ / "site/index.html"), "new, the mark");
  EXPECT_THAT(names(root_ / "site"), ElementsAre("index.html"));
  EXPECT_THAT(names(root_), ElementsAre("site"));
}

TEST_F(OutputDirectoryTest, TakesAnEmptyDirectoryAndATrailingSlash) {
  fs::create_directories(root_ / "site");
  OutputDirectory directory((root_ / "site").string() + "/", isMarked);
  directory.write("index.html", "new");
  directory.commit();
  EXPECT_EQ(read(root_ / "site/index.html"), "new");
}

TEST_F(OutputDirectoryTest, FollowsALinkInsteadOfReplacingIt) {
  fs::create_directories(root_ / "real");
  fs::create_directory_symlink(root_ / "real", root_ / "link");
  OutputDirectory directory(root_ / "link", isMarked);
  directory.write("index.html", "new");
  directory.commit();
  EXPECT_EQ(read(root_ / "real/index.html"), "new");
  EXPECT_TRUE(fs::is_symlink(root_ / "link"));
}

TEST_F(OutputDirectoryTest, RefusesADirectoryWithOtherFiles) {
  put(root_ / "site/letters.txt", "dear");
  EXPECT_THAT(complaint(root_ / "site"), HasSubstr("it holds other files"));
  put(root_ / "site/index.html", "somebody else's");
  EXPECT_THAT(complaint(root_ / "site"), HasSubstr("it holds other files"));
  EXPECT_THAT(names(root_ / "site"), UnorderedElementsAre("letters.txt", "index.html"));
  EXPECT_THAT(names(root_), ElementsAre("site"));
}

TEST_F(OutputDirectoryTest, RefusesAPipeOrALinkForItsMark) {
  fs::create_directories(root_ / "site");
  ASSERT_EQ(::mkfifo((root_ / "site/index.html").c_str(), 0600), 0);
  EXPECT_THAT(complaint(root_ / "site"), HasSubstr("it holds other files"));
  fs::remove(root_ / "site/index.html");
  put(root_ / "elsewhere", "the mark");
  fs::create_symlink(root_ / "elsewhere", root_ / "site/index.html");
  EXPECT_THAT(complaint(root_ / "site"), HasSubstr("it holds other files"));
}

// Whoever was killed may have had our number.
TEST_F(OutputDirectoryTest, LeavesDraftsOfOthersAlone) {
  const std::string number = std::to_string(::getpid());
  const fs::path stale = root_ / (".site.draft-" + number), staleFile = root_ / (".a.png.draft-" + number);
  put(stale / "outdated.html", "old");
  put(staleFile, "old");
  OutputDirectory directory(root_ / "site", isMarked);
  directory.write("index.html", "the mark");
  directory.commit();
  writeFile(root_ / "a.png", bytesOf("new"));
  EXPECT_THAT(names(root_ / "site"), ElementsAre("index.html"));
  EXPECT_EQ(read(stale / "outdated.html"), "old");
  EXPECT_EQ(read(staleFile), "old");
  EXPECT_EQ(read(root_ / "a.png"), "new");
  EXPECT_EQ(names(root_).size(), 4U);
}

TEST_F(OutputDirectoryTest, RefusesAFileInItsPlace) {
  put(root_ / "site", "a file");
  EXPECT_THAT(complaint(root_ / "site"), HasSubstr("it is not a directory"));
  EXPECT_THAT(complaint(root_ / "site" / "below"), HasSubstr("ot a directory"));
  EXPECT_EQ(read(root_ / "site"), "a file");
}

TEST_F(OutputDirectoryTest, WritesASingleFileOverAnOlderOne) {
  writeFile(root_ / "a.png", bytesOf("one"));
  writeFile(root_ / "a.png", bytesOf("two"));
  EXPECT_EQ(read(root_ / "a.png"), "two");
  EXPECT_THAT(names(root_), ElementsAre("a.png"));
}

TEST_F(OutputDirectoryTest, SaysWhichFileCouldNotBeWritten) {
  try {
    writeFile(root_ / "missing" / "a.png", bytesOf("one"));
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("cannot write"));
    EXPECT_THAT(error.what(), HasSubstr("a.png: No such file or directory"));
  }
  fs::create_directories(root_ / "taken");
  EXPECT_THROW(writeFile(root_ / "taken", bytesOf("one")), std::runtime_error);
  EXPECT_THAT(names(root_), ElementsAre("taken"));
}

}  // namespace
}  // namespace Brisel::Gallery
