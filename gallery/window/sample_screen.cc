#include "gallery/window/sample_screen.h"

#include <string_view>
#include <utility>

#include "brisel/platform/layout_direction.h"
#include "brisel/platform/trait_collection.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/tokens/spacer.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

#include "gallery/catalogue_names.h"
#include "gallery/window/placing.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::CGSize, Platform::NSLayoutConstraint, Platform::UIContentSizeCategory;
using Platform::UITraitCollection, Platform::UIUserInterfaceLayoutDirection, Platform::UIView;

namespace {

constexpr std::string_view kHelp = "Left, Right: text size · C: colours · D: direction · Up, Down: scroll · Esc: close";

const Platform::ColorPtr& ground(const Theme::ColorSet& colors) { return colors.background().base(); }
const Platform::ColorPtr& raisedGround(const Theme::ColorSet& colors) { return colors.background().elevated().base(); }
const Platform::ColorPtr& edge(const Theme::ColorSet& colors) { return colors.decorative().subdued(); }
const Platform::ColorPtr& text(const Theme::ColorSet& colors) { return colors.text().base(); }
const Platform::ColorPtr& subduedText(const Theme::ColorSet& colors) { return colors.text().subdued(); }

double pointsOfRunningText(ContentSizeCategory category) {
  return TypeStyle::ballad().configuration().fontSize().value(category.rawValue());
}

// Two lines at most, made smaller rather than cut: a bar must leave room for what stands beside it.
void keepLow(Platform::UILabel& label) {
  label.setNumberOfLines(2);
  label.setAdjustsFontSizeToFitWidth(true);
  label.setMinimumScaleFactor(0.4);
}

}  // namespace

SampleScreen::SampleScreen(CGSize size, const NamedColorSet& colors, UIUserInterfaceLayoutDirection direction)
    : window_(Platform::UIWindow::initWithFrame({{}, size})),
      views_(colors.colors),
      colorsName_(colors.name),
      direction_(direction),
      category_(DynamicTypeMonitor::shared()->preferredContentSizeCategory()),
      content_(views_) {
  build();
  slider_->setColors(colors.colors);
  tellSurroundings();
  describe();
  DynamicTypeMonitor::shared()->subscribe(
      subscriber_, [this](const UIContentSizeCategory& category) { textSizeDidChange(category); });
}

SampleScreen::~SampleScreen() = default;

void SampleScreen::build() {
  // A colour set that lets shine through what is below lies on the ordinary ground.
  window_->setBackgroundColor(Theme::dark().base().background().base());
  const auto screen = UIView::initWithFrame();
  views_.paint(screen, ground);
  addFilling(*window_, screen);

  const auto bar = makeBar(), help = makeHelp();
  scroll_ = ScrollView::initWithContent(content_.view());
  addPlaced(*screen, scroll_);
  const auto above = UIView::initWithFrame(), below = UIView::initWithFrame();
  for (const auto& line : {above, below}) {  // as not all colour sets have another ground for what is raised
    views_.paint(line, edge);
    line->heightAnchor().constraintEqualToConstant(1)->setActive(true);
  }
  for (const auto& part : {bar, above, below, help}) addPlaced(*screen, part);
  for (const std::shared_ptr<UIView>& part : {bar, above, std::shared_ptr<UIView>(scroll_), below, help}) {
    NSLayoutConstraint::activateConstraints({
        part->leadingAnchor().constraintEqualToAnchor(screen->leadingAnchor()),
        part->trailingAnchor().constraintEqualToAnchor(screen->trailingAnchor()),
    });
  }
  NSLayoutConstraint::activateConstraints({
      bar->topAnchor().constraintEqualToAnchor(screen->topAnchor()),
      above->topAnchor().constraintEqualToAnchor(bar->bottomAnchor()),
      scroll_->topAnchor().constraintEqualToAnchor(above->bottomAnchor()),
      below->topAnchor().constraintEqualToAnchor(scroll_->bottomAnchor()),
      help->topAnchor().constraintEqualToAnchor(below->bottomAnchor()),
      help->bottomAnchor().constraintEqualToAnchor(screen->bottomAnchor()),
  });
}

std::shared_ptr<UIView> SampleScreen::makeBar() {
  auto bar = UIView::initWithFrame();
  views_.paint(bar, raisedGround);
  const auto column = UIView::initWithFrame();
  constexpr CGFloat kBeside = Spacer::x24().value(), kAbove = Spacer::x12().value();
  addFilling(*bar, column, {kAbove, kBeside, kAbove, kBeside});
  slider_ = SliderView::initWithSteps(static_cast<int>(categories().size()));
  status_ = views_.label({}, TypeStyle::mesto(), text);
  keepLow(*status_);
  Column parts(*column);
  parts.add(slider_);
  parts.add(status_, Spacer::x8().value());
  parts.end();
  return bar;
}

