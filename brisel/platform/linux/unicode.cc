#include "brisel/platform/linux/unicode.h"

#include <algorithm>
#include <memory>

#include <unicode/ucasemap.h>
#include <unicode/uchar.h>

namespace Brisel::Platform::Linux {
namespace {

using Boundary = TextAnalysis::Boundary;

UBreakIterator* opened(std::unique_ptr<UBreakIterator, IcuClose<UBreakIterator, ubrk_close>>& iterator,
                       UBreakIteratorType type) {
  UErrorCode error = U_ZERO_ERROR;
  if (!iterator) iterator.reset(ubrk_open(type, "", nullptr, 0, &error));
  return iterator.get();
}

// Below the Hebrew block stand only characters that run from left to right or have no direction of their own.
bool mayRunRightToLeft(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x0590; });
}

bool hasStrongCharacter(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(), [](char16_t unit) { return u_charDirection(unit) == U_LEFT_TO_RIGHT; });
}

// Nothing joins characters that say nothing of how they join: the letters of most scripts. Below the combining marks
// only the pair CR LF is joined.
bool everyUnitIsAGrapheme(std::u16string_view text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) {
    if (unit < 0x0300) return unit != u'\r';
    return u_getIntPropertyValue(unit, UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_OTHER;
  });
}

}  // namespace

void TextAnalysis::analyse(std::u16string_view text, WritingDirection direction, bool naturalFallbackIsRightToLeft) {
  findLevels(text, direction, naturalFallbackIsRightToLeft);
  findBoundaries(text);
}

void TextAnalysis::findLevels(std::u16string_view text, WritingDirection direction, bool naturalFallbackIsRightToLeft) {
  levels.assign(text.size(), 0);
  paragraphLevels.assign(text.size(), 0);
  const bool isPlainlyLeftToRight =
      !mayRunRightToLeft(text) &&
      (direction == WritingDirection::leftToRight ||
       (direction == WritingDirection::natural && (!naturalFallbackIsRightToLeft || hasStrongCharacter(text))));
  // A text of several paragraphs may have one without a strong character, which the fallback then decides.
  const bool fallbackMatters =
      naturalFallbackIsRightToLeft && text.find_first_of(u"\n\r\u2029") != std::u16string_view::npos;
  if (isPlainlyLeftToRight && !fallbackMatters) return;

  UBiDiLevel base = naturalFallbackIsRightToLeft ? UBIDI_DEFAULT_RTL : UBIDI_DEFAULT_LTR;
  if (direction == WritingDirection::leftToRight) base = 0;
  if (direction == WritingDirection::rightToLeft) base = 1;
  if (!bidi_) bidi_.reset(ubidi_open());
  UBiDi* bidi = bidi_.get();
  UErrorCode error = U_ZERO_ERROR;
  const auto length = static_cast<std::int32_t>(text.size());
  ubidi_setPara(bidi, text.data(), length, base, nullptr, &error);
  const UBiDiLevel* found = ubidi_getLevels(bidi, &error);
  if (U_FAILURE(error)) return;
  std::copy(found, found + length, levels.begin());
  const std::int32_t paragraphs = ubidi_countParagraphs(bidi);
  for (std::int32_t i = 0; i < paragraphs; ++i) {
    std::int32_t begin = 0;
    std::int32_t end = 0;
    UBiDiLevel level = 0;
    ubidi_getParagraphByIndex(bidi, i, &begin, &end, &level, &error);
    std::fill(paragraphLevels.begin() + begin, paragraphLevels.begin() + end, level);
  }
}

void TextAnalysis::findBoundaries(std::u16string_view text) {
  const auto length = static_cast<std::int32_t>(text.size());
  UErrorCode error = U_ZERO_ERROR;
  if (everyUnitIsAGrapheme(text)) {
    boundaries.assign(text.size(), Boundary::grapheme);
  } else {
    boundaries.assign(text.size(), Boundary::none);
    UBreakIterator* characters = opened(characters_, UBRK_CHARACTER);
    ubrk_setText(characters, text.data(), length, &error);
    for (std::int32_t at = ubrk_first(characters); at < length && at != UBRK_DONE; at = ubrk_next(characters)) {
      boundaries[static_cast<std::size_t>(at)] = Boundary::grapheme;
    }
  }
  UBreakIterator* lines = opened(lines_, UBRK_LINE);
  ubrk_setText(lines, text.data(), length, &error);
  ubrk_first(lines);
  for (std::int32_t at = ubrk_next(lines); at < length && at != UBRK_DONE; at = ubrk_next(lines)) {
    const std::int32_t status = ubrk_getRuleStatus(lines);
    const bool isRequired = status >= UBRK_LINE_HARD && status < UBRK_LINE_HARD_LIMIT;
    boundaries[static_cast<std::size_t>(at)] = isRequired ? Boundary::required : Boundary::allowed;
  }
}

bool isBreakingSpace(char32_t character) {
  if (character < 0x80) return character == U' ' || (character >= 0x09 && character <= 0x0D);
  const auto c = static_cast<UChar32>(character);
  return u_isUWhiteSpace(c) != 0 && u_getIntPropertyValue(c, UCHAR_LINE_BREAK) != U_LB_GLUE;
}

bool isControl(char32_t character) {
  if (character >= 0x20 && character < 0x7F) return false;
  return (character < 0x20) || (character >= 0x7F && character < 0xA0) || character == 0x2028 || character == 0x2029;
}

bool isIgnorable(char32_t character) {
  if (character < 0x80) return isControl(character);
  return isControl(character) ||
         u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

std::string upperCased(const std::string& wellFormedText) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UCaseMap, IcuClose<UCaseMap, ucasemap_close>> map(ucasemap_open("", 0, &error));
  if (U_FAILURE(error)) return wellFormedText;
  std::string upper(wellFormedText.size() + 16, '\0');
  for (;;) {
    error = U_ZERO_ERROR;
    const std::int32_t length =
        ucasemap_utf8ToUpper(map.get(), upper.data(), static_cast<std::int32_t>(upper.size()), wellFormedText.data(),
                             static_cast<std::int32_t>(wellFormedText.size()), &error);
    const bool fits = static_cast<std::size_t>(length) <= upper.size();
    upper.resize(static_cast<std::size_t>(length));
    if (fits) return U_FAILURE(error) ? wellFormedText : upper;
  }
}

}  // namespace Brisel::Platform::Linux
