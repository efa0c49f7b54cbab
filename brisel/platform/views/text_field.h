#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

namespace internal {
class ShownText;
}

/// A line of text that can be edited, and a placeholder that is shown while it is empty. It is drawn in the middle of
/// the field's height, and its tail is truncated where it is too wide. What it shows takes the default text attributes
/// where it has none of its own.
class UITextField : public UIView {
 public:
  /// `initWithFrame:`: a field without text.
  static std::shared_ptr<UITextField> initWithFrame(const CGRect& frame = {});
  ~UITextField() override;

  /// The characters of what is entered; nothing until text has been set.
  std::optional<std::string> text() const;
  /// Takes the default text attributes.
  void setText(const std::optional<std::string>& text);
  /// What is entered, with its attributes; null until text has been set. Copied when it is set.
  const std::shared_ptr<const NSAttributedString>& attributedText() const noexcept;
  virtual void setAttributedText(const std::shared_ptr<const NSAttributedString>& text);

  /// The characters of what is shown while there is no text.
  std::optional<std::string> placeholder() const;
  /// In the default text attributes, whatever becomes of them, but in a weaker colour.
  void setPlaceholder(const std::optional<std::string>& placeholder);
  /// The same with its attributes; null where there is none. Copied when it is set.
  const std::shared_ptr<const NSAttributedString>& attributedPlaceholder() const noexcept;
  virtual void setAttributedPlaceholder(const std::shared_ptr<const NSAttributedString>& placeholder);

  /// What text is set in that has no attributes of its own; none at first. Setting them sets those of the whole text,
  /// which keeps none of its own.
  const Dictionary& defaultTextAttributes() const noexcept;
  virtual void setDefaultTextAttributes(const Dictionary& attributes);

  /// The font, colour and alignment of the default attributes; setting one sets that of the whole text too. Null: the
  /// port's substitute at 17 points; black.
  std::shared_ptr<const UIFont> font() const;
  void setFont(const std::shared_ptr<const UIFont>& font);
  /// The colour, by the same rules; null: black.
  ColorPtr textColor() const;
  void setTextColor(const ColorPtr& color);
  /// The alignment, by the same rules; natural at first.
  NSTextAlignment textAlignment() const;
  void setTextAlignment(NSTextAlignment alignment);

  CGSize intrinsicContentSize() const override;
  CGSize sizeThatFits(CGSize size) const override;
  FirstBaseline firstBaseline() const override;

 protected:
  /// For subclasses' factories.
  UITextField();
  void drawContent(Canvas& canvas, CGPoint at) const override;

 private:
  struct State;

  void setDefault(std::string_view name, const Value& value);
  void setDefaults(Dictionary attributes, std::shared_ptr<const NSAttributedString> text);
  void contentDidChange();
  const internal::ShownText& shown() const;

  std::unique_ptr<State> state_;
};

}  // namespace Brisel::Platform
