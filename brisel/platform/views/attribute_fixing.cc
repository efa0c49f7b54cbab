// Fonts for the characters that a text's own fonts lack. Here and not with the rest of attributed strings, since it
// needs a port.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/internal/attribute.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {
namespace {

std::shared_ptr<const UIFont> fontOf(const Dictionary& attributes) {
  return internal::attribute<UIFont>(attributes, NSFontAttributeName);
}

// The part that two ranges share; empty where they do not meet.
NSRange sharedBy(NSRange a, NSRange b) {
  const std::size_t begin = std::max(a.location, b.location);
  const std::size_t end = std::min(a.end(), b.end());
  return {begin, end > begin ? end - begin : 0};
}

// The same font but for the face.
std::shared_ptr<const UIFont> fontNamed(const UIFont& font, const std::string& name) {
  const auto descriptor =
      font.fontDescriptor()->fontDescriptorByAddingAttributes({{UIFontDescriptorNameAttribute, name}});
  return UIFont::fontWithDescriptor(descriptor, font.pointSize());
}

}  // namespace

bool NSAttributedString::hasFontsFor(NSRange range) const {
  return std::all_of(runs_.begin(), runs_.end(), [&](const AttributeRun& run) {
    const NSRange part = sharedBy(run.range, range);
    if (part.length == 0) return true;
    const auto font = fontOf(run.attributes);
    return !font || font->typeface()->hasCharacters(utf16().substr(part.location, part.length));
  });
}

std::shared_ptr<const NSAttributedString> NSAttributedString::withFixedAttributes() const {
  const NSRange all{0, length()};
  if (hasFontsFor(all)) return copy();
  const auto fixed = mutableCopy();
  fixed->fixAttributesInRange(all);
  return fixed->copy();
}

void NSMutableAttributedString::fixAttributesInRange(NSRange range) {
  range = checked(range);
  if (hasFontsFor(range)) return;

  std::vector<TypefaceSpan> typefaces;
  for (const AttributeRun& run : runs_) {
    const auto font = fontOf(run.attributes);
    typefaces.push_back({static_cast<std::uint32_t>(run.range.end()), font ? font->typeface() : engine().typeface({}),
                         font ? font->pointSize() : 0, true});
  }
  const std::vector<FaceSubstitution> found = engine().substitutions({utf16(), typefaces});
  auto next = found.begin();
  std::vector<AttributeRun> fixed;
  for (const AttributeRun& run : runsIn(range)) {
    const auto font = fontOf(run.attributes);
    for (std::size_t at = run.range.location; at < run.range.end();) {
      while (next != found.end() && next->end <= at) ++next;
      const bool isFound = next != found.end() && next->begin <= at;
      std::size_t end = run.range.end();
      if (next != found.end()) end = std::min<std::size_t>(end, isFound ? next->end : next->begin);
      fixed.push_back({{at, end - at}, run.attributes});
      if (isFound && font)
        fixed.back().attributes = run.attributes.with(Value(NSFontAttributeName), Value(fontNamed(*font, next->name)));
      at = end;
    }
  }
  replaceRuns(range, fixed);
}

}  // namespace Brisel::Platform
