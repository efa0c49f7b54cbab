#include "gallery/window/styled_views.h"

#include <cmath>
#include <string>

#include "brisel/tokens/spacer.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

#include "gallery/window/placing.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::UIContentSizeCategory, Platform::UIControlState;

namespace {

UIContentSizeCategory currentCategory() { return DynamicTypeMonitor::shared()->preferredContentSizeCategory(); }

// Icons grow as running text does.
CGFloat iconSide(const UIContentSizeCategory& category) {
  constexpr CGFloat kSide = 24;  // at the default text size
  const auto& sizes = TypeStyle::ballad().configuration().fontSize();
  return std::round(kSide * sizes.value(category) / sizes.value(Platform::UIContentSizeCategoryLarge));
}

const TypeStyle& fieldStyle() { return TypeStyle::ballad(); }
const TypeStyle& buttonStyle() { return TypeStyle::balladBold(); }

}  // namespace

StyledViews::StyledViews(const Theme::ColorSet& colors) : colors_(&colors) {
  DynamicTypeMonitor::shared()->subscribe(
      subscriber_, [this](const UIContentSizeCategory& category) { textSizeDidChange(category); });
}

std::shared_ptr<Platform::UILabel> StyledViews::label(std::string_view text, const TypeStyle& style, Role color) {
  auto view = Platform::UILabel::initWithFrame();
  view->setNumberOfLines(0);
  view->setTextColor(color(*colors_));
  view->setText(std::string(text));
  apply(*view, style, currentCategory(), true);
  labels_.push_back({view, style, color});
  return view;
}

std::shared_ptr<VLMBriselLegacyLabel> StyledViews::legacyLabel(std::string_view text,
                                                               const VLMBriselLegacyLabel::Style& style, Role color) {
  auto view = VLMBriselLegacyLabel::initWithStyle(style);
  const TypeStyle& value = style->typeStyle();
  view->setMinimumScaleFactor(value.configuration().minimumScaleFactor().mid());
  view->setTextColor(color(*colors_));
  view->setText(std::string(text));
  labels_.push_back({view, value, color});
  return view;
}

std::shared_ptr<PanelView> StyledViews::panel(const std::shared_ptr<Platform::UIView>& content,
                                              const Platform::NSDirectionalEdgeInsets& insets) {
  auto view = PanelView::init();
  addFilling(*view, content, insets);
  view->setColors(colors_->background().tinted().base(), colors_->essential().subdued());
  panels_.push_back(view);
  return view;
}

std::shared_ptr<PanelView> StyledViews::field(std::string_view text, std::string_view placeholder) {
  auto view = Platform::UITextField::initWithFrame();
  if (!text.empty()) view->setText(std::string(text));
  view->setPlaceholder(std::string(placeholder));
  style(*view, currentCategory());
  fields_.push_back(view);
  constexpr CGFloat kBeside = Spacer::x16().value(), kAbove = Spacer::x12().value();
  return panel(view, {kAbove, kBeside, kAbove, kBeside});
}

std::shared_ptr<PanelView> StyledViews::textView(std::string_view text) {
  auto view = Platform::UITextView::initWithFrame();
  view->setTextColor(colors_->text().base());
  view->setText(std::string(text));
  apply(*view, fieldStyle(), currentCategory(), true);
  textViews_.push_back(view);
  constexpr CGFloat kBeside = Spacer::x16().value(), kAbove = Spacer::x4().value();
  return panel(view, {kAbove, kBeside, kAbove, kBeside});
}

std::shared_ptr<PillButton> StyledViews::button(std::string_view title, UIControlState state) {
  auto view = PillButton::init();
  constexpr CGFloat kBeside = Spacer::x24().value(), kAbove = Spacer::x12().value();
  view->setContentEdgeInsets({kAbove, kBeside, kAbove, kBeside});
  for (const UIControlState each : PillButton::kStates)
    view->setTitle(std::string(title), each);  // one of its own, so that it can have its own colour
  view->setHighlighted(state == Platform::UIControlStateHighlighted);
  view->setSelected(state == Platform::UIControlStateSelected);
  view->setEnabled(state != Platform::UIControlStateDisabled);
  buttons_.push_back(view);
  style(*view, currentCategory());
  return view;
}

