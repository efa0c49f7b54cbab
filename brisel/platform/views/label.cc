#include "brisel/platform/views/label.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory_resource>
#include <string>
#include <utility>

#include "brisel/platform/internal/prefetch.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform {
namespace {

using internal::roundedUpToPixels;

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

// How often the range of scales is halved in search of the one at which several lines fit.
constexpr int kHalvings = 12;

// Of text of a height that stands in the middle of its view.
FirstBaseline centred(CGFloat baseline, CGFloat height) {
  FirstBaseline first;
  first.fractionOfHeight = 0.5;
  first.offset = baseline - height / 2;
  return first;
}

// A factor from 0 to 1.
CGFloat fraction(CGFloat factor) { return factor > 0 ? std::min(factor, 1.0) : 0; }

}  // namespace

std::shared_ptr<UILabel> UILabel::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UILabel>(new UILabel), frame);
}

std::optional<std::string> UILabel::text() const {
  if (!state_.text) return std::nullopt;
  return state_.text->string();
}

const std::shared_ptr<const NSAttributedString>& UILabel::characters() const noexcept { return state_.text; }

void UILabel::setText(const std::optional<std::string>& text) {
  state_.setText(text ? NSAttributedString::initWithString(*text) : nullptr, true);
  invalidateIntrinsicContentSize();
}

std::shared_ptr<const NSAttributedString> UILabel::attributedText() const {
  internal::LabelState& state = state_;
  if (!state.text || !state.isPlain) return state.currentText();
  Dictionary attributes{{NSFontAttributeName, state.ownFont()},
                        {NSParagraphStyleAttributeName, state.ownParagraphStyle()}};
  if (state.textColor) attributes = attributes.with(NSForegroundColorAttributeName, state.textColor);
  return NSAttributedString::initWithString(state.text->string(), attributes);
}

void UILabel::setAttributedText(const std::shared_ptr<const NSAttributedString>& text) {
  state_.setText(text ? text->copy() : nullptr, false);
  invalidateIntrinsicContentSize();
}

const std::shared_ptr<const UIFont>& UILabel::font() const noexcept { return state_.font; }

void UILabel::setFont(const std::shared_ptr<const UIFont>& font) {
  state_.font = font;
  state_.fontIsNewer = true;
  state_.forgetText();
  invalidateIntrinsicContentSize();
}

const ColorPtr& UILabel::textColor() const noexcept { return state_.textColor; }

void UILabel::setTextColor(const ColorPtr& color) {
  state_.textColor = color;
  state_.colorIsNewer = true;
}

NSTextAlignment UILabel::textAlignment() const noexcept { return state_.textAlignment; }

void UILabel::setTextAlignment(NSTextAlignment alignment) {
  state_.textAlignment = alignment;
  state_.alignmentIsNewer = true;
  state_.paragraphStyle = nullptr;
  state_.forgetText();
}

NSLineBreakMode UILabel::lineBreakMode() const noexcept { return state_.lineBreakMode; }

void UILabel::setLineBreakMode(NSLineBreakMode mode) {
  state_.lineBreakMode = mode;
  state_.lineBreakModeIsNewer = true;
  state_.paragraphStyle = nullptr;
  state_.forgetText();
  invalidateIntrinsicContentSize();
}

std::int64_t UILabel::numberOfLines() const noexcept { return state_.numberOfLines; }

void UILabel::setNumberOfLines(std::int64_t lines) {
  if (std::exchange(state_.numberOfLines, lines) == lines) return;
  state_.forgetLayout();
  invalidateIntrinsicContentSize();
}

bool UILabel::adjustsFontSizeToFitWidth() const noexcept { return state_.adjustsFontSizeToFitWidth; }

void UILabel::setAdjustsFontSizeToFitWidth(bool adjusts) {
  if (std::exchange(state_.adjustsFontSizeToFitWidth, adjusts) == adjusts) return;
  state_.drawn.reset();
  invalidateIntrinsicContentSize();  // the size stays, the baseline moves
}

CGFloat UILabel::minimumScaleFactor() const noexcept { return state_.minimumScaleFactor; }

void UILabel::setMinimumScaleFactor(CGFloat factor) {
  if (std::exchange(state_.minimumScaleFactor, factor) == factor) return;
  state_.drawn.reset();
  invalidateIntrinsicContentSize();
}

CGFloat UILabel::preferredMaxLayoutWidth() const noexcept { return state_.preferredMaxLayoutWidth; }

void UILabel::setPreferredMaxLayoutWidth(CGFloat width) {
  if (std::exchange(state_.preferredMaxLayoutWidth, width) == width) return;
  state_.intrinsicSize.reset();
  invalidateIntrinsicContentSize();
}

// Lays a label's text out, and keeps what is worth keeping. What it makes of the attributes it makes anew: that costs
// less than to keep it for each label.
class UILabel::Typesetter {
 public:
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the room is written before it is read.
  explicit Typesetter(const UILabel& label)
      : state_(label.state_),
        text_(*state_.currentText()),
        fallback_(label.effectiveUserInterfaceLayoutDirection()),
        spans_(text_, {state_.ownFont(), state_.textColor, state_.ownParagraphStyle()}, &memory_) {
    if (!state_.shapingIsStale && state_.shaping.fallback() == fallback_) return;
    if (state_.shaping.update(text_, spans_, fallback_)) state_.drawn.reset();
    state_.shapingIsStale = false;
  }

