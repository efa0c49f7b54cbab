// Views as the library draws them: fields, text views and buttons, in several states and both directions.
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/foundation.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/button.h"
#include "brisel/platform/views/text_field.h"
#include "brisel/platform/views/text_view.h"
#include "brisel/platform/views/window.h"

#include "tests/pictures/reference.h"

namespace Brisel::Pictures {
namespace {

using namespace Platform;
using Direction = UITraitEnvironmentLayoutDirection;

constexpr CGFloat kMargin = 8;
constexpr CGFloat kWidth = 220;

class ViewPicture : public testing::Test {
 protected:
  ViewPicture() { engine().setUsesHostFonts(false); }

  static std::shared_ptr<const UIFont> fontOf(const TypeStyle& style) {
    const Dictionary attributes = style.stringAttributes(UIContentSizeCategoryLarge);
    return attributes.find(NSFontAttributeName)->as<UIFont>();
  }
  static const ColorPtr& textColor() { return Theme::dark().base().text().base(); }

  // The views one below the other, in a window of that direction, each on a ground that shows its edges.
  static Bitmap draw(std::initializer_list<std::pair<std::shared_ptr<UIView>, CGFloat>> viewsAndHeights,
                     Direction direction) {
    const auto window = UIWindow::initWithFrame();
    CGFloat y = kMargin;
    for (const auto& [view, height] : viewsAndHeights) {
      view->setFrame({{kMargin, y}, {kWidth, height}});
      view->setBackgroundColor(UIColor::initWithWhite(1, 0.1));
      window->addSubview(view);
      y += height + kMargin;
    }
    window->setTraitCollection(UITraitCollection::traitCollectionWithLayoutDirection(direction));
    window->setBackgroundColor(Theme::dark().base().background().base());
    const CGSize size{kWidth + 2 * kMargin, y};
    window->setFrame({{}, size});
    window->layoutIfNeeded();
    const auto canvas = engine().makeCanvas(size, 2);
    window->drawHierarchy(*canvas, {});
    return canvas->bitmap();
  }

  static std::shared_ptr<UITextField> field(const char* text, const char* placeholder) {
    const auto field = UITextField::initWithFrame();
    field->setFont(fontOf(TypeStyle::ballad()));
    field->setTextColor(textColor());
    field->setText(text);
    field->setPlaceholder(placeholder);
    return field;
  }

  static Bitmap fields(Direction direction) {
    const auto centred = field("Morning light", "");
    centred->setTextAlignment(NSTextAlignment::center);
    return draw({{field("", "Your name"), 36},
                 {field("Ada, 16:45", "Your name"), 36},
                 {field("The train to Morning Bay leaves at 16:45", ""), 36},
                 {field("ضوء الصباح", ""), 36},
                 {field("16:45", ""), 36},
                 {centred, 60}},
                direction);
  }

  static Bitmap textViews(Direction direction) {
    const auto view = [](const char* text) {
      const auto made = UITextView::initWithFrame();
      made->setFont(fontOf(TypeStyle::viola()));
      made->setTextColor(textColor());
      made->setText(text);
      return made;
    };
    const auto inset = view("Inset on all sides, with the line broken where the inset begins.");
    inset->setTextContainerInset({12, 24, 12, 48});
    return draw({{view("The train to Morning Bay leaves at 16:45 from platform 3."), 70},
                 {view("ضوء الصباح على النوافذ، والقطار يغادر الساعة 16:45 من الرصيف 3."), 70},
                 {view("16:45\n17:15"), 60},
                 {inset, 90},
                 {view("What is beyond the lower edge of a text view is not drawn: this line is cut."), 38}},
                direction);
  }

  static Bitmap buttons(Direction direction) {
    const auto button = [] {
      const auto made = UIButton::initWithFrame();
      made->setTitle("Normal", UIControlStateNormal);
      made->setTitleColor(textColor(), UIControlStateNormal);
      made->setTitleColor(textColor()->colorWithAlphaComponent(0.4), UIControlStateDisabled);
      made->setTitle("Selected", UIControlStateSelected);
      made->setAttributedTitle(
          attributedString("Highlighted", TypeStyle::balladBold(), UIContentSizeCategoryLarge,
                           {{Value(NSForegroundColorAttributeName), Value(Color::citric186().value())}}),
          UIControlStateHighlighted);
      return made;
    };
    const auto highlighted = button(), disabled = button(), selected = button(), inset = button(), narrow = button();
    highlighted->setHighlighted(true);
    disabled->setEnabled(false);
    selected->setSelected(true);
    inset->setContentEdgeInsets({12, 100, 0, 0});
    narrow->setTitle("A title that is much too long for its button", UIControlStateNormal);
    return draw({{button(), 36}, {highlighted, 36}, {disabled, 36}, {selected, 36}, {inset, 36}, {narrow, 36}},
                direction);
  }
};

TEST_F(ViewPicture, OfFields) { EXPECT_TRUE(equalsReference(fields(Direction::leftToRight), "fields")); }

TEST_F(ViewPicture, OfFieldsFromRightToLeft) {
  EXPECT_TRUE(equalsReference(fields(Direction::rightToLeft), "fields_right_to_left"));
}

TEST_F(ViewPicture, OfTextViews) { EXPECT_TRUE(equalsReference(textViews(Direction::leftToRight), "text_views")); }

TEST_F(ViewPicture, OfTextViewsFromRightToLeft) {
  EXPECT_TRUE(equalsReference(textViews(Direction::rightToLeft), "text_views_right_to_left"));
}

TEST_F(ViewPicture, OfButtons) { EXPECT_TRUE(equalsReference(buttons(Direction::leftToRight), "buttons")); }

}  // namespace
}  // namespace Brisel::Pictures
