#include "brisel/platform/internal/utf.h"

#include <string>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace Brisel::Platform::internal {
namespace {

TEST(Utf, CountsCodeUnitsAndNotBytes) {
  EXPECT_EQ(utf16Length("12é456"), 6U);
  EXPECT_EQ(utf16Length("\U0001F3B5"), 2U);
  EXPECT_EQ(utf16Length(""), 0U);
}

TEST(Utf, ReadsEachMaximalIllFormedPartAsOneReplacement) {
  EXPECT_EQ(wellFormed("a\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"), "a���\xEF\xBF\xBD\x41");
  EXPECT_EQ(wellFormed("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");  // a surrogate, encoded
  EXPECT_EQ(wellFormed("\xC0\xAF"), "\xEF\xBF\xBD\xEF\xBF\xBD");                  // an overlong slash
  EXPECT_EQ(wellFormed("\xF4\x90\x80\x80").size(), 12U);                          // beyond U+10FFFF
}

TEST(Utf, ReadsALoneSurrogateAsAReplacement) {
  EXPECT_EQ(toUtf8(std::u16string{0xD83C}), "\xEF\xBF\xBD");
  EXPECT_EQ(toUtf8(std::u16string{0xDFB5, u'a'}),
            "\xEF\xBF\xBD"
            "a");
}

TEST(Utf, RoundTripsWhateverItHasRepaired) {
  EXPECT_TRUE(rc::check([](const std::string& bytes) {
    const std::string text = wellFormed(bytes);
    RC_ASSERT(toUtf8(toUtf16(bytes)) == text);
    RC_ASSERT(wellFormed(text) == text);
    RC_ASSERT(toUtf16(bytes).size() == utf16Length(bytes));
  }));
}

}  // namespace
}  // namespace Brisel::Platform::internal