std::shared_ptr<IconView> StyledViews::icon(const Icon& icon) {
  auto view = IconView::initWithIcon(icon, iconSide(currentCategory()), colors_->essential().base());
  icons_.push_back(view);
  return view;
}

std::shared_ptr<FlowView> StyledViews::flow(CGFloat gap) {
  flows_.push_back(FlowView::initWithGap(gap));
  return flows_.back();
}

void StyledViews::paint(const std::shared_ptr<Platform::UIView>& view, Role color) {
  view->setBackgroundColor(color(*colors_));
  painted_.push_back({view, color});
}

void StyledViews::setColors(const Theme::ColorSet& colors) {
  colors_ = &colors;
  const UIContentSizeCategory category = currentCategory();
  for (const Painted& ground : painted_) ground.view->setBackgroundColor(ground.color(colors));
  for (const StyledLabel& label : labels_) label.view->setTextColor(label.color(colors));
  for (const auto& field : fields_) style(*field, category);
  for (const auto& view : textViews_) view->setTextColor(colors.text().base());
  for (const auto& button : buttons_) style(*button, category);
  for (const auto& icon : icons_) icon->setColor(colors.essential().base());
  for (const auto& ground : panels_)
    ground->setColors(colors.background().tinted().base(), colors.essential().subdued());
}

void StyledViews::setAlignment(Platform::NSTextAlignment alignment) {
  for (const StyledLabel& label : labels_) label.view->setTextAlignment(alignment);
  for (const auto& field : fields_) field->setTextAlignment(alignment);
  for (const auto& view : textViews_) view->setTextAlignment(alignment);
}

void StyledViews::textSizeDidChange(const UIContentSizeCategory& category) {
  for (const auto& field : fields_) style(*field, category);
  for (const auto& button : buttons_) style(*button, category);
  for (const auto& icon : icons_) icon->setSide(iconSide(category));
  for (const auto& flow : flows_) flow->contentDidChange();
}

// A style brings a font and takes away colour and alignment.
void StyledViews::style(Platform::UITextField& field, const UIContentSizeCategory& category) const {
  const Platform::NSTextAlignment alignment = field.textAlignment();
  apply(field, fieldStyle(), category);
  field.setTextColor(colors_->text().base());
  field.setTextAlignment(alignment);
  applyPlaceholder(field, fieldStyle(), category);
  const auto placeholder = field.attributedPlaceholder()->mutableCopy();
  placeholder->addAttribute(Platform::NSForegroundColorAttributeName, colors_->text().subdued(),
                            {0, placeholder->length()});
  field.setAttributedPlaceholder(placeholder);
}

// Pressed, a chosen button is in a state of two flags, for which nothing is set: it looks as an ordinary one does.
void StyledViews::style(PillButton& button, const UIContentSizeCategory& category) const {
  const auto& ground = colors_->background().tinted();
  const auto& essential = colors_->essential();
  button.setTitleColor(colors_->text().base(), Platform::UIControlStateNormal);
  button.setTitleColor(colors_->text().base(), Platform::UIControlStateHighlighted);
  button.setTitleColor(colors_->text().subdued(), Platform::UIControlStateDisabled);
  button.setTitleColor(colors_->background().base(), Platform::UIControlStateSelected);
  button.setColors(ground.base(), essential.subdued(), Platform::UIControlStateNormal);
  button.setColors(ground.highlight(), essential.base(), Platform::UIControlStateHighlighted);
  button.setColors(ground.base(), nullptr, Platform::UIControlStateDisabled);
  button.setColors(essential.base(), nullptr, Platform::UIControlStateSelected);
  apply(button, buttonStyle(), category);
}

}  // namespace Brisel::Gallery
