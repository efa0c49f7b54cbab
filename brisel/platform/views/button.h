#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

namespace internal {
class ShownText;
}

/// What a control is in: a set of flags, and two masks of flags that are not the platform's. The published numbers.
enum UIControlState : std::uint32_t {
  UIControlStateNormal = 0,                 ///< no flag
  UIControlStateHighlighted = 1U << 0,      ///< pressed
  UIControlStateDisabled = 1U << 1,         ///< not to be used now
  UIControlStateSelected = 1U << 2,         ///< chosen
  UIControlStateFocused = 1U << 3,          ///< where keys go
  UIControlStateApplication = 0x00FF0000U,  ///< a mask: flags for programs
  UIControlStateReserved = 0xFF000000U,     ///< a mask: flags for the platform
};

/// A button with a title for each state. Asked for a state, it answers only what was set for exactly that value, of all
/// those that 32 bits can hold. What it draws, in one line in its middle, falls back to what was set for the normal
/// one: the title, and apart from it the colour. An attributed title goes before a plain one of the same state. A title
/// without a font is set in the port's substitute at 17 points, one without a colour in the title colour, else black.
class UIButton : public UIView {
 public:
  /// `initWithFrame:`: a button without titles.
  static std::shared_ptr<UIButton> initWithFrame(const CGRect& frame = {});
  ~UIButton() override;

  /// `titleForState:`: the title that was set for exactly this state.
  std::optional<std::string> titleForState(UIControlState state) const;
  /// `setTitle:forState:`: for exactly this state; nothing takes the title away.
  void setTitle(const std::optional<std::string>& title, UIControlState state);
  /// `titleColorForState:`; null where none was set.
  ColorPtr titleColorForState(UIControlState state) const;
  /// `setTitleColor:forState:`: for exactly this state; null takes the colour away.
  void setTitleColor(const ColorPtr& color, UIControlState state);
  /// `attributedTitleForState:`; null where none was set.
  std::shared_ptr<const NSAttributedString> attributedTitleForState(UIControlState state) const;
  /// `setAttributedTitle:forState:`: for exactly this state; copied; null takes the title away.
  virtual void setAttributedTitle(const std::shared_ptr<const NSAttributedString>& title, UIControlState state);

  /// The flags that are set now.
  UIControlState state() const noexcept { return state_; }
  /// Whether it can be used; so at first.
  bool isEnabled() const noexcept { return (state_ & UIControlStateDisabled) == 0; }
  void setEnabled(bool enabled);
  /// Whether it is pressed.
  bool isHighlighted() const noexcept { return (state_ & UIControlStateHighlighted) != 0; }
  void setHighlighted(bool highlighted);
  /// Whether it is chosen.
  bool isSelected() const noexcept { return (state_ & UIControlStateSelected) != 0; }
  void setSelected(bool selected);
  /// Whether keys go to it.
  bool isFocused() const noexcept { return (state_ & UIControlStateFocused) != 0; }
  void setFocused(bool focused);

  /// The title that is drawn now, a plain one in its colour; null where neither the state nor the normal one has one.
  std::shared_ptr<const NSAttributedString> currentAttributedTitle() const;

  /// Room round the title, in points; none at first. Distances that are not finite are kept, and count as 0.
  const UIEdgeInsets& contentEdgeInsets() const noexcept { return contentEdgeInsets_; }
  void setContentEdgeInsets(const UIEdgeInsets& insets);

  CGSize intrinsicContentSize() const override;
  CGSize sizeThatFits(CGSize size) const override;
  FirstBaseline firstBaseline() const override;

 protected:
  /// For subclasses' factories.
  UIButton();
  void drawContent(Canvas& canvas, CGPoint at) const override;

 private:
  struct Titles;

  void setFlag(UIControlState flag, bool set);
  void contentDidChange();
  ColorPtr currentTitleColor() const;
  const internal::ShownText* shown() const;

  std::unique_ptr<Titles> titles_;
  UIEdgeInsets contentEdgeInsets_;
  UIControlState state_ = UIControlStateNormal;
};

}  // namespace Brisel::Platform
