// Fittings of every kind for property tests, and what makes two results the same.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include <rapidcheck.h>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/typography/fitting.h"

namespace Brisel::Tests {

struct FittingCase {
  std::shared_ptr<const Platform::NSAttributedString> string;
  Platform::CGSize size;
  std::int64_t numberOfLines = 1;
  double minScale = 1;
};

/// Scripts of the bundle and others, joiners and marks, white space and line endings of many kinds.
inline std::string anyText() {
  const auto parts = *rc::gen::resize(
      12, rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
              "Music ", "for everyone, ", "Mj", "ffi fl ", "Donaudampfschifffahrt", "i", "WWWW ", "الموسيقى ", "للجميع",
              "لا", "מוזיקה ", "לכולם", "Музыка ", "для", "Μουσική ", "για", "संगीत ", "क्षि", "音楽", "みんなの", "🎵 ",
              "👩‍👩‍👧", "e\u0301", "\u200B", "\u200D", "\u00AD", "\u00A0", " ", "   ", "\t", "\n", "\r\n",
              "\n\n", "\u2028", "\u2029", "3.14 ", "-", "a-b/c ")));
  std::string text;
  for (const std::string& part : parts) text += part;
  return text.empty() ? "x" : text;
}

inline std::shared_ptr<const Platform::NSParagraphStyle> anyParagraphStyle() {
  const auto style = Platform::NSMutableParagraphStyle::init();
  const auto rarely = [](auto generator) {
    return *rc::gen::weightedOneOf<double>({{3, rc::gen::just(0.0)}, {1, generator}});
  };
  style->setAlignment(static_cast<Platform::NSTextAlignment>(*rc::gen::inRange(0, 5)));
  style->setLineBreakMode(static_cast<Platform::NSLineBreakMode>(*rc::gen::inRange(0, 6)));
  style->setBaseWritingDirection(static_cast<Platform::WritingDirection>(*rc::gen::inRange(0, 3)));
  style->setLineSpacing(rarely(rc::gen::element(1.0, 3.3, 20.0, -4.0, 1e300)));
  style->setLineHeightMultiple(rarely(rc::gen::element(0.5, 1.1, 2.0, -1.0)));
  style->setMinimumLineHeight(rarely(rc::gen::element(7.0, 25.5, 80.0)));
  style->setMaximumLineHeight(rarely(rc::gen::element(1.0, 12.25, 30.0)));
  style->setParagraphSpacing(rarely(rc::gen::element(2.0, 9.7)));
  return style;
}

/// `font` is the one of the first character.
inline FittingCase anyFittingCase(const std::shared_ptr<const Platform::UIFont>& font) {
  using namespace Platform;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  Dictionary attributes{{NSFontAttributeName, font}};
  if (*rc::gen::arbitrary<bool>()) attributes = attributes.with(NSParagraphStyleAttributeName, anyParagraphStyle());
  if (*rc::gen::arbitrary<bool>()) {
    attributes = attributes.with(
        NSKernAttributeName, *rc::gen::element<Value>(0.0, -0.0, 0.5, 2, 2.7, 15.0, -0.3, -1.1, -6.0, -40.0, true, "2",
                                                      nullptr, 1e-320, 1e-8, 1e300, kInfinity, kNaN));
  }
  if (*rc::gen::inRange(0, 4) == 0)
    attributes =
        attributes.with(NSBaselineOffsetAttributeName, *rc::gen::element<Value>(3.0, -7.5, 100, -100.0, 1e300));
  FittingCase fitting;
  const auto string = NSMutableAttributedString::initWithString(anyText(), attributes);
  // What comes later in the text does not count.
  if (string->length() > 2 && *rc::gen::arbitrary<bool>()) string->setAttributes({}, {2, string->length() - 2});
  fitting.string = string;
  fitting.size.width = *rc::gen::oneOf(rc::gen::map(rc::gen::inRange(4, 2400), [](int n) { return n / 4.0; }),
                                       rc::gen::element(kInfinity, kNaN, 1.0, 1e308));
  fitting.size.height = *rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, 1200), [](int n) { return n / 4.0; }),
                                        rc::gen::element(kInfinity, kNaN, -1.0, 0.0, 10'000.0));
  fitting.numberOfLines = *rc::gen::weightedOneOf<std::int64_t>(
      {{9, rc::gen::inRange<std::int64_t>(1, 5)}, {1, rc::gen::inRange<std::int64_t>(5, 40)}});
  fitting.minScale = *rc::gen::oneOf(rc::gen::map(rc::gen::inRange(0, 100), [](int n) { return n / 100.0; }),
                                     rc::gen::element(0.999, 1.0, 2.0, -0.5, -kInfinity, kNaN));
  return fitting;
}

/// Whether two results are the same to the last bit.
inline bool areTheSame(const ScaledResult& a, const ScaledResult& b) {
  using namespace Platform;
  if (a.scaledStringFits != b.scaledStringFits || a.attributedString->string() != b.attributedString->string() ||
      a.attributedString->attributeRuns().size() != b.attributedString->attributeRuns().size())
    return false;
  const Dictionary& one = a.attributedString->attributesAtIndex(0);
  const Dictionary& other = b.attributedString->attributesAtIndex(0);
  // A number that is none equals nothing.
  const auto bits = [](const Dictionary& attributes) {
    const Value* kern = attributes.find(NSKernAttributeName);
    return kern && kern->kind() == Value::Kind::real ? std::bit_cast<std::uint64_t>(*kern->asDouble()) : 0;
  };
  const bool kernIsReal = one.find(NSKernAttributeName) && one.find(NSKernAttributeName)->kind() == Value::Kind::real;
  return kernIsReal ? bits(one) == bits(other) && one.without(NSKernAttributeName) == other.without(NSKernAttributeName)
                    : one == other;
}

}  // namespace Brisel::Tests
