#include "brisel/platform/views/label.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory_resource>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "brisel/platform/internal/attribute.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/platform/views/view_text.h"

namespace Brisel::Platform {
namespace {

using internal::roundedUpToPixels;

constexpr CGFloat kDefaultPointSize = 17;
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

// How often the range of scales is halved in search of the one at which several lines fit.
constexpr int kHalvings = 12;

// Glyphs, and what they were shaped from: they are kept as long as only sizes and colours change.
class Shaping {
 public:
  const std::shared_ptr<const ShapedText>& shaped() const noexcept { return shaped_; }
  UIUserInterfaceLayoutDirection fallback() const noexcept { return fallback_; }

  /// Whether other glyphs were needed.
  bool update(const NSAttributedString& text, const TextSpans& spans, UIUserInterfaceLayoutDirection fallback) {
    const std::uint64_t generation = engine().generation();
    const bool isAlike = shaped_ && generation_ == generation && fallback_ == fallback &&
                         direction_ == spans.direction && areAlike(spans.typefaces) && areAlike(text.sharedUtf16());
    if (isAlike) return false;
    shaped_ = shape(text, spans, fallback);
    characters_ = text.sharedUtf16();
    typefaces_.assign(spans.typefaces.begin(), spans.typefaces.end());
    direction_ = spans.direction;
    fallback_ = fallback;
    generation_ = generation;
    return true;
  }

 private:
  bool areAlike(std::span<const TypefaceSpan> typefaces) const {
    const auto isAlike = [anySize = shaped_->scalesLinearly](const TypefaceSpan& a, const TypefaceSpan& b) {
      return a.end == b.end && a.typeface == b.typeface && a.usesLigatures == b.usesLigatures &&
             (anySize || a.pointSize == b.pointSize);
    };
    return std::equal(typefaces_.begin(), typefaces_.end(), typefaces.begin(), typefaces.end(), isAlike);
  }

  bool areAlike(const std::shared_ptr<const std::u16string>& characters) const {
    return characters_ == characters || *characters_ == *characters;
  }

  std::shared_ptr<const ShapedText> shaped_;
  // Without the attributes: they would keep fonts alive, and the text that is replaced.
  std::shared_ptr<const std::u16string> characters_;
  std::vector<TypefaceSpan> typefaces_;
  WritingDirection direction_{};
  UIUserInterfaceLayoutDirection fallback_{};
  std::uint64_t generation_ = 0;  // the engine's
};

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

// What a change of the text size touches stands together, since thousands of labels may follow it at once.
struct UILabel::State {
  // What was set.
  std::shared_ptr<const NSAttributedString> text;
  std::shared_ptr<const UIFont> font;
  bool isPlain = true;  // the text has no attributes but the label's
  // Which of its attributes the label has changed since an attributed text was set. They are put into it when it is
  // next looked at, since it is mostly replaced before.
  bool fontIsNewer = false;
  bool colorIsNewer = false;
  bool alignmentIsNewer = false;
  bool lineBreakModeIsNewer = false;
  bool adjustsFontSizeToFitWidth = false;
  NSTextAlignment textAlignment = NSTextAlignment::natural;
  NSLineBreakMode lineBreakMode = NSLineBreakMode::byTruncatingTail;
  std::int64_t numberOfLines = 1;
  CGFloat minimumScaleFactor = 0;
  CGFloat preferredMaxLayoutWidth = 0;
  ColorPtr textColor;

  // What was made of it.
  struct Drawn {
    CGSize bounds;
    TextLayout layout;
  };
  std::unique_ptr<Drawn> drawn;
  std::optional<CGSize> intrinsicSize;  // not rounded
  Shaping shaping;
  bool shapingIsStale = true;  // it is of an earlier text, which may lend its glyphs to this one
  std::shared_ptr<const NSParagraphStyle> paragraphStyle;
  std::shared_ptr<const UIFont> substituteFont;  // the one of this generation of the engine
  std::uint64_t substituteGeneration = 0;

  void forgetLayout() {
    intrinsicSize.reset();
    drawn.reset();
  }

  void forgetText() {
    forgetLayout();
    shapingIsStale = true;
  }

  bool hasNewerAttributes() const { return fontIsNewer || colorIsNewer || alignmentIsNewer || lineBreakModeIsNewer; }

