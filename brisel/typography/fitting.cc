#include "brisel/typography/fitting.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/font.h"
#include "brisel/platform/internal/attribute.h"
#include "brisel/platform/internal/distance.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/text_height_bounds.h"
#include "brisel/platform/views/text_drawing.h"

namespace Brisel {

using Platform::CGFloat;
using Platform::CGSize;
using Platform::Dictionary;
using Platform::NSAttributedString;
using Platform::NSFontAttributeName;
using Platform::NSKernAttributeName;
using Platform::NSMutableParagraphStyle;
using Platform::NSParagraphStyle;
using Platform::NSParagraphStyleAttributeName;
using Platform::ShapedText;
using Platform::TextHeightBounds;
using Platform::TextLayout;
using Platform::TextLine;
using Platform::Typeface;
using Platform::UIFont;
using Platform::Value;
using Platform::internal::attribute;
using Platform::internal::distance;
using Platform::internal::finite;

namespace {

// A size from which this many points are taken one by one; no text on a screen comes near it.
constexpr std::int64_t kMostSteps = 65'536;

// Beyond this size, taking a point away need not change it.
constexpr CGFloat kGreatestPointSize = 9'007'199'254'740'992;

// Paragraphs of the probe that are laid out. More would be like those in the middle.
constexpr std::int64_t kProbeParagraphs = 8;

// What the loop changes. Step 0 is the text as it came.
struct Step {
  std::int64_t number = 0;
  CGFloat pointSize = 0;
  CGFloat scale = 1;
  CGFloat kern = 0;
};

CGFloat onPixelGrid(CGFloat height) {
  const CGFloat scale = Platform::UIScreen::mainScreen().scale();
  return std::ceil(height * scale) / scale;
}

std::string probeText(std::int64_t numberOfLines) {
  std::string text = "Mj";
  for (std::int64_t i = 1; i < std::min(numberOfLines, kProbeParagraphs); ++i) text += "\nMj";
  return text;
}

// The step behind which the loop ends, whatever it finds: the first that is no larger than the least scale, or the
// last that has a size.
std::int64_t lastStep(CGFloat pointSize, double minScale) {
  if (!(minScale < 1.0) || !(pointSize >= 1) || pointSize > kGreatestPointSize) return 0;
  std::int64_t least = 1;
  std::int64_t most = std::min(kMostSteps, static_cast<std::int64_t>(pointSize));
  while (least < most) {
    const std::int64_t middle = least + (most - least) / 2;
    if ((pointSize - static_cast<CGFloat>(middle)) / pointSize > minScale) {
      least = middle + 1;
    } else {
      most = middle;
    }
  }
  return least;
}

// One of the two texts that are measured. It is shaped no more often than steps ask for.
class MeasuredText {
 public:
  MeasuredText(std::string_view text, const Dictionary& attributes, CGFloat width)
      : string_(NSAttributedString::initWithString(text, attributes)), spans_(*string_), width_(width) {}

  void set(const std::shared_ptr<const Typeface>& typeface, const Step& step) {
    Platform::TextSizeSpan& size = spans_.sizes.front();
    size.pointSize = step.pointSize;
    size.kern = step.kern;
    size.metrics = typeface->metrics();
    Platform::TypefaceSpan& span = spans_.typefaces.front();
    const bool usesLigatures = step.kern == 0;
    const bool isShaped = shaped_ && span.typeface == typeface && span.usesLigatures == usesLigatures &&
                          (shaped_->scalesLinearly || span.pointSize == step.pointSize);
    if (isShaped) return;
    span.typeface = typeface;
    span.pointSize = step.pointSize;
    span.usesLigatures = usesLigatures;
    shaped_ = Platform::shape(*string_, spans_);
    bounds_.reset();
  }

  TextLayout layout() const { return TextLayout(shaped_, spans_.sizes, spans_.paragraphs, {.width = width_}); }

  // Null where other sizes may be shaped in another way.
  const TextHeightBounds* bounds() {
    if (!bounds_ && shaped_->scalesLinearly) {
      const auto& style = spans_.paragraphs.front().style;
      bounds_.emplace(*shaped_, spans_.sizes.front().metrics, spans_.sizes.front().baselineOffset,
                      style ? *style : *NSParagraphStyle::defaultParagraphStyle(), width_);
    }
    return bounds_ ? &*bounds_ : nullptr;
  }

