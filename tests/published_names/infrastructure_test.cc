// Every name of the shared facilities.
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/infrastructure/cache.h"
#include "brisel/infrastructure/dictionary_difference.h"
#include "brisel/infrastructure/image_blending.h"
#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/image_enlarging.h"
#include "brisel/infrastructure/memory_pressure_monitor.h"
#include "brisel/infrastructure/memory_pressure_observable.h"
#include "brisel/infrastructure/shape_images.h"
#include "brisel/infrastructure/view_sizing.h"
#include "brisel/object_interface/cubic_bezier_curve.h"
#include "brisel/object_interface/dictionaries.h"
#include "brisel/object_interface/images.h"
#include "brisel/object_interface/shape_images.h"
#include "brisel/object_interface/view_sizing.h"

#include "tests/published_names/published_names.h"

namespace Brisel::Published {
namespace {

// The names of a template's members, here as those of a class.
using Key = std::string;
using Value = int;
namespace Brisel {
using namespace ::Brisel;
using Cache = ::Brisel::Cache<Key, Value>;
}  // namespace Brisel

constexpr Name kNames[] = {
#include "brisel/infrastructure/names.def"
};

static_assert(countOf(kNames, "VLMBriselCubicBezierCurve::set") == 8);
static_assert(countOf(kNames, "briselSwift_with") + countOf(kNames, "briselSwift_verified") == 4);
static_assert(countOf(kNames, "brisel_with") + countOf(kNames, "brisel_verified") == 6);

static_assert(areKindsOf<NSObject, VLMBriselCubicBezierCurve>);
static_assert(areKindsOf<VLMBriselCurve, VLMBriselCubicBezierCurve>);
static_assert(areKindsOf<MemoryPressureObservable, MemoryPressureMonitor>);
static_assert(areKindsOf<std::logic_error, NotADictionary>);

TEST(NamesOfInfrastructure, AreListedOnceEach) { EXPECT_THAT(listedTwice(kNames), testing::IsEmpty()); }

}  // namespace
}  // namespace Brisel::Published
