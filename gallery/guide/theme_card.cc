#include "gallery/guide/theme_card.h"

#include <cmath>
#include <string_view>

#include "brisel/icons/icon.h"
#include "brisel/platform/bezier_path.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/tokens/spacer.h"
#include "brisel/typography/type_style.h"

#include "gallery/drawing.h"
#include "gallery/guide/artwork.h"

namespace Brisel::Gallery {
namespace {

using Platform::CGFloat, Platform::CGRect, Platform::ColorPtr;

constexpr CGFloat kMargin = Spacer::x16().value();
constexpr CGFloat kWidth = kThemeCard.width - 2 * kMargin;
constexpr CGFloat kSmallIcon = 24, kLargeIcon = 40, kButton = 40;  // points

class Card {
 public:
  Card(Platform::Canvas& canvas, const Theme::ColorSet& set) : canvas_(canvas), set_(set) {
    if (set.background().base()->alpha() < 1) media_ = landscape(kThemeCard.height);
  }

  void paint() {
    if (media_) paintMedia();
    canvas_.fillRect({{}, kThemeCard}, *set_.background().base());
    drawLine(canvas_, "The Quiet Hours", TypeStyle::canon(), set_.text().base(), line(32));
    drawLine(canvas_, "Album by Night Ferry", TypeStyle::viola(), set_.text().subdued(), line(20));
    leave(Spacer::x16());
    waveform();
    leave(Spacer::x12());
    controls();
    leave(Spacer::x16());
    messages();
    leave(Spacer::x24());
    buttons();
  }

 private:
  // A line across the card, `height` points high, below what has been drawn.
  CGRect line(CGFloat height) {
    const CGRect box{{kMargin, top_}, {kWidth, height}};
    top_ += height;
    return box;
  }
  void leave(Spacer spacer) { top_ += spacer.value(); }

  // The middle of the picture.
  void paintMedia() { drawAtPoint(*media_, canvas_, {std::round((kThemeCard.width - kThemeCard.height) / 2), 0}); }

  // A decoration, as far as it has been played.
  void waveform() {
    constexpr int kBars = 30, kPlayed = 12;
    constexpr CGFloat kGap = Spacer::x4().value();
    constexpr CGFloat kBar = (kWidth + kGap) / kBars - kGap;
    const CGRect box = line(32);
    for (int i = 0; i < kBars; ++i) {
      const CGFloat swell = std::sin(i * 0.9) * std::sin(i * 0.37 + 1);  // no fact: any wave does
      const CGFloat height = 8 + 2 * std::round(12 * std::abs(swell));
      const CGRect bar{{box.origin.x + i * (kBar + kGap), box.origin.y + (box.size.height - height) / 2},
                       {kBar, height}};
      canvas_.fillPath(roundedRect(bar, kBar / 2),
                       *(i < kPlayed ? set_.decorative().base() : set_.decorative().subdued()));
    }
  }

  void controls() {
    const CGRect box = line(kLargeIcon);
    const auto& essential = set_.essential();
    const auto put = [&](const Icon& icon, const ColorPtr& color, CGFloat middle, CGFloat side) {
      drawIcon(canvas_, icon, color, {middle - side / 2, box.origin.y + (box.size.height - side) / 2}, side);
    };
    const CGFloat middle = kThemeCard.width / 2, outer = kMargin + kSmallIcon / 2;
    put(Icon::shuffle(), essential.subdued(), outer, kSmallIcon);
    put(Icon::skipBack(), essential.base(), (outer + middle) / 2, kSmallIcon);
    put(Icon::playAltActive(), essential.brightAccent(), middle, kLargeIcon);
    put(Icon::skipForward(), essential.base(), kThemeCard.width - (outer + middle) / 2, kSmallIcon);
    put(Icon::repeat(), essential.subdued(), kThemeCard.width - outer, kSmallIcon);
  }

  // A line for each accent.
  void messages() {
    const auto& text = set_.text();
    const auto& essential = set_.essential();
    message(Icon::heartActive(), essential.brightAccent(), "In your favourites", text.brightAccent());
    message(Icon::exclamationAltActive(), essential.negative(), "Payment failed", text.negative());
    message(Icon::lightning(), essential.warning(), "Storage is almost full", text.warning());
    message(Icon::checkAltFill(), essential.positive(), "Downloaded", text.positive());
    message(Icon::notificationsActive(), essential.announcement(), "A new episode is out", text.announcement());
    top_ -= Spacer::x8().value();
  }