  void setText(std::shared_ptr<const NSAttributedString> given, bool plain) {
    text = std::move(given);
    isPlain = plain;
    fontIsNewer = colorIsNewer = alignmentIsNewer = lineBreakModeIsNewer = false;
    forgetText();
  }

  const std::shared_ptr<const UIFont>& ownFont() {
    if (font) return font;
    const std::uint64_t generation = engine().generation();
    if (!substituteFont || substituteGeneration != generation) {
      substituteFont = internal::substituteFont(kDefaultPointSize);
      substituteGeneration = generation;
    }
    return substituteFont;
  }

  const std::shared_ptr<const NSParagraphStyle>& ownParagraphStyle() {
    if (!paragraphStyle) {
      const auto style = NSMutableParagraphStyle::init();
      style->setAlignment(textAlignment);
      style->setLineBreakMode(lineBreakMode);
      paragraphStyle = style;
    }
    return paragraphStyle;
  }

  // The text with the attributes that were set for all of it since.
  const std::shared_ptr<const NSAttributedString>& currentText() {
    if (!text || isPlain || !hasNewerAttributes()) return text;
    const auto changed = text->mutableCopy();
    const NSRange all{0, changed->length()};
    if (fontIsNewer) changed->addAttribute(NSFontAttributeName, Value(ownFont()), all);
    if (colorIsNewer && textColor) changed->addAttribute(NSForegroundColorAttributeName, Value(textColor), all);
    if (colorIsNewer && !textColor) changed->removeAttribute(NSForegroundColorAttributeName, all);
    if (alignmentIsNewer || lineBreakModeIsNewer) {
      changed->changeAttributesInRange(all, [&](NSRange, const Dictionary& attributes) {
        const auto old = internal::attribute<NSParagraphStyle>(attributes, NSParagraphStyleAttributeName);
        const auto style = (old ? *old : *ownParagraphStyle()).mutableCopy();
        if (alignmentIsNewer) style->setAlignment(textAlignment);
        if (lineBreakModeIsNewer) style->setLineBreakMode(lineBreakMode);
        return attributes.with(Value(NSParagraphStyleAttributeName), Value(style));
      });
    }
    setText(changed->copy(), false);
    return text;
  }

  std::size_t mostLines() const {
    return numberOfLines > 0 ? static_cast<std::size_t>(numberOfLines) : std::numeric_limits<std::size_t>::max();
  }
};

std::shared_ptr<UILabel> UILabel::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<UILabel>(new UILabel), frame);
}

UILabel::UILabel() : state_(std::make_unique<State>()) {}

UILabel::~UILabel() = default;

std::optional<std::string> UILabel::text() const {
  if (!state_->text) return std::nullopt;
  return state_->text->string();
}

const std::shared_ptr<const NSAttributedString>& UILabel::characters() const noexcept { return state_->text; }

void UILabel::setText(const std::optional<std::string>& text) {
  state_->setText(text ? NSAttributedString::initWithString(*text) : nullptr, true);
  invalidateIntrinsicContentSize();
}

std::shared_ptr<const NSAttributedString> UILabel::attributedText() const {
  State& state = *state_;
  if (!state.text || !state.isPlain) return state.currentText();
  Dictionary attributes{{NSFontAttributeName, state.ownFont()},
                        {NSParagraphStyleAttributeName, state.ownParagraphStyle()}};
  if (state.textColor) attributes = attributes.with(NSForegroundColorAttributeName, state.textColor);
  return NSAttributedString::initWithString(state.text->string(), attributes);
}

void UILabel::setAttributedText(const std::shared_ptr<const NSAttributedString>& text) {
  state_->setText(text ? text->copy() : nullptr, false);
  invalidateIntrinsicContentSize();
}

const std::shared_ptr<const UIFont>& UILabel::font() const noexcept { return state_->font; }

void UILabel::setFont(const std::shared_ptr<const UIFont>& font) {
  state_->font = font;
  state_->fontIsNewer = true;
  state_->forgetText();
  invalidateIntrinsicContentSize();
}

const ColorPtr& UILabel::textColor() const noexcept { return state_->textColor; }

void UILabel::setTextColor(const ColorPtr& color) {
  state_->textColor = color;
  state_->colorIsNewer = true;
}

