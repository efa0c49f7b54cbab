#include "brisel/platform/attributed_string.h"

#include <algorithm>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/hash.h"
#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {
namespace {

// Adds a run behind others, which it joins where it bears the same attributes.
void appendRun(std::vector<AttributeRun>& runs, std::size_t length, const Dictionary& attributes) {
  if (length == 0) return;
  if (!runs.empty() && runs.back().attributes == attributes)
    runs.back().range.length += length;
  else
    runs.push_back({{runs.empty() ? 0 : runs.back().range.end(), length}, attributes});
}

// Adds what of `runs` lies within `range`.
void appendRuns(std::vector<AttributeRun>& out, std::span<const AttributeRun> runs, NSRange range) {
  for (const AttributeRun& run : runs) {
    const std::size_t begin = std::max(run.range.location, range.location);
    const std::size_t end = std::min(run.range.end(), range.end());
    if (begin < end) appendRun(out, end - begin, run.attributes);
  }
}

std::vector<AttributeRun> oneRun(std::size_t length, const Dictionary& attributes) {
  std::vector<AttributeRun> runs;
  appendRun(runs, length, attributes);
  return runs;
}

bool cutsPair(std::u16string_view text, std::size_t position) {
  return position > 0 && position < text.size() && (text[position] & 0xFC00) == 0xDC00;
}

}  // namespace

NSAttributedString::NSAttributedString(Factory, std::shared_ptr<const Characters> characters,
                                       std::vector<AttributeRun> runs)
    : characters_(std::move(characters)), runs_(std::move(runs)) {}

std::shared_ptr<const NSAttributedString::Characters> NSAttributedString::charactersOf(std::string_view text) {
  return std::make_shared<const Characters>(Characters{internal::wellFormed(text), internal::toUtf16(text)});
}

std::shared_ptr<const NSAttributedString::Characters> NSAttributedString::charactersOf(std::u16string text) {
  std::string utf8 = internal::toUtf8(text);
  return std::make_shared<const Characters>(Characters{std::move(utf8), std::move(text)});
}

std::shared_ptr<const NSAttributedString> NSAttributedString::initWithString(std::string_view text,
                                                                             const Dictionary& attributes) {
  auto characters = charactersOf(text);
  std::vector<AttributeRun> runs = oneRun(characters->utf16.size(), attributes);
  return std::make_shared<const NSAttributedString>(Factory(), std::move(characters), std::move(runs));
}

const Dictionary& NSAttributedString::attributesAtIndex(std::size_t index, NSRange* effectiveRange) const {
  if (index >= length()) fatalError("An index lies beyond an attributed string");
  const auto next = std::upper_bound(runs_.begin(), runs_.end(), index,
                                     [](std::size_t i, const AttributeRun& run) { return i < run.range.location; });
  const AttributeRun& run = *std::prev(next);
  if (effectiveRange) *effectiveRange = run.range;
  return run.attributes;
}

const Value* NSAttributedString::attribute(std::string_view name, std::size_t index) const {
  return attributesAtIndex(index).find(name);
}

std::shared_ptr<const NSAttributedString> NSAttributedString::attributedSubstringFromRange(NSRange range) const {
  range = checked(range);
  std::vector<AttributeRun> runs;
  appendRuns(runs, runs_, range);
  return std::make_shared<const NSAttributedString>(
      Factory(), charactersOf(std::u16string(utf16().substr(range.location, range.length))), std::move(runs));
}

std::shared_ptr<NSMutableAttributedString> NSAttributedString::mutableCopy() const {
  return std::make_shared<NSMutableAttributedString>(Factory(), characters_, runs_);
}

std::shared_ptr<const NSAttributedString> NSAttributedString::copy() const {
  return std::static_pointer_cast<const NSAttributedString>(shared_from_this());
}

std::shared_ptr<const NSAttributedString> NSMutableAttributedString::copy() const {
  return std::make_shared<const NSAttributedString>(Factory(), characters_, runs_);
}

std::shared_ptr<const NSAttributedString> NSAttributedString::withAttributes(const Dictionary& attributes) const {
  return std::make_shared<const NSAttributedString>(Factory(), characters_, oneRun(length(), attributes));
}

