#include "brisel/platform/views/text_view.h"

#include <cmath>
#include <limits>
#include <utility>

#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform {
namespace {

using namespace internal;

constexpr CGFloat kUnbounded = std::numeric_limits<CGFloat>::infinity();

CGFloat finite(CGFloat distance) noexcept { return std::isfinite(distance) ? distance : 0; }

}  // namespace

struct UITextView::State {
  AttributedText text;
  std::shared_ptr<const UIFont> font;
  ColorPtr textColor;
  NSTextAlignment textAlignment = NSTextAlignment::natural;
  UIEdgeInsets inset{8, 0, 8, 0};
  mutable std::optional<TextDrawing> drawing;  // the last one, at this width
  mutable CGFloat width = 0;

  Dictionary attributes() const {
    Dictionary attributes;
    if (font) attributes = attributes.with(Value(NSFontAttributeName), font);
    if (textColor) attributes = attributes.with(Value(NSForegroundColorAttributeName), Value(textColor));
    return textAlignment == NSTextAlignment::natural ? attributes : withAlignment(attributes, textAlignment);
  }

  // What is not finite counts as no room.
  UIEdgeInsets room() const {
    return {finite(inset.top), finite(inset.left), finite(inset.bottom), finite(inset.right)};
  }

  const TextDrawing& laidOut(CGFloat atWidth) const {
    if (!drawing || width != atWidth) {
      // Without a text, the view is as high as a line of it would be.
      const bool isEmpty = !text || text->length() == 0;
      const auto shown =
          isEmpty ? NSAttributedString::initWithString(" ", attributes()) : withDefaults(text, attributes());
      drawing.emplace(*shown, TextLayout::Options{.width = atWidth});
      width = atWidth;
    }
    return *drawing;
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

CGSize UITextView::intrinsicContentSize() const { return sizeThatFits({kUnbounded, kUnbounded}); }

CGSize UITextView::sizeThatFits(CGSize size) const {
  const UIEdgeInsets room = state_->room();
  const CGSize text = state_->laidOut(size.width - room.left - room.right).size();
  return {text.width + room.left + room.right, text.height + room.top + room.bottom};
}

FirstBaseline UITextView::firstBaseline() const {
  const UIEdgeInsets room = state_->room();
  return {0, room.top + state_->laidOut(bounds().size.width - room.left - room.right).layout().firstBaseline()};
}

bool UITextView::hasHeightForWidth() const { return true; }

void UITextView::drawContent(Canvas& canvas, CGPoint at) const {
  const UIEdgeInsets room = state_->room();
  const CGSize size = bounds().size;
  const TextDrawing& text = state_->laidOut(size.width - room.left - room.right);
  const bool isCut = room.top + text.size().height > size.height;
  if (isCut) {
    canvas.save();
    canvas.clipToPath(UIBezierPath::bezierPathWithRect({at, size}));
  }
  text.draw(canvas, {at.x + room.left, at.y + room.top});
  if (isCut) canvas.restore();
}

void UITextView::contentDidChange() {
  state_->drawing.reset();
  invalidateIntrinsicContentSize();
}

}  // namespace Brisel::Platform
