// Colours by role: a theme is ten colour sets, a colour set 28 colours in four groups.
#pragma once

#include <utility>

#include "brisel/platform/color.h"
#include "brisel/platform/internal/hash.h"
#include "brisel/tokens/internal/swatch.h"

namespace Brisel {

namespace internal {
class SlotReader;
}

/// Ten colour sets, one for each semantic context. Views ask for `theme.negative().text().subdued()`, say, and never
/// pick palette colours.
///
/// A theme and all its parts are immutable values. They are equal when their colours are (form and components, not
/// identity), field by field in declaration order, which is also the order of construction, hashing and slots. A null
/// colour given to a constructor is a programming error. Copies share the colours.
class Theme {
  using ColorPtr = Platform::ColorPtr;
  using Swatch = internal::Swatch;
  using Hasher = Platform::internal::Hasher;
  struct TextRole;
  struct EssentialRole;

 public:
  /// The colours of something that can be interacted with.
  class State {
   public:
    /// A state of three colours.
    explicit State(ColorPtr base, ColorPtr highlight, ColorPtr press)
        : base_(std::move(base)), highlight_(std::move(highlight)), press_(std::move(press)) {}

    const ColorPtr& base() const noexcept { return base_.color(); }            ///< resting
    const ColorPtr& highlight() const noexcept { return highlight_.color(); }  ///< hovered or highlighted
    const ColorPtr& press() const noexcept { return press_.color(); }          ///< pressed

    friend bool operator==(const State&, const State&) = default;
    friend void hashInto(Hasher& hasher, const State& v) { hasher(v.base_, v.highlight_, v.press_); }

   private:
    friend class internal::SlotReader;
    explicit State(internal::SlotReader& slots);

    Swatch base_, highlight_, press_;
  };

  /// Three named states, and a plain one that has no name: its colours are the background's own `base()`,
  /// `highlight()` and `press()`. It is the last field, behind the named ones.
  class Background {
   public:
    /// A background of its named states and the plain one.
    explicit Background(State elevated, State tinted, State unsafeForSmallText, State plain)
        : elevated_(std::move(elevated)),
          tinted_(std::move(tinted)),
          unsafeForSmallText_(std::move(unsafeForSmallText)),
          plain_(std::move(plain)) {}

    /// The plain state, resting.
    const ColorPtr& base() const noexcept { return plain_.base(); }
    /// The plain state, hovered or highlighted.
    const ColorPtr& highlight() const noexcept { return plain_.highlight(); }
    /// The plain state, pressed.
    const ColorPtr& press() const noexcept { return plain_.press(); }
    const State& elevated() const noexcept { return elevated_; }  ///< raised surfaces: cards, sheets
    const State& tinted() const noexcept { return tinted_; }      ///< a translucent tint over the surface
    /// A surface colour on which small text must not be set.
    const State& unsafeForSmallText() const noexcept { return unsafeForSmallText_; }

    friend bool operator==(const Background&, const Background&) = default;
    friend void hashInto(Hasher& hasher, const Background& v) {
      hasher(v.elevated_, v.tinted_, v.unsafeForSmallText_, v.plain_);
    }

   private:
    friend class internal::SlotReader;
    explicit Background(internal::SlotReader& slots);

    State elevated_, tinted_, unsafeForSmallText_, plain_;
  };

  /// What `Text` and `Essential` share: their shape. They are different types, which cannot be taken for each other.
  template <class Role>
  class Foreground {
   public:
    /// A foreground of seven colours.
    explicit Foreground(ColorPtr base, ColorPtr subdued, ColorPtr brightAccent, ColorPtr negative, ColorPtr warning,
                        ColorPtr positive, ColorPtr announcement)
        : base_(std::move(base)),
          subdued_(std::move(subdued)),
          brightAccent_(std::move(brightAccent)),
          negative_(std::move(negative)),
          warning_(std::move(warning)),
          positive_(std::move(positive)),
          announcement_(std::move(announcement)) {}

    const ColorPtr& base() const noexcept { return base_.color(); }                  ///< ordinary
    const ColorPtr& subdued() const noexcept { return subdued_.color(); }            ///< less prominent
    const ColorPtr& brightAccent() const noexcept { return brightAccent_.color(); }  ///< what stands out most
    const ColorPtr& negative() const noexcept { return negative_.color(); }          ///< errors and what destroys
    const ColorPtr& warning() const noexcept { return warning_.color(); }            ///< warnings
    const ColorPtr& positive() const noexcept { return positive_.color(); }          ///< success
    const ColorPtr& announcement() const noexcept { return announcement_.color(); }  ///< announcements that inform

    friend bool operator==(const Foreground&, const Foreground&) = default;
    friend void hashInto(Hasher& hasher, const Foreground& v) {
      hasher(v.base_, v.subdued_, v.brightAccent_, v.negative_, v.warning_, v.positive_, v.announcement_);
    }

   private:
    friend class internal::SlotReader;
    explicit Foreground(internal::SlotReader& slots);

    Swatch base_, subdued_, brightAccent_, negative_, warning_, positive_, announcement_;
  };

  /// The colours of text.
  using Text = Foreground<TextRole>;
  /// Foreground that is not text: icons and controls.
  using Essential = Foreground<EssentialRole>;

  /// What carries no meaning: ornaments and lines that part.
  class Decorative {
   public:
    /// A pair of colours.
    explicit Decorative(ColorPtr base, ColorPtr subdued) : base_(std::move(base)), subdued_(std::move(subdued)) {}