  void message(const Icon& icon, const ColorPtr& color, std::string_view text, const ColorPtr& textColor) {
    CGRect box = line(kSmallIcon);
    drawIcon(canvas_, icon, color, box.origin, kSmallIcon);
    box.origin.x += kSmallIcon + Spacer::x12().value();
    drawLine(canvas_, text, TypeStyle::viola(), textColor, box);
    leave(Spacer::x8());
  }

  void buttons() {
    const auto& background = set_.background();
    const Theme::State plain(background.base(), background.highlight(), background.press());
    row("Plain", plain, TypeStyle::violaBold());
    row("Elevated", background.elevated(), TypeStyle::violaBold());
    row("Tinted", background.tinted(), TypeStyle::violaBold());
    row("Unsafe for small text", background.unsafeForSmallText(), TypeStyle::cello());
  }

  void row(std::string_view title, const Theme::State& state, const TypeStyle& style) {
    drawLine(canvas_, title, TypeStyle::mesto(), set_.text().subdued(), line(20));
    leave(Spacer::x4());
    const CGRect box = line(kButton);
    const ColorPtr* const grounds[] = {&state.base(), &state.highlight(), &state.press()};
    constexpr std::string_view kLabels[] = {"Base", "Highlight", "Press"};
    constexpr CGFloat kGap = Spacer::x8().value();
    const auto left = [](int column) { return std::round(column * (kWidth + kGap) / 3); };  // on a whole point
    for (int i = 0; i < 3; ++i) {
      button({{box.origin.x + left(i), box.origin.y}, {left(i + 1) - kGap - left(i), box.size.height}}, kLabels[i],
             **grounds[i], style);
    }
    leave(Spacer::x12());
  }

  // Outlined, as many a state has the colour of what it lies on.
  void button(const CGRect& box, std::string_view label, const Platform::UIColor& ground, const TypeStyle& style) {
    const Platform::UIBezierPath shape = roundedRect(box, box.size.height / 2);
    if (media_) {  // each of its backgrounds lies on the picture itself
      canvas_.save();
      canvas_.clipToPath(shape);
      paintMedia();
      canvas_.restore();
    }
    canvas_.fillPath(shape, ground);
    constexpr CGFloat kLine = 1;
    const CGRect inner{{box.origin.x + kLine / 2, box.origin.y + kLine / 2},
                       {box.size.width - kLine, box.size.height - kLine}};
    Platform::UIBezierPath outline = roundedRect(inner, inner.size.height / 2);
    outline.setLineWidth(kLine);
    canvas_.strokePath(outline, *set_.essential().subdued());
    drawLine(canvas_, label, style, set_.text().base(), box, Alignment::middle);
  }

  Platform::Canvas& canvas_;
  const Theme::ColorSet& set_;
  Platform::ImagePtr media_;  // null where the set has a ground of its own
  CGFloat top_ = kMargin;
};

}  // namespace

void paintThemeTile(Platform::Canvas& canvas, const Theme::ColorSet& set, Platform::CGPoint at) {
  constexpr CGFloat kInset = Spacer::x12().value(), kDot = 8;
  const CGRect tile{at, kThemeTile};
  canvas.save();
  canvas.clipToPath(Platform::UIBezierPath::bezierPathWithRect(tile));
  if (set.background().base()->alpha() < 1) drawAtPoint(*landscape(kThemeTile.width), canvas, at);
  canvas.fillRect(tile, *set.background().base());
  canvas.restore();
  const CGFloat left = at.x + kInset, right = at.x + kThemeTile.width - kInset;
  drawLine(canvas, "Aa", TypeStyle::canon(), set.text().base(),
           {{left, at.y + kInset}, {kThemeTile.width, kSmallIcon}});
  drawIcon(canvas, Icon::heartActive(), set.essential().brightAccent(), {right - kSmallIcon, at.y + kInset},
           kSmallIcon);
  const auto& essential = set.essential();
  const ColorPtr* const accents[] = {&essential.brightAccent(), &essential.negative(), &essential.warning(),
                                     &essential.positive(), &essential.announcement()};
  CGFloat x = left;
  for (const ColorPtr* accent : accents) {
    const CGRect dot{{x, at.y + kThemeTile.height - kInset - kDot}, {kDot, kDot}};
    canvas.fillPath(Platform::UIBezierPath::bezierPathWithOvalInRect(dot), **accent);
    x += kDot + Spacer::x8().value();
  }
}

void paintThemeCard(Platform::Canvas& canvas, const Theme::ColorSet& set) { Card(canvas, set).paint(); }

}  // namespace Brisel::Gallery