 private:
  std::shared_ptr<const NSAttributedString> string_;
  Platform::TextSpans spans_;
  CGFloat width_;
  std::shared_ptr<const ShapedText> shaped_;
  std::optional<TextHeightBounds> bounds_;
};

// One run of `scaledToFit`. It is the loop as it is published, but that steps at which the text is certainly too high
// are not measured.
class Fitting {
 public:
  Fitting(const NSAttributedString& string, std::shared_ptr<const UIFont> font, CGSize size, std::int64_t numberOfLines,
          double minScale)
      : string_(string),
        font_(std::move(font)),
        size_(size),
        numberOfLines_(numberOfLines),
        lastStep_(lastStep(font_->pointSize(), minScale)),
        attributes_(string.attributesAtIndex(0)),
        initialStyle_(attribute<NSParagraphStyle>(attributes_, NSParagraphStyleAttributeName)),
        style_(initialStyle_ ? initialStyle_->mutableCopy() : nullptr),
        text_(string.string(), measuredAttributes(), size.width),
        probe_(probeText(numberOfLines), measuredAttributes(), size.width) {
    // As in layout, and as in equality, any number is one: a kern of 2 is one of 2.0.
    if (const Value* kern = attributes_.find(NSKernAttributeName)) kern_ = kern->asDouble();
  }

  ScaledResult run() {
    Step step{.pointSize = font_->pointSize(), .kern = kern_.value_or(0)};
    std::int64_t stride = 1;
    for (;;) {
      // Steps are looked at together as long as the answer is the same for all.
      if (const std::int64_t count = std::min(stride, lastStep_ - step.number); count > 0) {
        const Step last = advanced(step, count - 1);
        if (isCertainlyTooHigh(step, last)) {
          step = advanced(last, 1);
          stride *= 2;
          continue;
        }
        if (count > 1) {
          stride = count / 2;
          continue;
        }
      }
      set(step);
      const CGFloat height = onPixelGrid(text_.layout().size().height);
      const CGFloat limit = lineHeightLimit(height);
      const bool isTooHigh = height > std::min(limit, size_.height);
      // Deliberately not compared with the height of the box.
      if (!isTooHigh || step.number == lastStep_) return {result(step), height <= limit};
      step = advanced(step, 1);
      stride = 1;
    }
  }

 private:
  // The first character's, with a style that wraps by words.
  Dictionary measuredAttributes() const {
    if (!style_) return attributes_;
    style_->setLineBreakMode(Platform::NSLineBreakMode::byWordWrapping);
    return attributes_.with(NSParagraphStyleAttributeName, style_);
  }

  Step advanced(Step step, std::int64_t steps) const {
    for (std::int64_t i = 0; i < steps; ++i) {
      step.pointSize -= 1;
      step.scale = step.pointSize / font_->pointSize();
      // Deliberately the scale of every step in turn: the kern shrinks faster than the text.
      step.kern *= step.scale;
    }
    step.number += steps;
    return step;
  }

  CGFloat lineSpacing(const Step& step) const { return initialStyle_ ? initialStyle_->lineSpacing() * step.scale : 0; }

  // The typeface is asked for anew, as any font made at another size asks for it.
  const std::shared_ptr<const Typeface>& typeface(const Step& step) {
    if (step.number == 0) return font_->typeface();
    if (!smallerFont_) smallerFont_ = font_->fontWithSize(step.pointSize);
    return smallerFont_->typeface();
  }

  void set(const Step& step) {
    if (style_) style_->setLineSpacing(lineSpacing(step));
    text_.set(typeface(step), step);
    probe_.set(typeface(step), step);
  }

  bool isCertainlyTooHigh(const Step& first, const Step& last) {
    if ((first.kern == 0) != (last.kern == 0)) return false;  // These are shaped differently.
    set(first);
    const TextHeightBounds* text = text_.bounds();
    const TextHeightBounds* probe = probe_.bounds();
    if (!text || !probe) return false;
    const auto [leastKern, greatestKern] = std::minmax({finite(first.kern), finite(last.kern)});
    const Platform::TextSizeRange range{.leastPointSize = last.pointSize,
                                        .greatestPointSize = first.pointSize,
                                        .leastKern = leastKern,
                                        .greatestKern = greatestKern,
                                        .leastLineSpacing = distance(lineSpacing(last)),
                                        .greatestLineSpacing = distance(lineSpacing(first))};
    const CGFloat limit = onPixelGrid(probe->atMost(range, static_cast<CGFloat>(numberOfLines_)));
    const CGFloat allowed = std::min(limit, size_.height);
    return onPixelGrid(text->atLeast(range, allowed)) > allowed;
  }

