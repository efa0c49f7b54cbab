#include "brisel/platform/font.h"

#include <utility>

#include "brisel/platform/engine.h"

namespace Brisel::Platform {

// The factories need a port: they are in views/font.cc.

UIFont::UIFont(std::shared_ptr<const UIFontDescriptor> descriptor, CGFloat pointSize,
               std::shared_ptr<const Typeface> typeface) noexcept
    : descriptor_(std::move(descriptor)), pointSize_(pointSize), typeface_(std::move(typeface)) {}

CGFloat UIFont::ascender() const noexcept { return typeface_->metrics().ascender * pointSize_; }
CGFloat UIFont::descender() const noexcept { return typeface_->metrics().descender * pointSize_; }
CGFloat UIFont::leading() const noexcept { return typeface_->metrics().leading * pointSize_; }
CGFloat UIFont::lineHeight() const noexcept { return ascender() - descender() + leading(); }
CGFloat UIFont::capHeight() const noexcept { return typeface_->metrics().capHeight * pointSize_; }
CGFloat UIFont::xHeight() const noexcept { return typeface_->metrics().xHeight * pointSize_; }

bool UIFont::hasCharacter(char32_t character) const { return typeface_->hasCharacter(character); }

bool UIFont::isEqual(const NSObject& other) const {
  // The descriptor carries the font's size, so it speaks for all of it.
  const auto* font = dynamic_cast<const UIFont*>(&other);
  return font && descriptor_->isEqual(*font->descriptor_);
}

std::size_t UIFont::objectHash() const { return descriptor_->objectHash(); }

}  // namespace Brisel::Platform
