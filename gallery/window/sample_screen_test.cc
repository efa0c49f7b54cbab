#include "gallery/window/sample_screen.h"

#include <cmath>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/typography/dynamic_type_monitor.h"

#include "gallery/catalogue_names.h"
#include "gallery/desktop/text_size.h"

namespace Brisel::Gallery {
namespace {

using Platform::CGFloat, Platform::CGRect, Platform::CGSize, Platform::UIUserInterfaceLayoutDirection;
using Platform::UILabel, Platform::UIView;

constexpr auto kLtr = UIUserInterfaceLayoutDirection::leftToRight, kRtl = UIUserInterfaceLayoutDirection::rightToLeft;
constexpr CGFloat kSlack = 1e-6;  // points

NamedColorSet colorSet(std::string_view name) {
  for (const NamedColorSet& set : allColorSets()) {
    if (set.name == name) return set;
  }
  throw std::logic_error("there is no such set");
}

struct Placed {
  const UIView* view;
  CGRect frame;  // in the window
};

// The views that show something themselves.
void collect(const UIView& view, Platform::CGPoint at, std::vector<Placed>& places) {
  if (dynamic_cast<const UILabel*>(&view) || dynamic_cast<const Platform::UITextField*>(&view) ||
      dynamic_cast<const Platform::UITextView*>(&view) || dynamic_cast<const PillButton*>(&view) ||
      dynamic_cast<const IconView*>(&view) || dynamic_cast<const SliderView*>(&view)) {
    places.push_back({&view, {at, view.frame().size}});
  }
  for (const auto& subview : view.subviews()) {
    collect(*subview, {at.x + subview->frame().origin.x, at.y + subview->frame().origin.y}, places);
  }
}

std::vector<Placed> placesIn(SampleScreen& screen) {
  std::vector<Placed> places;
  collect(screen.window(), {}, places);
  return places;
}

CGFloat right(const CGRect& rect) { return rect.origin.x + rect.size.width; }
CGFloat bottom(const CGRect& rect) { return rect.origin.y + rect.size.height; }
bool overlap(const CGRect& a, const CGRect& b) {
  return a.origin.x < right(b) - kSlack && b.origin.x < right(a) - kSlack && a.origin.y < bottom(b) - kSlack &&
         b.origin.y < bottom(a) - kSlack;
}

std::string told(const Placed& place) {
  const auto& [origin, size] = place.frame;
  const auto* label = dynamic_cast<const UILabel*>(place.view);
  return (label ? label->text().value_or("") : typeid(*place.view).name()) + " at " + std::to_string(origin.x) + ", " +
         std::to_string(origin.y) + " of " + std::to_string(size.width) + " x " + std::to_string(size.height);
}

TEST(SampleScreen, SetsNothingOverAnotherNorBesideTheWindowInAnyTextSizeAndWidth) {
  SampleScreen screen({360, 720}, colorSet("base"), kLtr);
  for (const NamedCategory& entry : categories()) {
    announceTextSize(entry.category);
    for (const CGFloat width : {360, 719, 1024, 1920}) {
      screen.setSize({width, 720});
      screen.setSize({width, std::ceil(screen.wholeHeight())});
      SCOPED_TRACE(std::string(entry.name) + " at " + std::to_string(width));
      const std::vector<Placed> places = placesIn(screen);
      ASSERT_GT(places.size(), 40U);
      for (const Placed& place : places) {
        EXPECT_GE(place.frame.origin.x, -kSlack) << told(place);
        EXPECT_GE(place.frame.origin.y, -kSlack) << told(place);
        EXPECT_LE(right(place.frame), width + kSlack) << told(place);
        EXPECT_LE(bottom(place.frame), screen.window().frame().size.height + kSlack) << told(place);
        EXPECT_GT(place.frame.size.width, 0) << told(place);
        EXPECT_GT(place.frame.size.height, 0) << told(place);
      }
      for (std::size_t i = 0; i < places.size(); ++i) {
        for (std::size_t j = i + 1; j < places.size(); ++j) {
          EXPECT_FALSE(overlap(places[i].frame, places[j].frame)) << told(places[i]) << "\n" << told(places[j]);
        }
      }
    }
  }
}

TEST(SampleScreen, ShowsEveryTextWhole) {
  SampleScreen screen({360, 720}, colorSet("base"), kLtr);
  for (const NamedCategory& entry : categories()) {
    announceTextSize(entry.category);
    screen.window();
    for (const StyledViews::StyledLabel& label : screen.views().labels()) {
      if (label.view->numberOfLines() != 0) continue;
      const CGSize size = label.view->frame().size;
      EXPECT_GE(size.height + kSlack, label.view->sizeThatFits({size.width, 1e6}).height) << *label.view->text();
    }
  }
}

TEST(SampleScreen, HasEveryLabelFollowTheTextSizeWithoutBeingMadeAnew) {
  SampleScreen screen({960, 720}, colorSet("base"), kLtr);
  screen.window();
  std::vector<const UILabel*> before;
  for (const auto& label : screen.views().labels()) before.push_back(label.view.get());
  for (const NamedCategory& entry : categories()) {
    announceTextSize(entry.category);
    screen.window();
    ASSERT_EQ(screen.views().labels().size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
      const auto& label = screen.views().labels()[i];
      EXPECT_EQ(label.view.get(), before[i]);
      EXPECT_EQ(label.view->font()->pointSize(),
                label.style.configuration().fontSize().value(entry.category.rawValue()))
          << *label.view->text();
    }
  }
}

TEST(SampleScreen, GrowsWithTheTextSize) {
  SampleScreen screen({960, 720}, colorSet("base"), kLtr);
  CGFloat before = 0;
  for (const NamedCategory& entry : categories()) {
    announceTextSize(entry.category);
    EXPECT_EQ(screen.textSize(), entry.category);
    // Beyond scale 1.6 sizes are those at 1.6.
    const bool isLarger = entry.category <= ContentSizeCategory::accessibilityExtraLarge;
    const CGFloat height = screen.wholeHeight();
    EXPECT_TRUE(isLarger ? height > before : height >= before) << entry.name << ": " << before << ", " << height;
    before = height;
  }
}

TEST(SampleScreen, IsMirroredFromRightToLeft) {
  for (const CGFloat width : {400, 1200}) {
    SampleScreen screen({width, 720}, colorSet("base"), kLtr);
    const std::vector<Placed> before = placesIn(screen);
    screen.setDirection(kRtl);
    const std::vector<Placed> after = placesIn(screen);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(after[i].view, before[i].view);
      EXPECT_NEAR(after[i].frame.origin.x, width - right(before[i].frame), kSlack) << told(before[i]);
      EXPECT_NEAR(after[i].frame.origin.y, before[i].frame.origin.y, kSlack) << told(before[i]);
      EXPECT_NEAR(after[i].frame.size.width, before[i].frame.size.width, kSlack) << told(before[i]);
    }
  }
}

TEST(SampleScreen, SqueezesTheTitleIntoOneLineAsWideAsTheWindowIs) {
  SampleScreen screen({1200, 720}, colorSet("base"), kLtr);
  const auto title = [&]() -> const UILabel& {
    screen.window();
    for (const auto& label : screen.views().labels()) {
      if (label.style == TypeStyle::bass()) return *label.view;
    }
    throw std::logic_error("there is no title");
  };
  const auto drawnSize = [&] {
    return title().attributedText()->attribute(Platform::NSFontAttributeName, 0)->as<Platform::UIFont>()->pointSize();
  };
  EXPECT_EQ(drawnSize(), 56);  // there is room
  screen.setSize({400, 720});
  const CGFloat narrow = drawnSize();
  EXPECT_LT(narrow, 56);
  EXPECT_GE(narrow, 56 * 0.3 - 1);
  screen.setSize({1200, 720});
  EXPECT_EQ(drawnSize(), 56);
}

TEST(SampleScreen, IsDrawnAgainOnlyWhereItWouldLookOther) {
  SampleScreen screen({480, 400}, colorSet("base"), kLtr);
  const auto isDrawnAgainAfter = [&](const auto& change) {
    screen.draw(1);
    EXPECT_FALSE(screen.needsDisplay());
    change();
    return screen.needsDisplay();
  };
  EXPECT_TRUE(screen.needsDisplay());
  EXPECT_FALSE(isDrawnAgainAfter([&] { screen.setSize({480, 400}); }));
  EXPECT_TRUE(isDrawnAgainAfter([&] { screen.setSize({481, 400}); }));
  EXPECT_TRUE(isDrawnAgainAfter([&] { screen.setColors(colorSet("warning")); }));
  EXPECT_TRUE(isDrawnAgainAfter([&] { screen.setDirection(kRtl); }));
  EXPECT_TRUE(isDrawnAgainAfter([&] { announceTextSize(ContentSizeCategory::small); }));
  EXPECT_TRUE(isDrawnAgainAfter([&] { screen.scrollBy(10); }));
  EXPECT_TRUE(isDrawnAgainAfter([&] { screen.scrollBy(-20); }));
  EXPECT_FALSE(isDrawnAgainAfter([&] { screen.scrollBy(-20); }));
}

TEST(SampleScreen, TakesTheColoursOfTheSetForAllThatItShows) {
  SampleScreen screen({480, 400}, colorSet("base"), kLtr);
  screen.setColors(colorSet("invertedLight"));
  const Theme::ColorSet& colors = Theme::dark().invertedLight();
  for (const auto& label : screen.views().labels()) EXPECT_EQ(label.view->textColor(), label.color(colors));
  const auto picture = screen.draw(1);
  const auto* corner = picture->bitmap()->pixel(1, 200);
  EXPECT_EQ((std::vector<int>(corner, corner + 4)), (std::vector<int>{255, 255, 255, 255}));
}

TEST(SampleScreen, IsDrawnAtTheScaleOfTheDisplay) {
  SampleScreen screen({480.5, 400}, colorSet("base"), kLtr);
  EXPECT_EQ(screen.draw(2)->bitmap()->width, 961);
  EXPECT_EQ(screen.draw(2)->bitmap()->height, 800);
}

TEST(SampleScreen, FollowsNoTextSizeOnceItIsGone) {
  { const SampleScreen screen({480, 400}, colorSet("base"), kLtr); }
  announceTextSize(ContentSizeCategory::accessibilityLarge);
  EXPECT_EQ(DynamicTypeMonitor::shared()->preferredContentSizeCategory(),
            Platform::UIContentSizeCategoryAccessibilityLarge);
}

}  // namespace
}  // namespace Brisel::Gallery