NSTextAlignment UILabel::textAlignment() const noexcept { return state_->textAlignment; }

void UILabel::setTextAlignment(NSTextAlignment alignment) {
  state_->textAlignment = alignment;
  state_->alignmentIsNewer = true;
  state_->paragraphStyle = nullptr;
  state_->forgetText();
}

NSLineBreakMode UILabel::lineBreakMode() const noexcept { return state_->lineBreakMode; }

void UILabel::setLineBreakMode(NSLineBreakMode mode) {
  state_->lineBreakMode = mode;
  state_->lineBreakModeIsNewer = true;
  state_->paragraphStyle = nullptr;
  state_->forgetText();
  invalidateIntrinsicContentSize();
}

std::int64_t UILabel::numberOfLines() const noexcept { return state_->numberOfLines; }

void UILabel::setNumberOfLines(std::int64_t lines) {
  if (std::exchange(state_->numberOfLines, lines) == lines) return;
  state_->forgetLayout();
  invalidateIntrinsicContentSize();
}

bool UILabel::adjustsFontSizeToFitWidth() const noexcept { return state_->adjustsFontSizeToFitWidth; }

void UILabel::setAdjustsFontSizeToFitWidth(bool adjusts) {
  if (std::exchange(state_->adjustsFontSizeToFitWidth, adjusts) == adjusts) return;
  state_->drawn.reset();
  invalidateIntrinsicContentSize();  // the size stays, the baseline moves
}

CGFloat UILabel::minimumScaleFactor() const noexcept { return state_->minimumScaleFactor; }

void UILabel::setMinimumScaleFactor(CGFloat factor) {
  if (std::exchange(state_->minimumScaleFactor, factor) == factor) return;
  state_->drawn.reset();
  invalidateIntrinsicContentSize();
}

CGFloat UILabel::preferredMaxLayoutWidth() const noexcept { return state_->preferredMaxLayoutWidth; }

void UILabel::setPreferredMaxLayoutWidth(CGFloat width) {
  if (std::exchange(state_->preferredMaxLayoutWidth, width) == width) return;
  state_->intrinsicSize.reset();
  invalidateIntrinsicContentSize();
}

// Lays a label's text out, and keeps what is worth keeping. What it makes of the attributes it makes anew: that costs
// less than to keep it for each label.
class UILabel::Typesetter {
 public:
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the room is written before it is read.
  explicit Typesetter(const UILabel& label)
      : state_(*label.state_),
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
      state_.drawn = std::make_unique<State::Drawn>(State::Drawn{
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

  State& state_;
  const NSAttributedString& text_;
  UIUserInterfaceLayoutDirection fallback_;
  std::array<std::byte, kRoom> room_;
  std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
  TextSpans spans_;
};

CGSize UILabel::intrinsicContentSize() const {
  State& state = *state_;
  if (!state.text || state.text->length() == 0) return {0, 0};
  if (!state.intrinsicSize) {
    const bool hasWidth = state.numberOfLines != 1 && state.preferredMaxLayoutWidth > 0;
    state.intrinsicSize = Typesetter(*this).layOut(hasWidth ? state.preferredMaxLayoutWidth : kInfinity).size();
  }
  return roundedUpToPixels(*state.intrinsicSize);
}

CGSize UILabel::sizeThatFits(CGSize size) const {
  const State& state = *state_;
  if (!state.text || state.text->length() == 0) return {0, 0};
  const bool hasWidth = state.numberOfLines != 1 && size.width > 0;
  return roundedUpToPixels(Typesetter(*this).layOut(hasWidth ? size.width : kInfinity).size());
}

FirstBaseline UILabel::firstBaseline() const {
  State& state = *state_;
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

bool UILabel::hasHeightForWidth() const { return state_->numberOfLines != 1; }

void UILabel::drawContent(Canvas& canvas, CGPoint at) const {
  const CGSize size = bounds().size;
  if (!state_->text || state_->text->length() == 0 || !(size.width > 0 && size.height > 0)) return;
  const Typesetter typesetter(*this);
  const TextLayout& layout = typesetter.layOutToDraw(size);
  const CGFloat top = at.y + (size.height - layout.size().height) / 2;
  typesetter.draw(canvas, {at.x, top}, layout);
}

}  // namespace Brisel::Platform
