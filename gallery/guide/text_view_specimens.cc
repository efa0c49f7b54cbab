#include "gallery/guide/text_view_specimens.h"

#include <limits>
#include <string>

#include "brisel/object_interface/legacy_label.h"
#include "brisel/platform/notification_center.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_field.h"
#include "brisel/platform/views/text_view.h"
#include "brisel/platform/views/window.h"
#include "brisel/themes/theme.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/text_view_styling.h"

#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

using Platform::CGFloat, Platform::UIButton, Platform::UIControlState, Platform::UILabel, Platform::UITextField,
    Platform::UITextView, Platform::UIView;

constexpr auto kDefault = ContentSizeCategory::large;

const Theme::ColorSet& colors() { return Theme::dark().base(); }

ViewPtr ground(CGFloat width) {
  auto view = UIView::initWithFrame({{}, {width, 0}});
  view->setBackgroundColor(colors().background().elevated().base());
  return view;
}

// Nothing but this view.
ViewColumn holding(const ViewPtr& view, CGFloat margin = 0) {
  ViewColumn column(ground(kSpecimenWidth), margin);
  column.add(view);
  return column;
}

std::shared_ptr<UILabel> label(std::string_view text, std::int64_t numberOfLines) {
  auto view = UILabel::initWithFrame();
  view->setText(std::string(text));
  view->setTextColor(colors().text().base());
  view->setNumberOfLines(numberOfLines);
  return view;
}

ViewPtr balladLabel(const std::shared_ptr<UILabel>& view, ContentSizeCategory category) {
  const ViewColumn column = holding(view);
  apply(*view, TypeStyle::ballad(), category.platformCategory(), false);
  return column.laidOut();
}

std::shared_ptr<UITextView> textView(std::string_view text, const Platform::ColorPtr& color) {
  auto view = UITextView::initWithFrame();
  view->setText(std::string(text));
  view->setTextColor(color);
  return view;
}

// The field has no room round its text of its own.
ViewPtr fieldBox(const std::shared_ptr<UITextField>& field) {
  return boxed(field, Spacer::x12(), Spacer::x12(), colors().background().tinted().base());
}

// In each state of its own colour; where no title is set for a state, it shows the normal one's.
std::shared_ptr<UIButton> button(std::string_view title, const Theme::ColorSet& set) {
  auto view = UIButton::initWithFrame();
  view->setTitle(std::string(title), Platform::UIControlStateNormal);
  view->setTitleColor(set.text().base(), Platform::UIControlStateNormal);
  constexpr CGFloat kAbove = Spacer::x12().value(), kBeside = Spacer::x24().value();
  view->setContentEdgeInsets({kAbove, kBeside, kAbove, kBeside});
  return view;
}

void postPreferredCategory(ContentSizeCategory category) {
  Platform::NSNotificationCenter::defaultCenter().postNotificationName(
      Platform::UIContentSizeCategoryDidChangeNotification, nullptr,
      {{Platform::UIContentSizeCategoryNewValueKey, category.platformCategory()}});
}

struct StyledPair {
  std::shared_ptr<UILabel> label;
  std::shared_ptr<UITextView> textView;
  ViewColumn labelColumn, textViewColumn;
};

StyledPair styledPair(Styling styling) {
  const auto pairLabel = label(kSentence, 0);
  const auto pairTextView = textView(kSentence, colors().text().base());
  pairTextView->setTextContainerInset({});
  StyledPair pair{pairLabel, pairTextView, holding(pairLabel), holding(pairTextView)};
  const auto applyBoth = [&](const TypeStyle& style, bool useDynamicTypeMonitor) {
    const auto& category = kDefault.platformCategory();
    apply(*pair.label, style, category, useDynamicTypeMonitor);
    apply(*pair.textView, style, category, useDynamicTypeMonitor);
  };
  applyBoth(TypeStyle::ballad(), styling != Styling::once);
  if (styling == Styling::restyled) applyBoth(TypeStyle::balladBold(), false);
  return pair;
}

LabelAndTextView finished(const StyledPair& pair) {
  // Later changes are for other specimens.
  disableDynamicTypeMonitor(*pair.label);
  disableDynamicTypeMonitor(*pair.textView);
  return {pair.labelColumn.laidOut(), pair.textViewColumn.laidOut()};
}

}  // namespace

ViewPtr wrappedLabel(ContentSizeCategory category) { return balladLabel(label(kSentence, 0), category); }

ViewPtr truncatedLabel(ContentSizeCategory category) { return balladLabel(label(kSentence, 1), category); }

ViewPtr shrinkingLabel(ContentSizeCategory category) {
  const auto view = label(kSentence, 1);
  view->setAdjustsFontSizeToFitWidth(true);
  view->setMinimumScaleFactor(0.5);
  return balladLabel(view, category);
}

ViewPtr rightToLeftLabel(ContentSizeCategory category) { return balladLabel(label(kArabicSentence, 0), category); }

ViewPtr filledTextField(ContentSizeCategory category) {
  const auto view = UITextField::initWithFrame();
  const ViewColumn column = holding(fieldBox(view));
  view->setText(std::string(kFieldText));
  apply(*view, TypeStyle::ballad(), category.platformCategory());
  view->setTextColor(colors().text().base());  // the style's attributes have replaced the field's, colour and all
  return column.laidOut();
}

ViewPtr emptyTextField(ContentSizeCategory category) {
  const auto view = UITextField::initWithFrame();
  const ViewColumn column = holding(fieldBox(view));
  view->setPlaceholder(std::string(kPlaceholder));
  apply(*view, TypeStyle::ballad(), category.platformCategory());
  view->setTextColor(colors().text().base());
  applyPlaceholder(*view, TypeStyle::ballad(), category.platformCategory());
  return column.laidOut();
}

