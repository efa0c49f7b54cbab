#include "brisel/platform/font_descriptor.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/engine.h"

namespace Brisel::Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Dictionary feature(Value type, Value selector) {
  return {{UIFontFeatureTypeIdentifierKey, type}, {UIFontFeatureSelectorIdentifierKey, selector}};
}

TEST(FontDescriptor, HasANameAndASize) {
  const auto descriptor = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16);
  EXPECT_EQ(descriptor->postscriptName(), "Face-Book");
  EXPECT_EQ(descriptor->pointSize(), 16);
  EXPECT_EQ(descriptor->fontAttributes(),
            (Dictionary{{UIFontDescriptorNameAttribute, "Face-Book"}, {UIFontDescriptorSizeAttribute, 16}}));
}

TEST(FontDescriptor, AddsAttributesAndReplacesThoseOfTheSameKey) {
  const auto plain = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16);
  const auto cascade = plain->fontDescriptorByAddingAttributes({{UIFontDescriptorCascadeListAttribute, List()}});
  const auto large = cascade->fontDescriptorByAddingAttributes({{UIFontDescriptorSizeAttribute, 20}});
  EXPECT_EQ(large->pointSize(), 20);
  ASSERT_NE(large->objectForKey(UIFontDescriptorCascadeListAttribute), nullptr);  // present, though empty
  EXPECT_TRUE(large->objectForKey(UIFontDescriptorCascadeListAttribute)->asList()->empty());
  EXPECT_EQ(plain->objectForKey(UIFontDescriptorCascadeListAttribute), nullptr);
}

TEST(FontDescriptor, IsEqualByItsAttributes) {
  const auto a = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16);
  const auto b = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16.0);
  EXPECT_TRUE(a->isEqual(*b));
  EXPECT_EQ(a->objectHash(), b->objectHash());
  EXPECT_FALSE(a->isEqual(*UIFontDescriptor::fontDescriptorWithName("Face-Book", 17)));
  EXPECT_FALSE(a->isEqual(
      *a->fontDescriptorByAddingAttributes({{UIFontDescriptorFeatureSettingsAttribute, List{Dictionary()}}})));
}

TEST(FontDescriptor, AsksForItsCascadeInOrder) {
  const auto descriptor = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16)
                              ->fontDescriptorByAddingAttributes(
                                  {{UIFontDescriptorCascadeListAttribute,
                                    List{UIFontDescriptor::fontDescriptorWithName("First-Book", 16), "no descriptor",
                                         UIFontDescriptor::fontDescriptorWithName("Second-Book", 16)}}});
  const TypefaceRequest request = descriptor->typefaceRequest();
  EXPECT_EQ(request.name, "Face-Book");
  EXPECT_THAT(request.cascade, ElementsAre("First-Book", "Second-Book"));
  EXPECT_THAT(request.features, IsEmpty());
}

TEST(FontDescriptor, AsksForTheFeaturesThatItUnderstands) {
  const List settings{
      feature(6, 0),
      Dictionary(),                       // asks for nothing
      feature(6, "0"),                    // no number
      feature(std::int64_t{1} << 40, 0),  // no int
      feature(0.5, 0),                    // no integer
      Dictionary{{UIFontFeatureTypeIdentifierKey, 6}},
      3,
      feature(1.0, true),
  };
  const auto descriptor =
      UIFontDescriptor::fontDescriptorWithName("Face-Book", 16)
          ->fontDescriptorByAddingAttributes({{UIFontDescriptorFeatureSettingsAttribute, settings}});
  EXPECT_THAT(descriptor->typefaceRequest().features, ElementsAre(FontFeatureSetting{6, 0}, FontFeatureSetting{1, 1}));
}

TEST(FontDescriptor, PassesOverAttributesOfTheWrongKind) {
  const auto descriptor = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16)
                              ->fontDescriptorByAddingAttributes({{UIFontDescriptorNameAttribute, 1},
                                                                  {UIFontDescriptorSizeAttribute, "16"},
                                                                  {UIFontDescriptorCascadeListAttribute, Dictionary()},
                                                                  {UIFontDescriptorFeatureSettingsAttribute, nullptr}});
  EXPECT_EQ(descriptor->postscriptName(), "");
  EXPECT_EQ(descriptor->pointSize(), 0);
  EXPECT_EQ(descriptor->typefaceRequest(), TypefaceRequest());
}

}  // namespace
}  // namespace Brisel::Platform
