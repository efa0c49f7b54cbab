// Fonts are substituted for characters that a font and its cascade lack. The recording engine's faces have every
// character but those declared missing, which one named face has.
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/internal/compared_object_test.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::Pair;

class AttributeFixing : public testing::Test {
 protected:
  AttributeFixing() {
    setEngine(engine_);
    engine_->setMissingCharacters(U"xyz\U0001F300", "Other-Bold");
  }

  static std::shared_ptr<const UIFont> font(CGFloat size, const Dictionary& attributes = {}) {
    return UIFont::fontWithDescriptor(
        UIFontDescriptor::fontDescriptorWithName("Any-Book", size)->fontDescriptorByAddingAttributes(attributes), size);
  }

  static std::shared_ptr<NSMutableAttributedString> text(const char* string, CGFloat size = 20) {
    return NSMutableAttributedString::initWithString(string, {{NSFontAttributeName, font(size)}});
  }

  // The fonts of a text, run by run.
  static std::vector<std::pair<std::size_t, std::string>> fonts(const NSAttributedString& text) {
    std::vector<std::pair<std::size_t, std::string>> fonts;
    for (const AttributeRun& run : text.attributeRuns()) {
      const Value* value = run.attributes.find(NSFontAttributeName);
      fonts.emplace_back(run.range.length, value ? value->as<UIFont>()->fontName() : "");
    }
    return fonts;
  }

  static std::vector<std::pair<std::size_t, std::string>> fixed(
      const std::shared_ptr<NSMutableAttributedString>& text) {
    text->fixAttributesInRange({0, text->length()});
    return fonts(*text);
  }

  std::shared_ptr<RecordingEngine> engine_ = std::make_shared<RecordingEngine>();
};

TEST_F(AttributeFixing, GivesLackingCharactersAFontThatHasThem) {
  EXPECT_THAT(fixed(text("abxyc")), ElementsAre(Pair(2, "Any-Book"), Pair(2, "Other-Bold"), Pair(1, "Any-Book")));
  EXPECT_THAT(fixed(text("xa")), ElementsAre(Pair(1, "Other-Bold"), Pair(1, "Any-Book")));
}

TEST_F(AttributeFixing, LeavesACompleteTextAsItIs) {
  const auto complete = text("abc\n\td");
  const auto before = complete->copy();
  complete->fixAttributesInRange({0, complete->length()});
  EXPECT_TRUE(complete->isEqual(*before));
  const auto empty = text("");
  empty->fixAttributesInRange({0, 0});
  EXPECT_EQ(empty->length(), 0U);
}

TEST_F(AttributeFixing, OfACopyLeavesTheTextAsItIs) {
  const auto lacking = text("abx");
  EXPECT_THAT(fonts(*lacking->withFixedAttributes()), ElementsAre(Pair(2, "Any-Book"), Pair(1, "Other-Bold")));
  EXPECT_THAT(fonts(*lacking), ElementsAre(Pair(3, "Any-Book")));
  const auto complete = text("abc")->copy();
  EXPECT_EQ(complete->withFixedAttributes(), complete);
}

TEST_F(AttributeFixing, AFaceOfTheCascadeReplacesNoFont) {
  const Dictionary cascade{
      {UIFontDescriptorCascadeListAttribute, List{Value(UIFontDescriptor::fontDescriptorWithName("Other-Bold", 20))}}};
  const auto text = NSMutableAttributedString::initWithString("axb", {{NSFontAttributeName, font(20, cascade)}});
  EXPECT_THAT(fixed(text), ElementsAre(Pair(3, "Any-Book")));
}

TEST_F(AttributeFixing, KeepsEverythingElse) {
  const Dictionary cascade{
      {UIFontDescriptorCascadeListAttribute, List{Value(UIFontDescriptor::fontDescriptorWithName("Third-Book", 20))}}};
  const auto text = NSMutableAttributedString::initWithString(
      "ax", {{NSFontAttributeName, font(23, cascade)}, {NSKernAttributeName, 3}});
  text->fixAttributesInRange({0, 2});
  const auto substitute = text->attribute(NSFontAttributeName, 1)->as<UIFont>();
  EXPECT_EQ(substitute->pointSize(), 23);
  EXPECT_EQ(substitute->typeface()->name(), "Other-Bold");
  EXPECT_EQ(substitute->fontDescriptor()->typefaceRequest().cascade, std::vector<std::string>{"Third-Book"});
  EXPECT_EQ(text->attribute(NSKernAttributeName, 1)->asInteger(), 3);
  EXPECT_EQ(text->string(), "ax");
}

