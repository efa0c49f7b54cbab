#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "gallery/guide/pages.h"
#include "gallery/guide/published_names.h"
#include "gallery/guide/reference_comments.h"
#include "gallery/guide/reference_names.h"

namespace Brisel::Gallery {
namespace {

using Kind = PublishedEntry::Kind;

bool isDescribed(const PublishedName& name, Kind kind) {
  const ReferenceComment* comment = commentOn(name, kind, referenceComments());
  return comment != nullptr && !comment->sentence.empty();
}

std::vector<PublishedEntry> allEntries() {
  std::vector<PublishedEntry> entries;
  for (const PublishedSubsystem& subsystem : publishedNames()) {
    for (const PublishedGroup& group : subsystem.groups) {
      entries.insert(entries.end(), group.entries.begin(), group.entries.end());
    }
  }
  return entries;
}

TEST(Reference, HasASentenceForEveryName) {
  for (const PublishedEntry& entry : allEntries()) {
    for (const PublishedName& name : {entry.value, entry.object}) {
      EXPECT_TRUE(name.name.empty() || isDescribed(name, entry.kind))
          << name.name << name.signature << " has no comment in a public header";
    }
  }
}

// A page that shows one constant and tells of one operation.
std::vector<Page> otherPages() {
  Page page;
  page.file = "other.html";
  page.name = "Other";
  page.items = {{"gray7", "", "", {"Brisel::Color::gray7()", "VLMBriselColors::gray7()"}},
                {"parsing", "", "", {"Brisel::colorFromRGBHexString"}}};
  return {page};
}

TEST(Reference, LeavesToSearchEveryNameOnce) {
  std::map<std::string, int> found;
  const std::vector<Page> others = otherPages();
  const Page page = makeReferencePage(others);
  for (const Page* each : {&others.front(), &page}) {
    for (const Item& item : each->items) {
      for (const std::string& name : item.names) ++found[name.substr(0, name.find("()"))];
    }
  }
  for (const PublishedEntry& entry : allEntries()) {
    for (const std::string_view name : {entry.value.name, entry.object.name}) {
      EXPECT_EQ(found[std::string(name)], name.empty() ? 0 : 1) << name;
    }
  }
}

TEST(Reference, LinksToWhatOtherPagesShow) {
  const std::string markup = makeReferencePage(otherPages()).markup;
  EXPECT_NE(markup.find("<li><a href=\"other.html#gray7\"><b>gray7</b></a>\n"
                        " <p><code>#121212</code> in the palette, in grey form.</p></li>"),
            std::string::npos);
  EXPECT_EQ(markup.find("id=\"Color-gray7\""), std::string::npos);
  EXPECT_NE(markup.find("href=\"other.html#parsing\""), std::string::npos);
  EXPECT_NE(markup.find("id=\"colorFromRGBHexString\""), std::string::npos);
}

TEST(ReferenceNames, BreakAtScopesAndHumps) {
  EXPECT_EQ(nameMarkup("Brisel::TypeStyle::withFontSize"),
            "Brisel::<wbr>TypeStyle::<wbr><b>with<wbr>Font<wbr>Size</b>");
  // No letter stands alone.
  EXPECT_EQ(nameMarkup("VLMBriselIconX"), "<b>VLM<wbr>Brisel<wbr>IconX</b>");
  EXPECT_EQ(nameMarkup("briselSwift_applyStyle"), "<b>brisel<wbr>Swift_<wbr>apply<wbr>Style</b>");
  EXPECT_EQ(codeMarkup("apply:forState:"), "apply:<wbr>forState:");
  EXPECT_EQ(codeMarkup("(std::optional<bool>)"), "(std::<wbr>optional&lt;bool&gt;)");
}

TEST(ReferenceNames, SetCodeInSentencesApart) {
  EXPECT_EQ(sentenceMarkup("Is `a < b`, or a ` alone."), "Is <code>a &lt; b</code>, or a ` alone.");
}

TEST(ReferenceNames, HaveAddressesWithoutTheNamespace) {
  EXPECT_EQ(fragmentOf("Brisel::TypeStyle::withFontSize"), "TypeStyle-withFontSize");
  EXPECT_EQ(fragmentOf("brisel_diff"), "brisel_diff");
  EXPECT_EQ(fragmentOf("double,UIColor&"), "double-UIColor-");
}

TEST(ReferenceNames, ReadSignatures) {
  EXPECT_EQ(argumentTypes("(Brisel::TypeStyle(double, const Platform::UIColor&) const)"), "double,UIColor&");
  EXPECT_EQ(argumentTypes("(std::function<void(int)>())"), "");
  EXPECT_EQ(argumentTypes("(void(std::function<void(int)>))"), "function<void(int)>");
  EXPECT_EQ(argumentTypes("(void (A::*)(int, std::map<int, bool>))"), "int,map<int,bool>");
  EXPECT_EQ(argumentTypes("(std::string, Font::Weight)"), "string,Weight");
  EXPECT_EQ(shownSignature("(TypeStyle(double) const)"), "(double) const → TypeStyle");
  EXPECT_EQ(shownSignature("(std::string, Font::Weight)"), "(std::string, Font::Weight)");
}

TEST(ReferenceNames, FindTheCommentOfAnOverload) {
  constexpr ReferenceComment kComments[] = {{"A::f", "int", "", "", "first"},
                                            {"A::f", "String&", "", "", "second"},
                                            {"A::f", "shared_ptr<T>&,Update", "", "", "third"},
                                            {"A::f", "T&,Update", "", "", "fourth"},
                                            {"B::B", "", "", "", "made"}};
  const auto sentence = [&](std::string_view name, std::string_view signature, Kind kind = Kind::function) {
    const ReferenceComment* comment = commentOn({name, signature}, kind, kComments);
    return comment == nullptr ? std::string_view() : comment->sentence;
  };
  EXPECT_EQ(sentence("A::f", "(void(int))"), "first");
  EXPECT_EQ(sentence("A::f", "(void(const Other::String&) const)"), "second");
  EXPECT_EQ(sentence("A::f", "(void (A::*)(const std::shared_ptr<Object>&, A::Update))"), "third");
  EXPECT_EQ(sentence("A::f", "(void (A::*)(Object&, A::Update))"), "fourth");
  EXPECT_EQ(sentence("A::f", "(void(int, int, int))"), "first");
  EXPECT_EQ(sentence("B", "()", Kind::constructor), "made");
  EXPECT_EQ(sentence("C", "(void())"), "");
}

}  // namespace
}  // namespace Brisel::Gallery