ViewPtr paragraphTextView(ContentSizeCategory category) {
  const auto view = textView(kParagraphs, colors().text().subdued());
  const ViewColumn column = holding(view);
  apply(*view, TypeStyle::ballad(), category.platformCategory(), false);
  return column.laidOut();
}

ViewPtr followButton(UIControlState state, ContentSizeCategory category) {
  const auto view = button("Follow", Theme::dark().brightAccent());
  view->setTitle("Follow", Platform::UIControlStateDisabled);
  view->setTitleColor(colors().text().subdued(), Platform::UIControlStateDisabled);
  view->setTitle("Following", Platform::UIControlStateSelected);
  view->setTitleColor(colors().text().brightAccent(), Platform::UIControlStateSelected);
  const auto& accent = Theme::dark().brightAccent().background();
  view->setHighlighted(state == Platform::UIControlStateHighlighted);
  view->setEnabled(state != Platform::UIControlStateDisabled);
  view->setSelected(state == Platform::UIControlStateSelected);
  view->setFocused(state == Platform::UIControlStateFocused);
  switch (state) {
    case Platform::UIControlStateHighlighted:
      view->setBackgroundColor(accent.press());
      break;
    case Platform::UIControlStateDisabled:
    case Platform::UIControlStateSelected:
      view->setBackgroundColor(colors().background().tinted().base());
      break;
    case Platform::UIControlStateFocused:
      view->setBackgroundColor(accent.highlight());
      break;
    case Platform::UIControlStateNormal:
    case Platform::UIControlStateApplication:
    case Platform::UIControlStateReserved:
      view->setBackgroundColor(accent.base());
  }
  const ViewColumn column = holding(view);
  apply(*view, TypeStyle::balladBold(), category.platformCategory());
  return column.laidOut();
}

ViewPtr legacyLabel(bool isUsingDynamicType, const Platform::UIContentSizeCategory& maxContentSizeCategory,
                    ContentSizeCategory category) {
  const auto window = Platform::UIWindow::initWithFrame({{}, {kSpecimenWidth, 0}});
  window->setBackgroundColor(colors().background().elevated().base());
  window->setTraitCollection(
      Platform::UITraitCollection::traitCollectionWithPreferredContentSizeCategory(category.platformCategory()));
  const auto view = VLMBriselLegacyLabel::initWithStyle(VLMBriselTypeStyle::ballad());
  view->setTextColor(colors().text().base());
  view->setNumberOfLines(0);
  view->setUsingDynamicType(isUsingDynamicType);
  view->setMaxContentSizeCategory(maxContentSizeCategory);
  ViewColumn column(window);
  column.add(view);
  view->setText(std::string(kSentence));
  return column.laidOut();
}

FittedTitle fittedTitle(std::string_view title, const TypeStyle& style, std::int64_t numberOfLines,
                        ContentSizeCategory category) {
  const auto view = label(title, numberOfLines);
  view->setBackgroundColor(colors().background().tinted().base());  // shows how much room there is
  view->setMinimumScaleFactor(style.configuration().minimumScaleFactor().value(category.rawValue()));
  const ViewColumn column = holding(view, Spacer::x8().value());  // some glyphs reach out of their line
  apply(*view, style, category.platformCategory(), false);

  FittedTitle fitted;
  fitted.pointsBefore = style.font(category.platformCategory())->pointSize();
  const auto shown = view->attributedText();
  const auto* font = shown->attribute(Platform::NSFontAttributeName, 0);
  fitted.pointsAfter = font->as<Platform::UIFont>()->pointSize();
  constexpr CGFloat kAnyHeight = std::numeric_limits<CGFloat>::max();
  fitted.fits = scaledToFit(shown, {kSpecimenWidth, kAnyHeight}, numberOfLines, 1).scaledStringFits;
  fitted.view = column.laidOut();
  return fitted;
}

LabelAndTextView beforeChange(Styling styling) { return finished(styledPair(styling)); }

LabelAndTextView afterChange(Styling styling, ContentSizeCategory category) {
  const StyledPair pair = styledPair(styling);
  postPreferredCategory(category);
  LabelAndTextView views = finished(pair);
  postPreferredCategory(kDefault);
  return views;
}

ViewPtr textViewScreen(CGFloat width, ContentSizeCategory category) {
  const auto& size = category.platformCategory();
  ViewColumn column(ground(width));

  const auto title = label("The Longest Night of the Year", 2);
  title->setMinimumScaleFactor(TypeStyle::bass().configuration().minimumScaleFactor().value(category.rawValue()));
  column.add(title);
  apply(*title, TypeStyle::bass(), size, false);

  const auto artist = label("Night Ferry. 12 songs, 41 minutes", 0);
  artist->setTextColor(colors().text().subdued());
  column.add(artist, Spacer::x8().value());
  apply(*artist, TypeStyle::viola(), size, false);

  const auto text = textView(kParagraphs, colors().text().base());
  column.add(text, Spacer::x8().value());
  apply(*text, TypeStyle::ballad(), size, false);

  const auto field = UITextField::initWithFrame();
  field->setPlaceholder("Find in this album");
  column.add(fieldBox(field), Spacer::x16().value());
  apply(*field, TypeStyle::ballad(), size);
  field->setTextColor(colors().text().base());
  applyPlaceholder(*field, TypeStyle::ballad(), size);

  const auto play = button("Play", Theme::dark().brightAccent());
  play->setBackgroundColor(Theme::dark().brightAccent().background().base());
  column.add(play, Spacer::x16().value());
  apply(*play, TypeStyle::balladBold(), size);
  return column.laidOut();
}

}  // namespace Brisel::Gallery
