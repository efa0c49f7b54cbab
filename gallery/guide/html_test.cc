#include "gallery/guide/html.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

TEST(Html, EscapesWhatWouldEndTextOrAttribute) {
  EXPECT_EQ(escapeHtml("<a href=\"x\">'R&B'</a>"), "&lt;a href=&quot;x&quot;&gt;&#39;R&amp;B&#39;&lt;/a&gt;");
  EXPECT_EQ(escapeHtml("Größe"), "Größe");
}

TEST(Html, QuotesScriptSoThatNothingEndsItsElement) {
  EXPECT_EQ(quoteScript("a \"b\" \\ </script>\n"), "\"a \\\"b\\\" \\\\ \\u003c/script>\\n\"");
}

TEST(Html, FillsTextEscapedAndMarkupAsItIs) {
  EXPECT_EQ(fillTemplate("<p>{{a}} {{{b}}} {{a}}</p>", {{"a", "1 < 2"}, {"b", "<b>!</b>"}}),
            "<p>1 &lt; 2 <b>!</b> 1 &lt; 2</p>");
  EXPECT_EQ(fillTemplate("no field", {}), "no field");
}

TEST(Html, DoesNotFillWhatAFieldBrings) { EXPECT_EQ(fillTemplate("{{a}}", {{"a", "{{b}}"}}), "{{b}}"); }

TEST(Html, RefusesFieldsThatDoNotMatch) {
  EXPECT_THROW(fillTemplate("{{a}}", {}), std::logic_error);
  EXPECT_THROW(fillTemplate("{{a}}", {{"a", ""}, {"b", ""}}), std::logic_error);
  EXPECT_THROW(fillTemplate("{{a", {{"a", ""}}), std::logic_error);
}

}  // namespace
}  // namespace Brisel::Gallery
