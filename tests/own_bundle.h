// Tests of what is read from the resource bundle once per process, with a bundle of their own making.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "brisel/platform/bundle.h"

#include "tests/temporary_directory.h"

namespace Brisel {

/// Runs the current test again, in a copy of this program beside a resource bundle with these files, each of which
/// holds a word: a program's own bundle comes before the library's. Returns true there, and false here, where there is
/// nothing left to do:
///
///     if (!runsWithOwnBundle({"halvicon.ttf"})) return;
inline bool runsWithOwnBundle(std::initializer_list<const char*> files) {
  namespace fs = std::filesystem;
  if (Platform::NSBundle::mainBundle()->pathForResource("BriselFoundation", "bundle")) return true;
  const TemporaryDirectory directory;
  const fs::path copy = directory.path() / "copy";
  fs::copy_file("/proc/self/exe", copy);
  fs::create_directory(directory.path() / "BriselFoundation.bundle");
  for (const char* file : files) directory.write(fs::path("BriselFoundation.bundle") / file);
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  const std::string filter = std::string(test->test_suite_name()) + '.' + test->name();
  EXPECT_EQ(std::system(('"' + copy.native() + "\" --gtest_filter=" + filter).c_str()), 0);
  return false;
}

}  // namespace Brisel
