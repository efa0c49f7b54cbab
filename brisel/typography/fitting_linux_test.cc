// Fitting with the bundle's fonts, on the port that ships. The host's fonts are off.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/port.h"
#include "brisel/platform/screen.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/fitting_case_test.h"
#include "brisel/typography/font.h"
#include "brisel/typography/font_stacks.h"

#include "tests/written_fitting.h"

namespace Brisel {
namespace {

using namespace Platform;

TEST(FittingOfBundledFonts, IsTheLoopAsItIsWritten) {
  engine().setUsesHostFonts(false);
  EXPECT_TRUE(rc::check([] {
    UIScreen::mainScreen().setScale(*rc::gen::element(1.0, 2.0, 3.0));
    const FontStack& stack = (*rc::gen::arbitrary<bool>()) ? FontStack::text : FontStack::title;
    const auto fallbacks = stack.fallbackFonts.first(*rc::gen::inRange<std::size_t>(0, stack.fallbackFonts.size() + 1));
    const double size = *rc::gen::map(rc::gen::inRange(0, 240), [](int n) { return n / 4.0; });
    const Tests::FittingCase fitting =
        Tests::anyFittingCase(Font::font(stack.primaryFont, fallbacks, Font::Weight::bold, size, {}));
    Tests::WrittenFitting written;
    const ScaledResult expected =
        written.scaledToFit(fitting.string, fitting.size, fitting.numberOfLines, fitting.minScale);
    RC_CLASSIFY(written.measurements() > 1, "shrinks");
    RC_CLASSIFY(written.measurements() > 5, "shrinks by more than four points");
    const ScaledResult result = scaledToFit(fitting.string, fitting.size, fitting.numberOfLines, fitting.minScale);
    RC_ASSERT(Tests::areTheSame(result, expected));
  }));
}

}  // namespace
}  // namespace Brisel
