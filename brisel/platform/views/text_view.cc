#include "brisel/platform/views/text_view.h"

#include <utility>

#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform {
namespace {

using namespace internal;

}  // namespace

struct UITextView::State {
  AttributedText text;
  std::shared_ptr<const UIFont> font;
  ColorPtr textColor;
  NSTextAlignment textAlignment = NSTextAlignment::natural;
  UIEdgeInsets inset{8, 0, 8, 0};
  std::optional<ShownText> shown;  // made anew when what it shows has changed

  Dictionary attributes() const {
    Dictionary attributes;
    if (font) attributes = attributes.with(Value(NSFontAttributeName), font);
    if (textColor) attributes = attributes.with(Value(NSForegroundColorAttributeName), Value(textColor));
    return textAlignment == NSTextAlignment::natural ? attributes : withAlignment(attributes, textAlignment);
  }
};

std::shared_ptr<UITextView> UITextView::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UITextView>(new UITextView), frame);
}

UITextView::UITextView() : state_(std::make_unique<State>()) {}
UITextView::~UITextView() = default;

std::optional<std::string> UITextView::text() const { return charactersOf(state_->text); }

void UITextView::setText(const std::optional<std::string>& text) {
  state_->text = textWithAttributes(text, state_->attributes());
  contentDidChange();
}

const std::shared_ptr<const NSAttributedString>& UITextView::attributedText() const noexcept { return state_->text; }

void UITextView::setAttributedText(const std::shared_ptr<const NSAttributedString>& text) {
  state_->text = copyOf(text);
  contentDidChange();
}

const std::shared_ptr<const UIFont>& UITextView::font() const noexcept { return state_->font; }

void UITextView::setFont(const std::shared_ptr<const UIFont>& font) {
  state_->font = font;
  state_->text = withAttribute(state_->text, NSFontAttributeName, font);
  contentDidChange();
}

const ColorPtr& UITextView::textColor() const noexcept { return state_->textColor; }

void UITextView::setTextColor(const ColorPtr& color) {
  state_->textColor = color;
  state_->text = withAttribute(state_->text, NSForegroundColorAttributeName, color);
  contentDidChange();
}

NSTextAlignment UITextView::textAlignment() const noexcept { return state_->textAlignment; }

void UITextView::setTextAlignment(NSTextAlignment alignment) {
  state_->textAlignment = alignment;
  state_->text = withAlignment(state_->text, alignment);
  contentDidChange();
}

const UIEdgeInsets& UITextView::textContainerInset() const noexcept { return state_->inset; }

void UITextView::setTextContainerInset(const UIEdgeInsets& inset) {
  state_->inset = inset;
  contentDidChange();
}

CGSize UITextView::intrinsicContentSize() const { return sizeThatFits({}); }

CGSize UITextView::sizeThatFits(CGSize size) const {
  const auto [top, left, bottom, right] = finite(state_->inset);
  const CGSize text = (size.width > 0 ? shown().atWidth(size.width - left - right) : shown().whole()).size();
  return roundedUpToPixels({text.width + left + right, text.height + top + bottom});
}

// That of the first line, wherever it ends.
FirstBaseline UITextView::firstBaseline() const {
  const auto [top, left, bottom, right] = finite(state_->inset);
  return {0, top + shown().atWidth(bounds().size.width - left - right).firstBaseline()};
}

bool UITextView::hasHeightForWidth() const { return true; }

void UITextView::drawContent(Canvas& canvas, CGPoint at) const {
  const auto [top, left, bottom, right] = finite(state_->inset);
  const CGSize size = bounds().size;
  if (!(size.width > 0 && size.height > 0)) return;
  const TextLayout& layout = shown().atWidth(size.width - left - right);
  const bool isCut = top + layout.size().height > size.height || left + layout.size().width > size.width;
  if (isCut) {
    canvas.save();
    canvas.clipToPath(UIBezierPath::bezierPathWithRect({at, size}));
  }
  shown().draw(canvas, {at.x + left, at.y + top}, layout);
  if (isCut) canvas.restore();
}

const internal::ShownText& UITextView::shown() const {
  State& state = *state_;
  const auto direction = effectiveUserInterfaceLayoutDirection();
  if (!state.shown || state.shown->direction() != direction) {
    const TextDefaults defaults{state.font, state.textColor, paragraphStyleOf(state.attributes())};
    state.shown.emplace(state.text, defaults, direction, ShownText::Lines::all);
  }
  return *state.shown;
}

void UITextView::contentDidChange() {
  state_->shown.reset();
  invalidateIntrinsicContentSize();
}

}  // namespace Brisel::Platform