std::shared_ptr<UIView> SampleScreen::makeHelp() {
  auto foot = UIView::initWithFrame();
  views_.paint(foot, raisedGround);
  const auto label = views_.label(kHelp, TypeStyle::finale(), subduedText);
  keepLow(*label);
  constexpr CGFloat kBeside = Spacer::x24().value(), kAbove = Spacer::x8().value();
  addFilling(*foot, label, {kAbove, kBeside, kAbove, kBeside});
  return foot;
}

void SampleScreen::setSize(CGSize size) {
  if (size == window_->frame().size) return;
  window_->setFrame({{}, size});
  needsDisplay_ = true;
}

void SampleScreen::setColors(const NamedColorSet& colors) {
  colorsName_ = colors.name;
  views_.setColors(colors.colors);
  slider_->setColors(colors.colors);
  describe();
}

void SampleScreen::setDirection(UIUserInterfaceLayoutDirection direction) {
  direction_ = direction;
  tellSurroundings();
  describe();
}

void SampleScreen::scrollBy(CGFloat points) {
  layOut();
  const CGFloat before = scroll_->offset();
  scroll_->setOffset(before + points);
  if (scroll_->offset() != before) needsDisplay_ = true;
}

CGFloat SampleScreen::visibleHeight() {
  layOut();
  return scroll_->frame().size.height;
}

Platform::UIWindow& SampleScreen::window() {
  layOut();
  return *window_;
}

CGFloat SampleScreen::wholeHeight() {
  layOut();
  return window_->frame().size.height - scroll_->frame().size.height + content_.view()->frame().size.height;
}

Platform::ImagePtr SampleScreen::draw(CGFloat scale) {
  layOut();
  Platform::UIGraphicsImageRendererFormat format;
  format.scale = scale;
  format.opaque = true;
  const Platform::UIGraphicsImageRenderer renderer(window_->frame().size, format);
  needsDisplay_ = false;
  return renderer.image([&](Platform::Canvas& canvas) { window_->drawHierarchy(canvas, {}); });
}

void SampleScreen::textSizeDidChange(const UIContentSizeCategory& category) {
  category_ = ContentSizeCategory(category);
  tellSurroundings();
  describe();
}

// What the library's views are told by whoever shows them.
void SampleScreen::tellSurroundings() {
  const bool isMirrored = direction_ == UIUserInterfaceLayoutDirection::rightToLeft;
  Platform::setUserInterfaceLayoutDirection(direction_);
  using Direction = Platform::UITraitEnvironmentLayoutDirection;
  window_->setTraitCollection(UITraitCollection::traitCollectionWithTraitsFromCollections({
      UITraitCollection::traitCollectionWithPreferredContentSizeCategory(category_.platformCategory()),
      UITraitCollection::traitCollectionWithLayoutDirection(isMirrored ? Direction::rightToLeft
                                                                       : Direction::leftToRight),
  }));
  views_.setAlignment(isMirrored ? Platform::NSTextAlignment::right : Platform::NSTextAlignment::left);
  slider_->setStep(static_cast<int>(static_cast<ContentSizeCategory::Case>(category_)));
}

void SampleScreen::describe() {
  const bool isMirrored = direction_ == UIUserInterfaceLayoutDirection::rightToLeft;
  const std::string size = decimal(pointsOfRunningText(category_), 1);
  std::string line(categories()[static_cast<std::size_t>(slider_->step())].name);
  line += " · running text " + size + " points · " + colorsName_;
  status_->setText(line + (isMirrored ? " · right to left" : " · left to right"));
  apply(*status_, TypeStyle::mesto(), category_.platformCategory(), false);
  needsDisplay_ = true;
}

void SampleScreen::layOut() {
  // Two columns where either has room for some twenty letters m.
  constexpr CGFloat kRoom = 44;
  const CGFloat width = window_->frame().size.width;
  content_.setTwoColumns(width >= kRoom * pointsOfRunningText(category_));
  window_->layoutIfNeeded();
  // A fitted title is as wide as it was when it was fitted.
  if (std::exchange(fittedWidth_, width) != width) {
    content_.fitTitle(category_.platformCategory());
    window_->layoutIfNeeded();
  }
}

}  // namespace Brisel::Gallery
