#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/platform/text_direction.h"

namespace Brisel::Platform {

/// Where lines stand in the width of a text.
enum class NSTextAlignment : std::uint8_t {
  left,       ///< at the left
  center,     ///< in the middle
  right,      ///< at the right
  justified,  ///< stretched to the width, but for the last one
  natural,    ///< where the paragraph begins
};

/// Where lines end that are too long, by the published numbers.
enum class NSLineBreakMode : std::uint8_t {
  byWordWrapping = 0,      ///< before a word
  byCharWrapping = 1,      ///< before a character
  byClipping = 2,          ///< cut at the edge
  byTruncatingHead = 3,    ///< with an ellipsis for what comes first
  byTruncatingTail = 4,    ///< with an ellipsis for what comes last
  byTruncatingMiddle = 5,  ///< with an ellipsis for what is in the middle
};

class NSMutableParagraphStyle;

/// How a paragraph is set. Distances are points; they are kept as given, and count as 0 in layout where they are
/// negative or not finite. A height multiple or a maximum of 0 sets no rule. Equal when all that is set is equal.
class NSParagraphStyle : public NSObject {
 public:
  /// Natural in alignment and direction, wrapped by words, and without rules. One instance.
  static std::shared_ptr<const NSParagraphStyle> defaultParagraphStyle();

  /// A changeable style with the same settings.
  std::shared_ptr<NSMutableParagraphStyle> mutableCopy() const;
  /// A style with the settings of now, which nobody can change.
  std::shared_ptr<const NSParagraphStyle> copy() const;

  /// Where lines stand.
  NSTextAlignment alignment() const noexcept { return settings_.alignment; }
  /// Where lines end that are too long.
  NSLineBreakMode lineBreakMode() const noexcept { return settings_.lineBreakMode; }
  /// The direction of the paragraph.
  WritingDirection baseWritingDirection() const noexcept { return settings_.baseWritingDirection; }
  /// Between the bottom of a line and the top of the next one, be it of the next paragraph; not behind a text's last.
  CGFloat lineSpacing() const noexcept { return settings_.lineSpacing; }
  /// What a line's own height is multiplied by, before the minimum and maximum are applied.
  CGFloat lineHeightMultiple() const noexcept { return settings_.lineHeightMultiple; }
  /// No line is lower.
  CGFloat minimumLineHeight() const noexcept { return settings_.minimumLineHeight; }
  /// No line is higher.
  CGFloat maximumLineHeight() const noexcept { return settings_.maximumLineHeight; }
  /// After the last line of the paragraph.
  CGFloat paragraphSpacing() const noexcept { return settings_.paragraphSpacing; }

  bool isEqual(const NSObject& other) const override;
  std::size_t objectHash() const override;

 protected:
  /// All that can be set.
  struct Settings {
    /// @{
    /// What the getter of this name answers.
    NSTextAlignment alignment = NSTextAlignment::natural;
    NSLineBreakMode lineBreakMode = NSLineBreakMode::byWordWrapping;
    WritingDirection baseWritingDirection = WritingDirection::natural;
    CGFloat lineSpacing = 0;
    CGFloat lineHeightMultiple = 0;
    CGFloat minimumLineHeight = 0;
    CGFloat maximumLineHeight = 0;
    CGFloat paragraphSpacing = 0;
    /// @}
    friend bool operator==(const Settings&, const Settings&) = default;
  };

  /// A style with these settings.
  explicit NSParagraphStyle(const Settings& settings) : settings_(settings) {}
  Settings settings_;  ///< which only a mutable style changes
};

/// A paragraph style that can be changed. For one thread at a time, and not while a text that holds it is laid out.
class NSMutableParagraphStyle final : public NSParagraphStyle {
 public:
  /// A style with the settings of the default one.
  static std::shared_ptr<NSMutableParagraphStyle> init();

  /// @{
  /// Sets what the getter of this name answers from now on.
  void setAlignment(NSTextAlignment alignment) noexcept { settings_.alignment = alignment; }
  void setLineBreakMode(NSLineBreakMode mode) noexcept { settings_.lineBreakMode = mode; }
  void setBaseWritingDirection(WritingDirection direction) noexcept { settings_.baseWritingDirection = direction; }
  void setLineSpacing(CGFloat points) noexcept { settings_.lineSpacing = points; }
  void setLineHeightMultiple(CGFloat multiple) noexcept { settings_.lineHeightMultiple = multiple; }
  void setMinimumLineHeight(CGFloat points) noexcept { settings_.minimumLineHeight = points; }
  void setMaximumLineHeight(CGFloat points) noexcept { settings_.maximumLineHeight = points; }
  void setParagraphSpacing(CGFloat points) noexcept { settings_.paragraphSpacing = points; }
  /// @}

 private:
  friend class NSParagraphStyle;
  explicit NSMutableParagraphStyle(const Settings& settings) : NSParagraphStyle(settings) {}
};

}  // namespace Brisel::Platform