    const ColorPtr& base() const noexcept { return base_.color(); }        ///< ordinary
    const ColorPtr& subdued() const noexcept { return subdued_.color(); }  ///< less prominent

    friend bool operator==(const Decorative&, const Decorative&) = default;
    friend void hashInto(Hasher& hasher, const Decorative& v) { hasher(v.base_, v.subdued_); }

   private:
    friend class internal::SlotReader;
    explicit Decorative(internal::SlotReader& slots);

    Swatch base_, subdued_;
  };

  /// The 28 colours of one context.
  class ColorSet {
   public:
    /// A colour set of its four groups.
    explicit ColorSet(Background background, Text text, Essential essential, Decorative decorative)
        : background_(std::move(background)),
          text_(std::move(text)),
          essential_(std::move(essential)),
          decorative_(std::move(decorative)) {}

    /// What everything else stands on.
    const Background& background() const noexcept { return background_; }
    /// What is read.
    const Text& text() const noexcept { return text_; }
    /// Icons and controls.
    const Essential& essential() const noexcept { return essential_; }
    /// What could be left out.
    const Decorative& decorative() const noexcept { return decorative_; }

    friend bool operator==(const ColorSet&, const ColorSet&) = default;
    friend void hashInto(Hasher& hasher, const ColorSet& v) {
      hasher(v.background_, v.text_, v.essential_, v.decorative_);
    }

    /// Colour sets that stand alone, for surfaces that take on the look of a campaign or of a plan: a view takes one in
    /// place of a theme's. Each is built on first use, from any thread, and never destroyed.
    class Campaign {
     public:
      Campaign() = delete;

#define BRISEL_CAMPAIGN(name, ...) static const ColorSet& name() noexcept;
#include "brisel/themes/campaign.def"
    };

   private:
    friend class internal::SlotReader;
    explicit ColorSet(internal::SlotReader& slots);

    Background background_;
    Text text_;
    Essential essential_;
    Decorative decorative_;
  };

  /// A theme of ten colour sets; for hosts with a theme of their own.
  explicit Theme(ColorSet base, ColorSet brightAccent, ColorSet negative, ColorSet warning, ColorSet positive,
                 ColorSet announcement, ColorSet invertedDark, ColorSet invertedLight, ColorSet mutedAccent,
                 ColorSet overMedia)
      : base_(std::move(base)),
        brightAccent_(std::move(brightAccent)),
        negative_(std::move(negative)),
        warning_(std::move(warning)),
        positive_(std::move(positive)),
        announcement_(std::move(announcement)),
        invertedDark_(std::move(invertedDark)),
        invertedLight_(std::move(invertedLight)),
        mutedAccent_(std::move(mutedAccent)),
        overMedia_(std::move(overMedia)) {}

  /// The one theme that ships. Built on first use, from any thread, and never destroyed.
  static const Theme& dark() noexcept;

  const ColorSet& base() const noexcept { return base_; }                    ///< ordinary surfaces
  const ColorSet& brightAccent() const noexcept { return brightAccent_; }    ///< surfaces in the bright accent colour
  const ColorSet& negative() const noexcept { return negative_; }            ///< errors and what destroys
  const ColorSet& warning() const noexcept { return warning_; }              ///< warnings
  const ColorSet& positive() const noexcept { return positive_; }            ///< success
  const ColorSet& announcement() const noexcept { return announcement_; }    ///< announcements that inform
  const ColorSet& invertedDark() const noexcept { return invertedDark_; }    ///< a dark inverted surface
  const ColorSet& invertedLight() const noexcept { return invertedLight_; }  ///< a light inverted surface
  const ColorSet& mutedAccent() const noexcept { return mutedAccent_; }      ///< a muted accent surface
  const ColorSet& overMedia() const noexcept { return overMedia_; }          ///< content over images or video

  friend bool operator==(const Theme&, const Theme&) = default;
  friend void hashInto(Hasher& hasher, const Theme& v) {
    hasher(v.base_, v.brightAccent_, v.negative_, v.warning_, v.positive_, v.announcement_, v.invertedDark_,
           v.invertedLight_, v.mutedAccent_, v.overMedia_);
  }

 private:
  ColorSet base_, brightAccent_, negative_, warning_, positive_, announcement_, invertedDark_, invertedLight_,
      mutedAccent_, overMedia_;
};

}  // namespace Brisel

template <>
struct std::hash<Brisel::Theme> : Brisel::Platform::internal::FieldHash<Brisel::Theme> {};
template <>
struct std::hash<Brisel::Theme::ColorSet> : Brisel::Platform::internal::FieldHash<Brisel::Theme::ColorSet> {};
template <>
struct std::hash<Brisel::Theme::Background> : Brisel::Platform::internal::FieldHash<Brisel::Theme::Background> {};
template <>
struct std::hash<Brisel::Theme::Text> : Brisel::Platform::internal::FieldHash<Brisel::Theme::Text> {};
template <>
struct std::hash<Brisel::Theme::Essential> : Brisel::Platform::internal::FieldHash<Brisel::Theme::Essential> {};
template <>
struct std::hash<Brisel::Theme::Decorative> : Brisel::Platform::internal::FieldHash<Brisel::Theme::Decorative> {};
template <>
struct std::hash<Brisel::Theme::State> : Brisel::Platform::internal::FieldHash<Brisel::Theme::State> {};
