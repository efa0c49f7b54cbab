#pragma once

#include <memory>
#include <optional>
#include <string>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

namespace internal {
class ShownText;
}

/// A text of several lines that can be edited. It begins at the top, and wraps at the view's width less the insets;
/// what is beyond the view's edges is not drawn. Text takes the view's font, colour and alignment where it has none of
/// its own.
class UITextView : public UIView {
 public:
  /// `initWithFrame:`: a text view without text.
  static std::shared_ptr<UITextView> initWithFrame(const CGRect& frame = {});
  ~UITextView() override;

  /// The characters of the text; nothing until text has been set.
  std::optional<std::string> text() const;
  /// Takes the view's font, colour and alignment.
  void setText(const std::optional<std::string>& text);
  /// The text with its attributes; null until text has been set. Copied when it is set.
  const std::shared_ptr<const NSAttributedString>& attributedText() const noexcept;
  virtual void setAttributedText(const std::shared_ptr<const NSAttributedString>& text);

  /// The font; null: the port's substitute at 12 points. Setting font, colour or alignment sets that of the
  /// whole text too.
  const std::shared_ptr<const UIFont>& font() const noexcept;
  virtual void setFont(const std::shared_ptr<const UIFont>& font);
  /// The colour, by the same rules; null: black.
  const ColorPtr& textColor() const noexcept;
  void setTextColor(const ColorPtr& color);
  /// The alignment, by the same rules; natural at first.
  NSTextAlignment textAlignment() const noexcept;
  void setTextAlignment(NSTextAlignment alignment);

  /// The room round the text, in points: 8 above and below at first. Distances that are not finite are kept, and count
  /// as 0.
  const UIEdgeInsets& textContainerInset() const noexcept;
  void setTextContainerInset(const UIEdgeInsets& inset);

  /// The room that the text takes without wrapping, as `sizeThatFits` answers where there is no width.
  CGSize intrinsicContentSize() const override;
  CGSize sizeThatFits(CGSize size) const override;
  FirstBaseline firstBaseline() const override;

 protected:
  /// For subclasses' factories.
  UITextView();
  void drawContent(Canvas& canvas, CGPoint at) const override;
  bool hasHeightForWidth() const override;

 private:
  struct State;

  void contentDidChange();
  const internal::ShownText& shown() const;

  std::unique_ptr<State> state_;
};

}  // namespace Brisel::Platform
