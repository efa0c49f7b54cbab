#include "gallery/window/sample_content.h"

#include <string>

#include "brisel/object_interface/type_styles.h"
#include "brisel/tokens/spacer.h"
#include "brisel/typography/text_view_styling.h"

namespace Brisel::Gallery {

using Platform::CGFloat, Platform::ColorPtr, Platform::NSLayoutConstraint, Platform::UIView;

namespace {

using Colors = Theme::ColorSet;

const ColorPtr& base(const Colors& colors) { return colors.text().base(); }
const ColorPtr& subdued(const Colors& colors) { return colors.text().subdued(); }
const ColorPtr& accent(const Colors& colors) { return colors.text().brightAccent(); }
const ColorPtr& negative(const Colors& colors) { return colors.text().negative(); }
const ColorPtr& warning(const Colors& colors) { return colors.text().warning(); }
const ColorPtr& positive(const Colors& colors) { return colors.text().positive(); }
const ColorPtr& announcement(const Colors& colors) { return colors.text().announcement(); }

constexpr CGFloat kMargin = Spacer::x24().value();
constexpr CGFloat kWidest = 1280;  // points; beyond that lines are too long to read

struct Specimen {
  const TypeStyle& (*style)() noexcept;
  std::string_view caption, text;
};
constexpr Specimen kSpecimens[] = {
    {TypeStyle::alto, "Alto", "Good evening"},
    {TypeStyle::canon, "Canon, Greek", "Η μουσική γεμίζει ήσυχα το βράδυ"},
    {TypeStyle::celloCanon, "Cello Canon, Cyrillic", "Музыка тихо наполняет вечер"},
    {TypeStyle::cello, "Cello, Devanagari", "संगीत चुपचाप शाम को भर देता है"},
    {TypeStyle::balladBold, "Ballad Bold, Arabic", "الموسيقى تملأ المساء بهدوء"},
    {TypeStyle::ballad, "Ballad, Hebrew", "המוזיקה ממלאת את הערב בשקט"},
    {TypeStyle::viola, "Viola", "Music quietly fills the evening, and whoever reads large text reads all of it."},
    {TypeStyle::metronome, "Metronome", "Now playing"},
    {TypeStyle::finaleBold, "Finale Bold", "Six jazz quavers wove my big, lofty pitch and key"},
};

constexpr const Icon& (*kIcons[])() noexcept = {
    Icon::home,        Icon::search, Icon::heartActive, Icon::shuffle,  Icon::skipBack,     Icon::play,
    Icon::skipForward, Icon::repeat, Icon::volume,      Icon::listView, Icon::chevronRight,
};

struct NamedRole {
  std::string_view name;
  StyledViews::Role color;
};
constexpr NamedRole kRoles[] = {
    {"Base", base},
    {"Subdued", subdued},
    {"Accent", accent},
    {"Negative", negative},
    {"Warning", warning},
    {"Positive", positive},
    {"Announcement", announcement},
};

}  // namespace

SampleContent::SampleContent(StyledViews& views) : views_(views), view_(UIView::initWithFrame()) {
  // A page of a width that can be read, in the middle of what there is.
  const auto page = UIView::initWithFrame();
  addPlaced(*view_, page);
  const auto room = page->widthAnchor().constraintLessThanOrEqualToAnchor(view_->widthAnchor(), -2 * kMargin);
  const auto wide = page->widthAnchor().constraintEqualToAnchor(view_->widthAnchor(), -2 * kMargin);
  wide->setPriority(Platform::UILayoutPriorityDefaultHigh);
  NSLayoutConstraint::activateConstraints({
      page->topAnchor().constraintEqualToAnchor(view_->topAnchor(), kMargin),
      view_->bottomAnchor().constraintEqualToAnchor(page->bottomAnchor(), kMargin),
      page->centerXAnchor().constraintEqualToAnchor(view_->centerXAnchor()),
      page->widthAnchor().constraintLessThanOrEqualToConstant(kWidest),
      room,
      wide,
  });

  const auto head = makeHead(), styles = makeStyles(), controls = makeControls();
  for (const auto& part : {head, styles, controls}) addPlaced(*page, part);
  constexpr CGFloat kBetween = Spacer::x40().value();
  // As high as the higher column, and no higher.
  const auto low = page->heightAnchor().constraintEqualToConstant(0);
  low->setPriority(Platform::UILayoutPriorityFittingSizeLevel);
  NSLayoutConstraint::activateConstraints({
      head->topAnchor().constraintEqualToAnchor(page->topAnchor()),
      head->leadingAnchor().constraintEqualToAnchor(page->leadingAnchor()),
      head->trailingAnchor().constraintEqualToAnchor(page->trailingAnchor()),
      styles->topAnchor().constraintEqualToAnchor(head->bottomAnchor(), kBetween),
      styles->leadingAnchor().constraintEqualToAnchor(page->leadingAnchor()),
      controls->trailingAnchor().constraintEqualToAnchor(page->trailingAnchor()),
      page->bottomAnchor().constraintGreaterThanOrEqualToAnchor(styles->bottomAnchor()),
      page->bottomAnchor().constraintGreaterThanOrEqualToAnchor(controls->bottomAnchor()),
      low,
  });
  oneColumn_ = {
      styles->trailingAnchor().constraintEqualToAnchor(page->trailingAnchor()),
      controls->leadingAnchor().constraintEqualToAnchor(page->leadingAnchor()),
      controls->topAnchor().constraintEqualToAnchor(styles->bottomAnchor(), kBetween),
  };
  twoColumns_ = {
      controls->leadingAnchor().constraintEqualToAnchor(styles->trailingAnchor(), kBetween),
      controls->widthAnchor().constraintEqualToAnchor(styles->widthAnchor()),
      controls->topAnchor().constraintEqualToAnchor(styles->topAnchor()),
  };
  NSLayoutConstraint::activateConstraints(oneColumn_);
}

void SampleContent::setTwoColumns(bool isTwoColumns) {
  if (isTwoColumns == isTwoColumns_) return;
  isTwoColumns_ = isTwoColumns;
  NSLayoutConstraint::deactivateConstraints(isTwoColumns ? oneColumn_ : twoColumns_);
  NSLayoutConstraint::activateConstraints(isTwoColumns ? twoColumns_ : oneColumn_);
}

void SampleContent::fitTitle(const Platform::UIContentSizeCategory& category) {
  apply(*title_, TypeStyle::bass(), category, false);
}

std::shared_ptr<UIView> SampleContent::makeHead() {
  auto head = UIView::initWithFrame();
  Column column(*head);
  column.add(views_.label("Live style guide", TypeStyle::minuetBold(), accent));
  title_ = views_.label("Every label follows its reader", TypeStyle::bass(), base);
  title_->setNumberOfLines(1);
  title_->setMinimumScaleFactor(TypeStyle::bass().configuration().minimumScaleFactor().mid());
  column.add(title_, Spacer::x4().value());
  column.add(views_.label("Labels, fields, buttons and icons of the library. Whoever changes the text size, here or in "
                          "the settings of the desktop, sees all of them follow.",
                          TypeStyle::ballad(), subdued),
             Spacer::x8().value());
  column.end();
  return head;
}

void SampleContent::addHeading(Column& column, std::string_view text) {
  column.add(views_.label(text, TypeStyle::celloCanon(), base), Spacer::x32().value());
}

std::shared_ptr<UIView> SampleContent::makeStyles() {
  auto styles = UIView::initWithFrame();
  Column column(*styles);
  column.add(views_.label("Type styles", TypeStyle::celloCanon(), base));
  for (const Specimen& specimen : kSpecimens) {
    column.add(views_.label(specimen.caption, TypeStyle::finale(), subdued), Spacer::x16().value());
    column.add(views_.label(specimen.text, specimen.style(), base), Spacer::x4().value());
  }
  column.add(views_.label("Brio, by a legacy label, into one line", TypeStyle::finale(), subdued),
             Spacer::x16().value());
  column.add(views_.legacyLabel("The stars above the harbour", VLMBriselTypeStyle::brio(), base), Spacer::x4().value());
  column.end();
  return styles;
}

std::shared_ptr<UIView> SampleContent::makeControls() {
  auto controls = UIView::initWithFrame();
  Column column(*controls);
  column.add(views_.label("Text fields", TypeStyle::celloCanon(), base));
  column.add(views_.field({}, "Songs, artists, podcasts"), Spacer::x16().value());
  column.add(views_.field("Evening jazz", "Name of the playlist"), Spacer::x12().value());

  addHeading(column, "Text view");
  column.add(views_.textView(
                 "Six jazz quavers wove my big, lofty pitch and key.\nMusic, музыка, μουσική, संगीत, מוזיקה, موسيقى"),
             Spacer::x16().value());

  addHeading(column, "Buttons");
  const auto buttons = views_.flow(Spacer::x12().value());
  buttons->addSubview(views_.button("Play", Platform::UIControlStateNormal));
  buttons->addSubview(views_.button("Pressed", Platform::UIControlStateHighlighted));
  buttons->addSubview(views_.button("Shuffle", Platform::UIControlStateSelected));
  buttons->addSubview(views_.button("Unavailable", Platform::UIControlStateDisabled));
  column.add(buttons, Spacer::x16().value());

  addHeading(column, "Icons");
  column.add(makeIcons(), Spacer::x16().value());
  addHeading(column, "Colours of text");
  column.add(makeRoles(), Spacer::x16().value());
  column.end();
  return controls;
}

std::shared_ptr<UIView> SampleContent::makeIcons() {
  auto icons = views_.flow(Spacer::x16().value());
  for (const auto& icon : kIcons) icons->addSubview(views_.icon(icon()));
  return icons;
}

std::shared_ptr<UIView> SampleContent::makeRoles() {
  auto roles = views_.flow(Spacer::x16().value());
  for (const NamedRole& role : kRoles) roles->addSubview(views_.label(role.name, TypeStyle::violaBold(), role.color));
  return roles;
}

}  // namespace Brisel::Gallery
