#include "gallery/one_line.h"

#include <string>

#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

using namespace std::string_view_literals;

TEST(OneLine, KeepsWhatATerminalShows) {
  for (const auto text :
       {""sv, "a ~!"sv, "\u00A0\u00E9\u07FF"sv, "\u0800\uD7FF\uE000\uFFFD"sv, "\U00010000\U0010FFFF"sv})
    EXPECT_EQ(onOneLine(text), text);
}

TEST(OneLine, ReplacesControlCharacters) {
  EXPECT_EQ(onOneLine("a\nb\x1B[2J\x7F\r\t\0c"sv), "a?b?[2J????c");
  EXPECT_EQ(onOneLine("a\u0080b\u009B2Jc\u009Fd"), "a?b?2Jc?d");
}

TEST(OneLine, ReplacesEachIllFormedByte) {
  EXPECT_EQ(onOneLine("a\x9B"
                      "b\xC3"),
            "a?b?");                                      // alone, cut off
  EXPECT_EQ(onOneLine("\xC3+\xE2\x82+"), "?+??+");        // not followed as announced
  EXPECT_EQ(onOneLine("\xC1\x9B\xE0\x82\x9B"), "?????");  // longer than need be
  EXPECT_EQ(onOneLine("\xF0\x80\x82\x9B"), "????");       // so too
  EXPECT_EQ(onOneLine("\xED\xA0\x80"), "???");            // a surrogate
  EXPECT_EQ(onOneLine("\xF4\x90\x80\x80\xFF"), "?????");  // beyond the last character
  EXPECT_EQ(onOneLine("\xC3\n\xE2\x82\x1B\xF0\x9F\x92"), "????????");
}

}  // namespace
}  // namespace Brisel::Gallery
