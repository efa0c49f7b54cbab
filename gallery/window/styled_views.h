#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "brisel/object_interface/legacy_label.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_field.h"
#include "brisel/platform/views/text_view.h"
#include "brisel/themes/theme.h"
#include "brisel/typography/type_style.h"

#include "gallery/window/flow_view.h"
#include "gallery/window/icon_view.h"
#include "gallery/window/panel_views.h"

namespace Brisel::Gallery {

/// Makes the views of a screen, and tells them of changes.
///
/// Labels and text views follow the text size by their own subscriptions, and older labels by their traits, as the
/// library has them; for all others, which have neither, this one subscribes. Colours and direction are told to all.
class StyledViews {
 public:
  /// A colour by its role.
  using Role = const Platform::ColorPtr& (*)(const Theme::ColorSet&);

  explicit StyledViews(const Theme::ColorSet& colors);
  StyledViews(const StyledViews&) = delete;
  StyledViews& operator=(const StyledViews&) = delete;

  /// A label that wraps.
  std::shared_ptr<Platform::UILabel> label(std::string_view text, const TypeStyle& style, Role color);
  /// A label of the older kind, of one line into which its text is fitted.
  std::shared_ptr<VLMBriselLegacyLabel> legacyLabel(std::string_view text, const VLMBriselLegacyLabel::Style& style,
                                                    Role color);
  /// A field with room round it. Empty where there is no text.
  std::shared_ptr<PanelView> field(std::string_view text, std::string_view placeholder);
  /// A text view with room round it.
  std::shared_ptr<PanelView> textView(std::string_view text);
  /// A button, at first in a state, which is a flag or none.
  std::shared_ptr<PillButton> button(std::string_view title, Platform::UIControlState state);
  std::shared_ptr<IconView> icon(const Icon& icon);
  std::shared_ptr<FlowView> flow(Platform::CGFloat gap);
  /// A plain ground, of which nothing but the colour is told.
  void paint(const std::shared_ptr<Platform::UIView>& view, Role color);

  void setColors(const Theme::ColorSet& colors);
  /// The side at which lines of text begin, whatever their script: that of the interface.
  void setAlignment(Platform::NSTextAlignment alignment);

  struct StyledLabel {
    std::shared_ptr<Platform::UILabel> view;
    const TypeStyle& style;
    Role color;
  };
  const std::vector<StyledLabel>& labels() const noexcept { return labels_; }
  const std::vector<std::shared_ptr<PillButton>>& buttons() const noexcept { return buttons_; }

 private:
  struct Painted {
    std::shared_ptr<Platform::UIView> view;
    Role color;
  };

  std::shared_ptr<PanelView> panel(const std::shared_ptr<Platform::UIView>& content,
                                   const Platform::NSDirectionalEdgeInsets& insets);
  void textSizeDidChange(const Platform::UIContentSizeCategory& category);
  void style(Platform::UITextField& field, const Platform::UIContentSizeCategory& category) const;
  void style(PillButton& button, const Platform::UIContentSizeCategory& category) const;

  const Theme::ColorSet* colors_;
  std::vector<StyledLabel> labels_;
  std::vector<std::shared_ptr<Platform::UITextField>> fields_;
  std::vector<std::shared_ptr<Platform::UITextView>> textViews_;
  std::vector<std::shared_ptr<PillButton>> buttons_;
  std::vector<std::shared_ptr<IconView>> icons_;
  std::vector<std::shared_ptr<FlowView>> flows_;
  std::vector<std::shared_ptr<PanelView>> panels_;
  std::vector<Painted> painted_;
  const std::shared_ptr<const bool> subscriber_ = std::make_shared<const bool>();
};

}  // namespace Brisel::Gallery