  TextLayout layOut(CGFloat width, CGFloat height = kInfinity, CGFloat scale = 1) const {
    TextLayout::Options options{.width = width, .scale = scale};
    options.limits.emplace();
    options.limits->lines = state_.mostLines();
    options.limits->height = height;
    const auto& shaped = state_.shaping.shaped();
    if (scale == 1 || shaped->scalesLinearly) {
      options.limits->ellipsis = [this](std::uint32_t unit) { return shapeEllipsis(spans_, unit); };
      return TextLayout(shaped, spans_.sizes, spans_.paragraphs, options);
    }
    TextSpans scaled = spans_;
    for (TypefaceSpan& span : scaled.typefaces) span.pointSize *= scale;
    options.limits->ellipsis = [&scaled](std::uint32_t unit) { return shapeEllipsis(scaled, unit); };
    return TextLayout(shape(text_, scaled, fallback_), spans_.sizes, spans_.paragraphs, options);
  }

  const TextLayout& layOutToDraw(CGSize bounds) const {
    if (!state_.drawn || state_.drawn->bounds != bounds)
      state_.drawn = std::make_unique<internal::LabelState::Drawn>(internal::LabelState::Drawn{
          bounds, state_.adjustsFontSizeToFitWidth ? shrunk(bounds) : layOut(bounds.width, bounds.height)});
    return state_.drawn->layout;
  }

  void draw(Canvas& canvas, CGPoint at, const TextLayout& layout) const { layout.draw(canvas, at, spans_.paints); }

 private:
  // As large as it can be, at most as large as it is.
  TextLayout shrunk(CGSize bounds) const {
    CGFloat fits = fraction(state_.minimumScaleFactor);
    if (state_.numberOfLines == 1) {
      const CGFloat width = layOut(kInfinity).size().width;
      const CGFloat ratio = width > bounds.width ? bounds.width / width : 1;
      return layOut(bounds.width, bounds.height, std::max(fits, ratio));
    }
    const auto shows = [](const TextLayout& layout) { return !layout.isTruncated() && !layout.tearsWords(); };
    TextLayout whole = layOut(bounds.width, bounds.height);
    if (shows(whole)) return whole;
    CGFloat tooLarge = 1;
    for (int i = 0; i < kHalvings; ++i) {
      const CGFloat middle = (fits + tooLarge) / 2;
      (shows(layOut(bounds.width, bounds.height, middle)) ? fits : tooLarge) = middle;
    }
    return layOut(bounds.width, bounds.height, fits);
  }

  static constexpr std::size_t kRoom = 768;  // for the spans of a few runs

  internal::LabelState& state_;
  const NSAttributedString& text_;
  UIUserInterfaceLayoutDirection fallback_;
  std::array<std::byte, kRoom> room_;
  std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
  TextSpans spans_;
};

CGSize UILabel::intrinsicContentSize() const {
  internal::LabelState& state = state_;
  if (!state.intrinsicSize) {
    if (!state.text || state.text->length() == 0) return {0, 0};
    const bool hasWidth = state.numberOfLines != 1 && state.preferredMaxLayoutWidth > 0;
    state.intrinsicSize = Typesetter(*this).layOut(hasWidth ? state.preferredMaxLayoutWidth : kInfinity).size();
  }
  return roundedUpToPixels(*state.intrinsicSize);
}

bool UILabel::isMeasured() const noexcept { return state_.intrinsicSize.has_value(); }

CGSize UILabel::sizeThatFits(CGSize size) const {
  const internal::LabelState& state = state_;
  if (!state.text || state.text->length() == 0) return {0, 0};
  const bool hasWidth = state.numberOfLines != 1 && size.width > 0;
  return roundedUpToPixels(Typesetter(*this).layOut(hasWidth ? size.width : kInfinity).size());
}

FirstBaseline UILabel::firstBaseline() const {
  internal::LabelState& state = state_;
  if (!state.text || state.text->length() == 0) {
    const UIFont& font = *state.ownFont();
    return centred(font.ascender(), font.lineHeight());
  }
  const CGSize size = bounds().size;
  const Typesetter typesetter(*this);
  if (size.width > 0 && size.height > 0) {
    const TextLayout& layout = typesetter.layOutToDraw(size);
    return centred(layout.firstBaseline(), layout.size().height);
  }
  const TextLayout layout = typesetter.layOut(size.width > 0 ? size.width : kInfinity);
  return centred(layout.firstBaseline(), layout.size().height);
}

bool UILabel::hasHeightForWidth() const { return state_.numberOfLines != 1; }

void UILabel::drawContent(Canvas& canvas, CGPoint at) const {
  const CGSize size = bounds().size;
  if (!state_.text || state_.text->length() == 0 || !(size.width > 0 && size.height > 0)) return;
  const Typesetter typesetter(*this);
  const TextLayout& layout = typesetter.layOutToDraw(size);
  const CGFloat top = at.y + (size.height - layout.size().height) / 2;
  typesetter.draw(canvas, {at.x, top}, layout);
}

void UILabel::prefetchText() const noexcept {
  internal::prefetchShared(state_.text.get());
  state_.shaping.prefetch();
}

}  // namespace Brisel::Platform