bool NSAttributedString::isEqual(const NSObject& other) const {
  const auto* string = dynamic_cast<const NSAttributedString*>(&other);
  return string && this->string() == string->string() &&
         std::equal(runs_.begin(), runs_.end(), string->runs_.begin(), string->runs_.end(),
                    [](const AttributeRun& a, const AttributeRun& b) {
                      return a.range == b.range && a.attributes == b.attributes;
                    });
}

std::size_t NSAttributedString::objectHash() const {
  internal::Hasher hasher;
  hasher(string(), runs_.size());
  return hasher.finish();
}

NSRange NSAttributedString::checked(NSRange range) const {
  if (range.location > length() || range.length > length() - range.location)
    fatalError("A range lies beyond an attributed string");
  std::size_t end = range.end();
  if (cutsPair(utf16(), range.location)) --range.location;
  if (range.length == 0)
    end = range.location;
  else if (cutsPair(utf16(), end))
    ++end;
  return {range.location, end - range.location};
}

std::vector<AttributeRun> NSAttributedString::runsIn(NSRange range) const {
  range = checked(range);
  std::vector<AttributeRun> runs;
  appendRuns(runs, runs_, range);
  for (AttributeRun& run : runs) run.range.location += range.location;
  return runs;
}

std::shared_ptr<NSMutableAttributedString> NSMutableAttributedString::initWithString(std::string_view text,
                                                                                     const Dictionary& attributes) {
  auto characters = charactersOf(text);
  std::vector<AttributeRun> runs = oneRun(characters->utf16.size(), attributes);
  return std::make_shared<NSMutableAttributedString>(Factory(), std::move(characters), std::move(runs));
}

void NSMutableAttributedString::replaceCharactersInRange(NSRange range, std::string_view text) {
  range = checked(range);
  const std::size_t model = range.length > 0 || range.location == 0 ? range.location : range.location - 1;
  const Dictionary attributes = length() > 0 ? attributesAtIndex(model) : Dictionary();
  const std::u16string units = internal::toUtf16(text);
  replace(range, units, oneRun(units.size(), attributes));
}

void NSMutableAttributedString::replaceCharactersInRange(NSRange range, const NSAttributedString& text) {
  const std::shared_ptr<const NSAttributedString> source = text.copy();  // It may be this string itself.
  replace(checked(range), source->utf16(), source->attributeRuns());
}

void NSMutableAttributedString::appendAttributedString(const NSAttributedString& text) {
  replaceCharactersInRange({length(), 0}, text);
}

void NSMutableAttributedString::replace(NSRange range, std::u16string_view text, std::span<const AttributeRun> runs) {
  std::u16string units(utf16());
  units.replace(range.location, range.length, text);
  auto characters = charactersOf(std::move(units));
  replaceRuns(range, runs);
  characters_ = std::move(characters);
}

void NSMutableAttributedString::replaceRuns(NSRange range, std::span<const AttributeRun> runs) {
  std::vector<AttributeRun> result;
  appendRuns(result, runs_, {0, range.location});
  for (const AttributeRun& run : runs) appendRun(result, run.range.length, run.attributes);
  appendRuns(result, runs_, {range.end(), length() - range.end()});
  runs_.swap(result);
}

void NSMutableAttributedString::changeAttributesInRange(
    NSRange range, const std::function<Dictionary(NSRange part, const Dictionary& attributes)>& change) {
  std::vector<AttributeRun> runs = runsIn(range);
  for (AttributeRun& run : runs) run.attributes = change(run.range, run.attributes);
  replaceRuns(checked(range), runs);
}

void NSMutableAttributedString::addAttribute(std::string_view name, Value value, NSRange range) {
  addAttributes(Dictionary{{name, std::move(value)}}, range);
}

void NSMutableAttributedString::addAttributes(const Dictionary& attributes, NSRange range) {
  changeAttributesInRange(range, [&](NSRange, const Dictionary& old) { return old.mergedWith(attributes); });
}

void NSMutableAttributedString::setAttributes(const Dictionary& attributes, NSRange range) {
  changeAttributesInRange(range, [&](NSRange, const Dictionary&) { return attributes; });
}

void NSMutableAttributedString::removeAttribute(std::string_view name, NSRange range) {
  changeAttributesInRange(range, [&](NSRange, const Dictionary& old) { return old.without(name); });
}

}  // namespace Brisel::Platform
