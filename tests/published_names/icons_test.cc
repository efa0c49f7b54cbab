// Every name of the icons.
#include "brisel/object_interface/icons.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_configuration.h"
#include "brisel/icons/icon_constants.h"
#include "brisel/icons/icon_error.h"
#include "brisel/icons/icon_font.h"
#include "brisel/icons/icon_image.h"
#include "brisel/object_interface/icon_images.h"

#include "tests/published_names/published_names.h"

namespace Brisel::Published {
namespace {

constexpr Name kNames[] = {
#include "brisel/icons/names.def"
};

static_assert(countOf(kNames, "Brisel::Icon::", "(const Icon&())") == 328);
static_assert(countOf(kNames, "VLMBriselSwiftIcons::", "(Ptr<VLMBriselSwiftIcons>())") == 328);
static_assert(VLMBriselIconNone == 0 && VLMBriselIconCount == 329 && VLMBriselIconInvalid == 9223372036854775807);
static_assert(VLMBriselIconGlyphSizeSmall == 0 && VLMBriselIconGlyphSizeMedium == 1);
static_assert(countOf(kNames, "briselSwift_imageForIcon") == 4);
static_assert(countOf(kNames, "brisel_imageForIcon") == 8);

static_assert(areKindsOf<NSObject, VLMBriselSwiftIcons> && areKindsOf<std::runtime_error, Error::Icon>);

TEST(NamesOfIcons, AreListedOnceEach) { EXPECT_THAT(listedTwice(kNames), testing::IsEmpty()); }

}  // namespace
}  // namespace Brisel::Published
