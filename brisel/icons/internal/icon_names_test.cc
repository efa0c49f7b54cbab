#include "brisel/icons/internal/icon_names.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/icon_texts.h"

namespace Brisel::internal {
namespace {

std::size_t plainIndexOfIconName(std::string_view name) {
  return static_cast<std::size_t>(std::ranges::find(kIconNames, name) - std::begin(kIconNames));
}

TEST(IconNames, AreFoundInTheirPlaces) {
  for (std::size_t i = 0; i < std::size(kIconNames); ++i) EXPECT_EQ(indexOfIconName(kIconNames[i]), i);
  EXPECT_EQ(kNoIcon, 328U);
}

// Each change of one byte, none left out: no part of a name goes unread.
TEST(IconNames, AreNotFoundWithAnotherByte) {
  for (const std::string_view name : kIconNames) {
    for (std::size_t i = 0; i < name.size(); ++i) {
      for (const char c :
           {'\0', ' ', '\x7F', '\xFF', static_cast<char>(name[i] ^ 0x20), static_cast<char>(name[i] ^ 1)}) {
        std::string other(name);
        other[i] = c;
        EXPECT_EQ(indexOfIconName(other), plainIndexOfIconName(other)) << other;
      }
    }
  }
}

TEST(IconNames, AreNotFoundLongerOrShorter) {
  for (const std::string_view name : kIconNames) {
    const std::string longer = std::string(name) + name.back();
    EXPECT_EQ(indexOfIconName(longer), plainIndexOfIconName(longer)) << longer;
    for (std::size_t size = 0; size < name.size(); ++size) {
      EXPECT_EQ(indexOfIconName(name.substr(0, size)), plainIndexOfIconName(name.substr(0, size))) << name;
      EXPECT_EQ(indexOfIconName(name.substr(name.size() - size)), plainIndexOfIconName(name.substr(name.size() - size)))
          << name;
    }
  }
}

TEST(IconNames, AreFoundAsByThePlainSearch) {
  EXPECT_TRUE(rc::check([] {
    const std::string text = *Tests::iconTexts();
    RC_ASSERT(indexOfIconName(text) == plainIndexOfIconName(text));
  }));
}

TEST(IconNames, MayLieAnywhereInMemory) {
  for (std::size_t offset = 0; offset < 9; ++offset) {
    for (const std::string_view name : kIconNames) {
      const std::string text = std::string(offset, 'A') + std::string(name) + "A";
      EXPECT_EQ(kIconNames[indexOfIconName(std::string_view(text).substr(offset, name.size()))], name);
    }
  }
}

}  // namespace
}  // namespace Brisel::internal
