// Shrinking to fit as it is published, step by step, by nothing but bounding rectangles: what the quick way must equal.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/typography/fitting.h"

namespace Brisel::Tests {

class WrittenFitting {
 public:
  /// The number of times that text and probe were measured.
  int measurements() const { return measurements_; }

  ScaledResult scaledToFit(const std::shared_ptr<const Platform::NSAttributedString>& string, Platform::CGSize size,
                           std::int64_t numberOfLines, double minScale) {
    using namespace Platform;
    if (numberOfLines < 1) return {string, true};
    if (size.width < 1.0) return {string, false};
    Dictionary attributes = string->attributesAtIndex(0);
    const auto initialFont = object<UIFont>(attributes, NSFontAttributeName);
    if (!initialFont) return {string, false};
    const auto initialStyle = object<NSParagraphStyle>(attributes, NSParagraphStyleAttributeName);
    std::shared_ptr<NSMutableParagraphStyle> style;
    if (initialStyle) {
      style = initialStyle->mutableCopy();
      attributes = attributes.with(NSParagraphStyleAttributeName, style);
      style->setLineBreakMode(NSLineBreakMode::byWordWrapping);
    }

    measure(string->string(), attributes, size.width, numberOfLines);
    double allowed = size.height < limit_ ? size.height : limit_;
    if (height_ > allowed && minScale < 1.0) {
      double scale = 1;
      do {
        const auto font = object<UIFont>(attributes, NSFontAttributeName);
        const double pointSize = font->pointSize() - 1;
        if (pointSize < 0) break;
        const auto smaller = font->fontWithSize(pointSize);
        scale = smaller->pointSize() / initialFont->pointSize();
        attributes = attributes.with(NSFontAttributeName, smaller);
        if (style) style->setLineSpacing(initialStyle->lineSpacing() * scale);
        const Value* kern = attributes.find(NSKernAttributeName);
        if (kern && kern->asDouble()) attributes = attributes.with(NSKernAttributeName, scale * *kern->asDouble());
        measure(string->string(), attributes, size.width, numberOfLines);
        allowed = size.height < limit_ ? size.height : limit_;
      } while (height_ > allowed && scale > minScale);
    }
    if (style) style->setLineBreakMode(initialStyle->lineBreakMode());
    return {candidate_, height_ <= limit_};
  }

 private:
  template <class T>
  static std::shared_ptr<const T> object(const Platform::Dictionary& attributes, std::string_view name) {
    const Platform::Value* value = attributes.find(name);
    return value ? value->as<T>() : nullptr;
  }

  static double heightOf(const Platform::NSAttributedString& text, double width) {
    const double height = boundingRectWithSize(text, {width, std::numeric_limits<double>::max()}, 3).size.height;
    const double scale = Platform::UIScreen::mainScreen().scale();
    return std::ceil(height * scale) / scale;
  }

  void measure(std::string_view text, const Platform::Dictionary& attributes, double width, std::int64_t lines) {
    std::string probe = "Mj";
    for (std::int64_t i = 1; i < lines; ++i) probe += "\nMj";
    candidate_ = Platform::NSAttributedString::initWithString(text, attributes);
    height_ = heightOf(*candidate_, width);
    limit_ = heightOf(*Platform::NSAttributedString::initWithString(probe, attributes), width);
    ++measurements_;
  }

  std::shared_ptr<const Platform::NSAttributedString> candidate_;
  double height_ = 0;
  double limit_ = 0;
  int measurements_ = 0;
};

}  // namespace Brisel::Tests
