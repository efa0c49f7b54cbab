#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/platform/text_direction.h"

namespace Brisel::Platform {

enum class NSTextAlignment : std::uint8_t { left, center, right, justified, natural };

enum class NSLineBreakMode : std::uint8_t {
  byWordWrapping = 0,
  byCharWrapping = 1,
  byClipping = 2,
  byTruncatingHead = 3,
  byTruncatingTail = 4,
  byTruncatingMiddle = 5,
};

class NSMutableParagraphStyle;

/// How a paragraph is set. Distances are points; they are kept as given, and count as 0 in layout where they are
/// negative or not finite. A height multiple or a maximum of 0 sets no rule. Equal when all that is set is equal.
class NSParagraphStyle : public NSObject {
 public:
  static std::shared_ptr<const NSParagraphStyle> defaultParagraphStyle();

  /// A changeable style with the same settings.
  std::shared_ptr<NSMutableParagraphStyle> mutableCopy() const;
  /// A style with the settings of now, which nobody can change.
  std::shared_ptr<const NSParagraphStyle> copy() const;

  NSTextAlignment alignment() const noexcept { return settings_.alignment; }
  NSLineBreakMode lineBreakMode() const noexcept { return settings_.lineBreakMode; }
  WritingDirection baseWritingDirection() const noexcept { return settings_.baseWritingDirection; }
  /// Between the bottom of a line and the top of the next one, be it of the next paragraph; not behind a text's last.
  CGFloat lineSpacing() const noexcept { return settings_.lineSpacing; }
  /// What a line's own height is multiplied by, before the minimum and maximum are applied.
  CGFloat lineHeightMultiple() const noexcept { return settings_.lineHeightMultiple; }
  CGFloat minimumLineHeight() const noexcept { return settings_.minimumLineHeight; }
  CGFloat maximumLineHeight() const noexcept { return settings_.maximumLineHeight; }
  /// After the last line of the paragraph.
  CGFloat paragraphSpacing() const noexcept { return settings_.paragraphSpacing; }

  bool isEqual(const NSObject& other) const override;
  std::size_t objectHash() const override;

 protected:
  struct Settings {
    NSTextAlignment alignment = NSTextAlignment::natural;
    NSLineBreakMode lineBreakMode = NSLineBreakMode::byWordWrapping;
    WritingDirection baseWritingDirection = WritingDirection::natural;
    CGFloat lineSpacing = 0;
    CGFloat lineHeightMultiple = 0;
    CGFloat minimumLineHeight = 0;
    CGFloat maximumLineHeight = 0;
    CGFloat paragraphSpacing = 0;
    friend bool operator==(const Settings&, const Settings&) = default;
  };

  explicit NSParagraphStyle(const Settings& settings) : settings_(settings) {}
  Settings settings_;
};

/// A paragraph style that can be changed. For one thread at a time, and not while a text that holds it is laid out.
class NSMutableParagraphStyle final : public NSParagraphStyle {
 public:
  /// A style with the settings of the default one.
  static std::shared_ptr<NSMutableParagraphStyle> init();

  void setAlignment(NSTextAlignment alignment) noexcept { settings_.alignment = alignment; }
  void setLineBreakMode(NSLineBreakMode mode) noexcept { settings_.lineBreakMode = mode; }
  void setBaseWritingDirection(WritingDirection direction) noexcept { settings_.baseWritingDirection = direction; }
  void setLineSpacing(CGFloat points) noexcept { settings_.lineSpacing = points; }
  void setLineHeightMultiple(CGFloat multiple) noexcept { settings_.lineHeightMultiple = multiple; }
  void setMinimumLineHeight(CGFloat points) noexcept { settings_.minimumLineHeight = points; }
  void setMaximumLineHeight(CGFloat points) noexcept { settings_.maximumLineHeight = points; }
  void setParagraphSpacing(CGFloat points) noexcept { settings_.paragraphSpacing = points; }

 private:
  friend class NSParagraphStyle;
  explicit NSMutableParagraphStyle(const Settings& settings) : NSParagraphStyle(settings) {}
};

}  // namespace Brisel::Platform