TEST_F(AttributeFixing, EachRunKeepsItsSize) {
  const auto text = this->text("axxb");
  text->addAttribute(NSFontAttributeName, font(40), {2, 2});
  EXPECT_THAT(fixed(text),
              ElementsAre(Pair(1, "Any-Book"), Pair(1, "Other-Bold"), Pair(1, "Other-Bold"), Pair(1, "Any-Book")));
  EXPECT_EQ(text->attribute(NSFontAttributeName, 1)->as<UIFont>()->pointSize(), 20);
  EXPECT_EQ(text->attribute(NSFontAttributeName, 2)->as<UIFont>()->pointSize(), 40);
}

TEST_F(AttributeFixing, TouchesItsRangeOnly) {
  const auto text = this->text("xxxx");
  text->fixAttributesInRange({1, 2});
  EXPECT_THAT(fonts(*text), ElementsAre(Pair(1, "Any-Book"), Pair(2, "Other-Bold"), Pair(1, "Any-Book")));
}

TEST_F(AttributeFixing, SurrogatePairsStayWhole) {
  EXPECT_THAT(fixed(text("a\U0001F300b")),
              ElementsAre(Pair(1, "Any-Book"), Pair(2, "Other-Bold"), Pair(1, "Any-Book")));
}

TEST_F(AttributeFixing, WhatNobodyHasKeepsItsFont) {
  engine_->setMissingCharacters(U"x");
  EXPECT_THAT(fixed(text("axb")), ElementsAre(Pair(3, "Any-Book")));
}

TEST_F(AttributeFixing, TextWithoutAFontGetsNone) {
  EXPECT_THAT(fixed(NSMutableAttributedString::initWithString("axb")), ElementsAre(Pair(3, "")));
  const auto text = NSMutableAttributedString::initWithString("axb");
  text->addAttribute(NSFontAttributeName, font(20), {2, 1});
  text->appendAttributedString(*this->text("x"));
  EXPECT_THAT(fixed(text), ElementsAre(Pair(2, ""), Pair(1, "Any-Book"), Pair(1, "Other-Bold")));
}

TEST_F(AttributeFixing, ASecondTimeChangesNothing) {
  const auto once = text("axb");
  once->fixAttributesInRange({0, 3});
  const auto twice = once->mutableCopy();
  twice->fixAttributesInRange({0, 3});
  EXPECT_TRUE(twice->isEqual(*once));
}

TEST_F(AttributeFixing, GoesOnceThroughTheRunsOfAText) {
  std::string characters;
  for (int i = 0; i < 100; ++i) characters += "ax";
  const auto text = textOfRuns(characters, {{NSFontAttributeName, font(20)}});
  text->fixAttributesInRange({0, 200});
  EXPECT_EQ(text->attributeRuns().size(), 200U);
  EXPECT_EQ(text->attribute(NSFontAttributeName, 199)->as<UIFont>()->fontName(), "Other-Bold");
  EXPECT_LE(ComparedObject::comparisons, 400U);
}

TEST_F(AttributeFixing, FixesALongTextOfAlternatingFonts) {
  std::string characters;
  for (int i = 0; i < 10'000; ++i) characters += "ax";
  const auto text = this->text(characters.c_str());
  text->fixAttributesInRange({0, 20'000});
  EXPECT_EQ(text->attributeRuns().size(), 20'000U);
}

TEST_F(AttributeFixing, FixesThePartsOfSubstitutedStretchesThatLieInItsRange) {
  const auto text = this->text("axxbxxa");
  text->addAttribute(NSKernAttributeName, 1, {2, 1});
  text->fixAttributesInRange({2, 3});
  EXPECT_THAT(fonts(*text), ElementsAre(Pair(2, "Any-Book"), Pair(1, "Other-Bold"), Pair(1, "Any-Book"),
                                        Pair(1, "Other-Bold"), Pair(2, "Any-Book")));
}

using AttributeFixingDeathTest = AttributeFixing;

TEST_F(AttributeFixingDeathTest, ARangeBeyondTheTextIsAProgrammingError) {
  EXPECT_DEATH(text("a")->fixAttributesInRange({0, 2}), "range");
}

}  // namespace
}  // namespace Brisel::Platform
