// Every name of the design tokens.
#include "brisel/object_interface/tokens.h"

#include <memory>
#include <optional>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/color_parsing.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/screen_scale.h"
#include "brisel/tokens/spacer.h"
#include "brisel/tokens/token_conversions.h"

#include "tests/published_names/published_names.h"

namespace Brisel::Published {
namespace {

constexpr Name kNames[] = {
#include "brisel/tokens/names.def"
};

static_assert(countOf(kNames, "Brisel::Color::", "(const Color&())") == 252);
static_assert(countOf(kNames, "VLMBriselColors::", "(const ColorPtr&())") == 252 + 60);
static_assert(countOf(kNames, "Brisel::Opacity::", "(Opacity())") == 6);
static_assert(countOf(kNames, "VLMBriselOpacities::", "(CGFloat())") == 6);
static_assert(countOf(kNames, "Brisel::Spacer::", "(Spacer())") == 13);
static_assert(countOf(kNames, "VLMBriselSpacers::", "(CGFloat())") == 13);

static_assert(areKindsOf<NSObject, VLMBriselColors, VLMBriselOpacities, VLMBriselSpacers, VLMBriselSwiftScreenScale,
                         VLMBriselScreenScale>);

TEST(NamesOfTokens, AreListedOnceEach) { EXPECT_THAT(listedTwice(kNames), testing::IsEmpty()); }

}  // namespace
}  // namespace Brisel::Published
