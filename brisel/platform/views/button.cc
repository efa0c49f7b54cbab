#include "brisel/platform/views/button.h"

#include <map>

#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform {
namespace {

using namespace internal;

constexpr CGFloat kFontSize = 17;

}  // namespace

struct UIButton::Titles {
  struct Look {
    std::optional<std::string> title;
    ColorPtr color;
    AttributedText attributedTitle;
  };

  std::map<std::uint32_t, Look> looks;
  std::optional<ShownText> shown;  // made anew when what it shows has changed

  // Null where nothing was ever set for the state.
  const Look* find(UIControlState state) const {
    const auto look = looks.find(state);
    return look == looks.end() ? nullptr : &look->second;
  }
};

std::shared_ptr<UIButton> UIButton::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UIButton>(new UIButton), frame);
}

UIButton::UIButton() : titles_(std::make_unique<Titles>()) {}
UIButton::~UIButton() = default;

std::optional<std::string> UIButton::titleForState(UIControlState state) const {
  const auto* look = titles_->find(state);
  return look ? look->title : std::nullopt;
}

void UIButton::setTitle(const std::optional<std::string>& title, UIControlState state) {
  titles_->looks[state].title = title;
  contentDidChange();
}

ColorPtr UIButton::titleColorForState(UIControlState state) const {
  const auto* look = titles_->find(state);
  return look ? look->color : nullptr;
}

void UIButton::setTitleColor(const ColorPtr& color, UIControlState state) {
  titles_->looks[state].color = color;
  contentDidChange();
}

std::shared_ptr<const NSAttributedString> UIButton::attributedTitleForState(UIControlState state) const {
  const auto* look = titles_->find(state);
  return look ? look->attributedTitle : nullptr;
}

void UIButton::setAttributedTitle(const std::shared_ptr<const NSAttributedString>& title, UIControlState state) {
  titles_->looks[state].attributedTitle = copyOf(title);
  contentDidChange();
}

void UIButton::setEnabled(bool enabled) { setFlag(UIControlStateDisabled, !enabled); }
void UIButton::setHighlighted(bool highlighted) { setFlag(UIControlStateHighlighted, highlighted); }
void UIButton::setSelected(bool selected) { setFlag(UIControlStateSelected, selected); }
void UIButton::setFocused(bool focused) { setFlag(UIControlStateFocused, focused); }

void UIButton::setFlag(UIControlState flag, bool set) {
  const std::uint32_t others = state_ & ~std::uint32_t{flag};
  const auto state = static_cast<UIControlState>(set ? others | flag : others);
  if (state == state_) return;
  state_ = state;
  contentDidChange();
}

std::shared_ptr<const NSAttributedString> UIButton::currentAttributedTitle() const {
  const ColorPtr color = currentTitleColor();
  Dictionary attributes;
  if (color) attributes = attributes.with(Value(NSForegroundColorAttributeName), Value(color));
  for (const UIControlState state : {state_, UIControlStateNormal}) {
    if (auto title = attributedTitleForState(state)) return title;
    if (const auto title = titleForState(state)) return textWithAttributes(title, attributes);
  }
  return nullptr;
}

ColorPtr UIButton::currentTitleColor() const {
  const ColorPtr color = titleColorForState(state_);
  return color ? color : titleColorForState(UIControlStateNormal);
}

void UIButton::setContentEdgeInsets(const UIEdgeInsets& insets) {
  contentEdgeInsets_ = insets;
  contentDidChange();
}

// Null without a title.
const internal::ShownText* UIButton::shown() const {
  std::optional<ShownText>& shown = titles_->shown;
  const auto direction = effectiveUserInterfaceLayoutDirection();
  if (!shown || shown->direction() != direction) {
    const auto title = currentAttributedTitle();
    if (!title) return nullptr;
    const TextDefaults defaults{substituteFont(kFontSize), currentTitleColor(), nullptr};
    shown.emplace(withAlignment(title, NSTextAlignment::center), defaults, direction, ShownText::Lines::one);
  }
  return &*shown;
}

CGSize UIButton::intrinsicContentSize() const {
  const auto* text = shown();
  const CGSize title = text ? text->whole().size() : CGSize{};
  const auto [top, left, bottom, right] = finite(contentEdgeInsets_);
  return roundedUpToPixels({title.width + left + right, title.height + top + bottom});
}

CGSize UIButton::sizeThatFits(CGSize) const { return intrinsicContentSize(); }

FirstBaseline UIButton::firstBaseline() const {
  const auto* text = shown();
  if (!text) return UIView::firstBaseline();
  const UIEdgeInsets insets = finite(contentEdgeInsets_);
  const auto [fraction, offset] = text->middleBaseline();
  // Of the height without the insets, from below the upper one.
  return {fraction, offset + insets.top - (insets.top + insets.bottom) * fraction};
}

void UIButton::drawContent(Canvas& canvas, CGPoint at) const {
  const auto* text = shown();
  if (!text) return;
  const auto [top, left, bottom, right] = finite(contentEdgeInsets_);
  const CGSize size = bounds().size;
  text->drawInMiddle(canvas, {{at.x + left, at.y + top}, {size.width - left - right, size.height - top - bottom}});
}

void UIButton::contentDidChange() {
  titles_->shown.reset();
  invalidateIntrinsicContentSize();
}

}  // namespace Brisel::Platform
