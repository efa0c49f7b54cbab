#pragma once

#include <memory>
#include <optional>
#include <string>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

/// A line of text that can be edited, and a placeholder that is shown while it is empty.
class UITextField : public UIView {
 public:
  static std::shared_ptr<UITextField> initWithFrame(const CGRect& frame = {});

  /// The characters of what is entered; nothing until text has been set.
  std::optional<std::string> text() const;
  /// Takes the default text attributes.
  void setText(const std::optional<std::string>& text);
  const std::shared_ptr<const NSAttributedString>& attributedText() const noexcept;
  void setAttributedText(const std::shared_ptr<const NSAttributedString>& text);

  std::optional<std::string> placeholder() const;
  /// In the default font, in a weaker colour than text.
  void setPlaceholder(const std::optional<std::string>& placeholder);
  const std::shared_ptr<const NSAttributedString>& attributedPlaceholder() const noexcept;
  void setAttributedPlaceholder(const std::shared_ptr<const NSAttributedString>& placeholder);

  /// The attributes of text without its own; setting them sets those of all of the text there is.
  const Dictionary& defaultTextAttributes() const noexcept;
  void setDefaultTextAttributes(const Dictionary& attributes);

  /// The font, colour and alignment of the default attributes. Null: the port's substitute at 17 points; black.
  std::shared_ptr<const UIFont> font() const;
  void setFont(const std::shared_ptr<const UIFont>& font);
  ColorPtr textColor() const;
  void setTextColor(const ColorPtr& color);
  NSTextAlignment textAlignment() const;
  void setTextAlignment(NSTextAlignment alignment);

  CGSize intrinsicContentSize() const override;
  CGSize sizeThatFits(CGSize size) const override;
  FirstBaseline firstBaseline() const override;

 protected:
  UITextField();
  ~UITextField() override;
  void drawContent(Canvas& canvas, CGPoint at) const override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace Brisel::Platform
