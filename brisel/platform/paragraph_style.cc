#include "brisel/platform/paragraph_style.h"

#include "brisel/platform/internal/hash.h"

namespace Brisel::Platform {

std::shared_ptr<const NSParagraphStyle> NSParagraphStyle::defaultParagraphStyle() {
  // Never destroyed: text may be laid out as late as in an exit handler.
  static const auto& style = *new std::shared_ptr<const NSParagraphStyle>(new NSParagraphStyle(Settings()));
  return style;
}

std::shared_ptr<NSMutableParagraphStyle> NSParagraphStyle::mutableCopy() const {
  return std::shared_ptr<NSMutableParagraphStyle>(new NSMutableParagraphStyle(settings_));
}

std::shared_ptr<const NSParagraphStyle> NSParagraphStyle::copy() const {
  return std::shared_ptr<const NSParagraphStyle>(new NSParagraphStyle(settings_));
}

bool NSParagraphStyle::isEqual(const NSObject& other) const {
  const auto* style = dynamic_cast<const NSParagraphStyle*>(&other);
  return style && settings_ == style->settings_;
}

std::size_t NSParagraphStyle::objectHash() const {
  const Settings& s = settings_;
  internal::Hasher hasher;
  hasher(s.alignment, s.lineBreakMode, s.baseWritingDirection, s.lineSpacing, s.lineHeightMultiple, s.minimumLineHeight,
         s.maximumLineHeight, s.paragraphSpacing);
  return hasher.finish();
}

std::shared_ptr<NSMutableParagraphStyle> NSMutableParagraphStyle::init() {
  return std::shared_ptr<NSMutableParagraphStyle>(new NSMutableParagraphStyle(Settings()));
}

}  // namespace Brisel::Platform
