#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/views/internal/label_state.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

/// A text that is read, in one line or several. It is drawn in the middle of the label's height; what does not fit is
/// cut or truncated with an ellipsis, by the line-break mode of the last line's paragraph. All modes wrap above that.
///
/// Either text or attributed text is set; the other follows. Text without attributes of its own is set in the label's
/// font, colour, alignment and line-break mode; an attributed text changes none of these. Nothing is laid out before a
/// size is asked for or the label is drawn.
class UILabel : public UIView {
 public:
  /// `initWithFrame:`: a label without text.
  static std::shared_ptr<UILabel> initWithFrame(const CGRect& frame = {});

  /// The characters of what is shown; nothing where neither text nor attributed text has been set.
  std::optional<std::string> text() const;
  virtual void setText(const std::optional<std::string>& text);
  /// The same as a string for `withAttributes`: its own attributes say nothing. Null where there is no text.
  const std::shared_ptr<const NSAttributedString>& characters() const noexcept;
  /// What is shown, with its attributes; null where there is no text. A text set without attributes answers with those
  /// that the label gives it.
  std::shared_ptr<const NSAttributedString> attributedText() const;
  /// Shows a text with its own attributes. It is copied: what the caller does to it later does not show.
  virtual void setAttributedText(const std::shared_ptr<const NSAttributedString>& text);

  /// The font; null: the port's substitute at 17 points. Setting font, colour, alignment or line-break mode sets that
  /// of the whole attributed text too.
  const std::shared_ptr<const UIFont>& font() const noexcept;
  void setFont(const std::shared_ptr<const UIFont>& font);
  /// The colour of the text; null: black.
  const ColorPtr& textColor() const noexcept;
  void setTextColor(const ColorPtr& color);
  /// Where lines stand; natural at first.
  NSTextAlignment textAlignment() const noexcept;
  void setTextAlignment(NSTextAlignment alignment);
  /// Where lines end that are too long; truncating the tail at first.
  NSLineBreakMode lineBreakMode() const noexcept;
  void setLineBreakMode(NSLineBreakMode mode);

  /// The most lines that are shown, 1 at first; 0 (and less): as many as it takes.
  std::int64_t numberOfLines() const noexcept;
  void setNumberOfLines(std::int64_t lines);
  /// Whether text that is too wide is drawn smaller, down to `minimumScaleFactor` of its size, with all its distances.
  /// One line shrinks to just the label's width; several to the largest size, found by halving, at which the label
  /// shows all of the text without tearing a word. What is too wide or high even then is truncated.
  bool adjustsFontSizeToFitWidth() const noexcept;
  void setAdjustsFontSizeToFitWidth(bool adjusts);
  /// How small text may be drawn, as a factor; 0 at first: as small as it must be. Values outside 0 … 1 are kept, and
  /// count as the nearer of the two.
  CGFloat minimumScaleFactor() const noexcept;
  void setMinimumScaleFactor(CGFloat factor);
  /// The width, in points, within which several lines are measured where nothing else gives one; 0 at first: none.
  CGFloat preferredMaxLayoutWidth() const noexcept;
  void setPreferredMaxLayoutWidth(CGFloat width);

  /// The room that the text takes at its own size, rounded up to whole pixels of the screen; nothing where there is no
  /// text.
  CGSize intrinsicContentSize() const override;
  /// Whether the room that the text takes is known, since it has been asked for and nothing has changed it since.
  bool isMeasured() const noexcept;
  /// `sizeThatFits:`: as large as the text at the width, but in no more than `numberOfLines`. One line takes its own
  /// width, and so do several where the width is not above 0. The height does not count.
  CGSize sizeThatFits(CGSize size) const override;
  /// The first line's; without text, that of a line in the label's font.
  FirstBaseline firstBaseline() const override;

  /// A hint that the label will be restyled soon: has what that reads, but for the label itself, fetched into the
  /// cache.
  void prefetchText() const noexcept;

 protected:
  /// For subclasses' factories.
  UILabel() = default;
  void drawContent(Canvas& canvas, CGPoint at) const override;
  bool hasHeightForWidth() const override;

 private:
  class Typesetter;

  mutable internal::LabelState state_;  // what is made of the text is made when it is asked for
};

}  // namespace Brisel::Platform
