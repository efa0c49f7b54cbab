// Every name of typography.
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/object_interface/base_legacy_label.h"
#include "brisel/object_interface/dynamic_type.h"
#include "brisel/object_interface/fitting.h"
#include "brisel/object_interface/fonts.h"
#include "brisel/object_interface/legacy_label.h"
#include "brisel/object_interface/text_views.h"
#include "brisel/object_interface/type_styles.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/font.h"
#include "brisel/typography/font_stacks.h"
#include "brisel/typography/resource_bundle.h"
#include "brisel/typography/style_recorder.h"
#include "brisel/typography/styled_string.h"
#include "brisel/typography/text_view_styling.h"
#include "brisel/typography/type_style.h"

#include "tests/published_names/published_names.h"

namespace Brisel::Published {
namespace {

constexpr Name kNames[] = {
#include "brisel/typography/names.def"
};

static_assert(countOf(kNames, "Brisel::Font::", "(const Font)") == 8);
static_assert(countOf(kNames, "VLMBriselSwiftFont::", "(const Ptr<VLMBriselSwiftFont>&())") == 8);
static_assert(countOf(kNames, "Brisel::Font::Weight::", "(const Font::Weight)") == 3);
static_assert(countOf(kNames, "VLMBriselSwiftFontWeight::", "(const Ptr<VLMBriselSwiftFontWeight>&())") == 3);
static_assert(countOf(kNames, "Brisel::Font::Feature::", "(const Font::Feature::NumberSpacingOption)") == 2);
static_assert(countOf(kNames, "VLMBriselFontLoader::") == 11);
static_assert(countOf(kNames, "Brisel::ContentSizeCategory::", "(const ContentSizeCategory)") == 12);
static_assert(countOf(kNames, "Brisel::TypeStyle::", "(const TypeStyle&())") == 19);
static_assert(countOf(kNames, "VLMBriselTypeStyle::", "(const Ptr<VLMBriselTypeStyle>&())") == 19);
static_assert(countOf(kNames, "Brisel::TypeStyle::with", {}) == 0 && countOf(kNames, "Brisel::TypeStyle::with") == 8);
static_assert(countOf(kNames, "Brisel::TypeStyle::Group::", {}) == 4);
static_assert(countOf(kNames, "briselSwift_applyStyle") == 3 + 2 + 2 + 3);

static_assert(areKindsOf<NSObject, VLMBriselSwiftFont, VLMBriselSwiftFontWeight, VLMBriselSwiftFontFeatures,
                         VLMBriselSwiftDynamicTypeMonitor, VLMBriselDynamicTypeMonitor, VLMBriselTypeStyle,
                         VLMBriselTypeStyleConfiguration, VLMBriselTypeStyleAccessibilityRange>);
static_assert(areKindsOf<UILabel, VLMBriselLegacyLabel> && areKindsOf<VLMBriselBaseLegacyLabel, VLMBriselLegacyLabel>);

TEST(NamesOfTypography, AreListedOnceEach) { EXPECT_THAT(listedTwice(kNames), testing::IsEmpty()); }

}  // namespace
}  // namespace Brisel::Published
