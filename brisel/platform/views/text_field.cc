#include "brisel/platform/views/text_field.h"

#include <utility>

#include "brisel/platform/internal/attribute.h"
#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform {
namespace {

using namespace internal;

constexpr CGFloat kFontSize = 17;
constexpr CGFloat kPlaceholderAlpha = 0.3;  // of the text's own

}  // namespace

struct UITextField::State {
  AttributedText text;
  AttributedText placeholder;
  bool hasPlainPlaceholder = false;  // one that follows the default attributes
  Dictionary defaults;
  std::optional<ShownText> shown;  // made anew when what it shows has changed

  ColorPtr placeholderColor() const {
    const auto color = attribute<UIColor>(defaults, NSForegroundColorAttributeName);
    return color ? color->colorWithAlphaComponent(color->alpha() * kPlaceholderAlpha)
                 : UIColor::initWithWhite(0, kPlaceholderAlpha);
  }

  void setPlainPlaceholder(const std::optional<std::string>& characters) {
    hasPlainPlaceholder = true;
    placeholder =
        textWithAttributes(characters, defaults.with(Value(NSForegroundColorAttributeName), Value(placeholderColor())));
  }
};

std::shared_ptr<UITextField> UITextField::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UITextField>(new UITextField), frame);
}

UITextField::UITextField() : state_(std::make_unique<State>()) {}
UITextField::~UITextField() = default;

std::optional<std::string> UITextField::text() const { return charactersOf(state_->text); }

void UITextField::setText(const std::optional<std::string>& text) {
  state_->text = textWithAttributes(text, state_->defaults);
  contentDidChange();
}

const std::shared_ptr<const NSAttributedString>& UITextField::attributedText() const noexcept { return state_->text; }

void UITextField::setAttributedText(const std::shared_ptr<const NSAttributedString>& text) {
  state_->text = copyOf(text);
  contentDidChange();
}

std::optional<std::string> UITextField::placeholder() const { return charactersOf(state_->placeholder); }

void UITextField::setPlaceholder(const std::optional<std::string>& placeholder) {
  state_->setPlainPlaceholder(placeholder);
  contentDidChange();
}

const std::shared_ptr<const NSAttributedString>& UITextField::attributedPlaceholder() const noexcept {
  return state_->placeholder;
}

void UITextField::setAttributedPlaceholder(const std::shared_ptr<const NSAttributedString>& placeholder) {
  state_->hasPlainPlaceholder = false;
  state_->placeholder = copyOf(placeholder);
  contentDidChange();
}

const Dictionary& UITextField::defaultTextAttributes() const noexcept { return state_->defaults; }

void UITextField::setDefaultTextAttributes(const Dictionary& attributes) {
  setDefaults(attributes, textWithAttributes(text(), attributes));
}

std::shared_ptr<const UIFont> UITextField::font() const {
  return attribute<UIFont>(state_->defaults, NSFontAttributeName);
}

void UITextField::setFont(const std::shared_ptr<const UIFont>& font) { setDefault(NSFontAttributeName, font); }

ColorPtr UITextField::textColor() const { return attribute<UIColor>(state_->defaults, NSForegroundColorAttributeName); }

void UITextField::setTextColor(const ColorPtr& color) { setDefault(NSForegroundColorAttributeName, color); }

NSTextAlignment UITextField::textAlignment() const { return paragraphStyleOf(state_->defaults)->alignment(); }

void UITextField::setTextAlignment(NSTextAlignment alignment) {
  setDefaults(withAlignment(state_->defaults, alignment), withAlignment(state_->text, alignment));
}

CGSize UITextField::intrinsicContentSize() const { return roundedUpToPixels(shown().whole().size()); }

CGSize UITextField::sizeThatFits(CGSize) const { return intrinsicContentSize(); }

FirstBaseline UITextField::firstBaseline() const { return shown().middleBaseline(); }

void UITextField::drawContent(Canvas& canvas, CGPoint at) const { shown().drawInMiddle(canvas, {at, bounds().size}); }

const internal::ShownText& UITextField::shown() const {
  State& state = *state_;
  const auto direction = effectiveUserInterfaceLayoutDirection();
  if (!state.shown || state.shown->direction() != direction) {
    const bool isEmpty = !state.text || state.text->length() == 0;
    TextDefaults defaults{font(), isEmpty ? state.placeholderColor() : textColor(), paragraphStyleOf(state.defaults)};
    if (!defaults.font) defaults.font = substituteFont(kFontSize);
    state.shown.emplace(isEmpty ? state.placeholder : state.text, defaults, direction, ShownText::Lines::one);
  }
  return *state.shown;
}

void UITextField::setDefault(std::string_view name, const Value& value) {
  const Dictionary& defaults = state_->defaults;
  setDefaults(value.isNull() ? defaults.without(name) : defaults.with(Value(name), value),
              withAttribute(state_->text, name, value));
}

void UITextField::setDefaults(Dictionary attributes, std::shared_ptr<const NSAttributedString> text) {
  state_->defaults = std::move(attributes);
  state_->text = std::move(text);
  if (state_->hasPlainPlaceholder) state_->setPlainPlaceholder(placeholder());
  contentDidChange();
}

void UITextField::contentDidChange() {
  state_->shown.reset();
  invalidateIntrinsicContentSize();
}

}  // namespace Brisel::Platform