  // The height of the probe; or, where that has very many lines, as much of it as is no less than `enough`. The lines
  // that are not laid out are added as the layout adds them, so that no bit differs.
  CGFloat lineHeightLimit(CGFloat enough) const {
    const TextLayout layout = probe_.layout();
    if (numberOfLines_ <= kProbeParagraphs) return onPixelGrid(layout.size().height);
    const std::span<const TextLine> lines = layout.lines();
    const auto afterParagraphs = [&](std::int64_t count) {
      std::size_t line = 0;
      for (; count > 0 && line < lines.size(); ++line) count -= lines[line].endsParagraph ? 1 : 0;
      return line;
    };
    const std::size_t middle = afterParagraphs(kProbeParagraphs / 2);
    const std::size_t afterMiddle = afterParagraphs(kProbeParagraphs / 2 + 1);
    CGFloat bottom = 0;
    for (std::size_t i = 0; i < afterMiddle; ++i) bottom = bottomOf(lines, i, bottom);
    for (std::int64_t i = kProbeParagraphs; i < numberOfLines_; ++i) {
      const CGFloat before = bottom;
      for (std::size_t j = middle; j < afterMiddle; ++j) bottom = bottomOf(lines, j, bottom);
      if (bottom == before) break;  // and will never change
      if (bottom > before && onPixelGrid(bottom) >= enough) break;
    }
    for (std::size_t i = afterMiddle; i < lines.size(); ++i) bottom = bottomOf(lines, i, bottom);
    return onPixelGrid(bottom);
  }

  CGFloat bottomOf(std::span<const TextLine> lines, std::size_t line, CGFloat bottom) const {
    if (line > 0 && style_) {
      bottom += distance(style_->lineSpacing());
      if (lines[line - 1].endsParagraph) bottom += distance(style_->paragraphSpacing());
    }
    const CGFloat baseline = bottom + lines[line].ascent;
    return baseline + lines[line].descent + lines[line].leading;
  }

  // The text as the last measurement had it, but with its own line-break mode.
  std::shared_ptr<const NSAttributedString> result(const Step& step) const {
    Dictionary attributes = attributes_;
    if (initialStyle_) {
      const auto style = initialStyle_->mutableCopy();
      style->setLineSpacing(lineSpacing(step));
      attributes = attributes.with(NSParagraphStyleAttributeName, style);
    }
    if (step.number > 0) {
      const bool hasFont = smallerFont_ && smallerFont_->pointSize() == step.pointSize;
      attributes = attributes.with(NSFontAttributeName, hasFont ? smallerFont_ : font_->fontWithSize(step.pointSize));
      if (kern_) attributes = attributes.with(NSKernAttributeName, step.kern);
    }
    return NSAttributedString::initWithString(string_.string(), attributes);
  }

  const NSAttributedString& string_;
  const std::shared_ptr<const UIFont> font_;
  const CGSize size_;
  const std::int64_t numberOfLines_;
  const std::int64_t lastStep_;
  const Dictionary attributes_;
  const std::shared_ptr<const NSParagraphStyle> initialStyle_;
  const std::shared_ptr<NSMutableParagraphStyle> style_;  // as it is measured
  MeasuredText text_;
  MeasuredText probe_;
  std::optional<CGFloat> kern_;
  std::shared_ptr<const UIFont> smallerFont_;
};

}  // namespace

ScaledResult scaledToFit(const std::shared_ptr<const NSAttributedString>& string, CGSize size,
                         std::int64_t numberOfLines, double minScale) {
  if (numberOfLines < 1) return {string, true};
  if (size.width < 1.0) return {string, false};
  if (!string || string->length() == 0) Platform::fatalError("An empty text cannot be scaled to fit");
  auto font = attribute<UIFont>(string->attributesAtIndex(0), NSFontAttributeName);
  if (!font) return {string, false};
  return Fitting(*string, std::move(font), size, numberOfLines, minScale).run();
}

}  // namespace Brisel
