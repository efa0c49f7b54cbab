// The object interface of the themes. Each class wraps one value of `Brisel::Theme`, or a part of one, and is
// immutable; it is equal to itself alone. The value is copied in, and can be had back.
//
// A property that returns such an object makes a new one each time, unless it says otherwise. A colour is the value's
// own, the same instance each time, and outlives the object that it was read from.
#pragma once

#include <cstddef>
#include <memory>

#include "brisel/platform/color.h"
#include "brisel/platform/object.h"
#include "brisel/themes/theme.h"

/// `Brisel::Theme::State` as an object.
class VLMBriselColorThemeColorState final : public Brisel::Platform::NSObject {
  using ColorPtr = Brisel::Platform::ColorPtr;

 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The value that it wraps.
  const Brisel::Theme::State& state() const noexcept { return state_; }

  ColorPtr base() const noexcept { return state_.base(); }            ///< resting
  ColorPtr highlight() const noexcept { return state_.highlight(); }  ///< hovered or highlighted
  ColorPtr press() const noexcept { return state_.press(); }          ///< pressed

 private:
  friend class VLMBriselColorThemeBackgroundColors;
  explicit VLMBriselColorThemeColorState(const Brisel::Theme::State& state) : state_(state) {}

  Brisel::Theme::State state_;
};

/// `Brisel::Theme::Background` as an object.
class VLMBriselColorThemeBackgroundColors final : public Brisel::Platform::NSObject {
  using ColorPtr = Brisel::Platform::ColorPtr;
  using StatePtr = std::shared_ptr<const VLMBriselColorThemeColorState>;

 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The value that it wraps.
  const Brisel::Theme::Background& background() const noexcept { return background_; }

  StatePtr elevated() const;            ///< raised surfaces: cards, sheets
  StatePtr tinted() const;              ///< a translucent tint over the surface
  StatePtr unsafeForSmallText() const;  ///< a surface colour on which small text must not be set
  ColorPtr base() const noexcept { return background_.base(); }            ///< the plain state, resting
  ColorPtr highlight() const noexcept { return background_.highlight(); }  ///< the plain state, hovered or highlighted
  ColorPtr press() const noexcept { return background_.press(); }          ///< the plain state, pressed

 private:
  friend class VLMBriselColorThemeColorSet;
  explicit VLMBriselColorThemeBackgroundColors(const Brisel::Theme::Background& background) : background_(background) {}

  Brisel::Theme::Background background_;
};

/// `Brisel::Theme::Text` as an object.
class VLMBriselColorThemeTextColors final : public Brisel::Platform::NSObject {
  using ColorPtr = Brisel::Platform::ColorPtr;

 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The value that it wraps.
  const Brisel::Theme::Text& text() const noexcept { return text_; }

  ColorPtr base() const noexcept { return text_.base(); }                  ///< ordinary
  ColorPtr subdued() const noexcept { return text_.subdued(); }            ///< less prominent
  ColorPtr brightAccent() const noexcept { return text_.brightAccent(); }  ///< what stands out most
  ColorPtr negative() const noexcept { return text_.negative(); }          ///< errors and what destroys
  ColorPtr warning() const noexcept { return text_.warning(); }            ///< warnings
  ColorPtr positive() const noexcept { return text_.positive(); }          ///< success
  ColorPtr announcement() const noexcept { return text_.announcement(); }  ///< announcements that inform

 private:
  friend class VLMBriselColorThemeColorSet;
  explicit VLMBriselColorThemeTextColors(const Brisel::Theme::Text& text) : text_(text) {}

  Brisel::Theme::Text text_;
};

/// `Brisel::Theme::Essential` as an object.
class VLMBriselColorThemeEssentialColors final : public Brisel::Platform::NSObject {
  using ColorPtr = Brisel::Platform::ColorPtr;

 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The value that it wraps.
  const Brisel::Theme::Essential& essential() const noexcept { return essential_; }

  ColorPtr base() const noexcept { return essential_.base(); }                  ///< ordinary
  ColorPtr subdued() const noexcept { return essential_.subdued(); }            ///< less prominent
  ColorPtr brightAccent() const noexcept { return essential_.brightAccent(); }  ///< what stands out most
  ColorPtr negative() const noexcept { return essential_.negative(); }          ///< errors and what destroys
  ColorPtr warning() const noexcept { return essential_.warning(); }            ///< warnings
  ColorPtr positive() const noexcept { return essential_.positive(); }          ///< success
  ColorPtr announcement() const noexcept { return essential_.announcement(); }  ///< announcements that inform

 private:
  friend class VLMBriselColorThemeColorSet;
  explicit VLMBriselColorThemeEssentialColors(const Brisel::Theme::Essential& essential) : essential_(essential) {}

  Brisel::Theme::Essential essential_;
};

/// `Brisel::Theme::Decorative` as an object.
class VLMBriselColorThemeDecorativeColors final : public Brisel::Platform::NSObject {
  using ColorPtr = Brisel::Platform::ColorPtr;

 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The value that it wraps.
  const Brisel::Theme::Decorative& decorative() const noexcept { return decorative_; }

  ColorPtr base() const noexcept { return decorative_.base(); }        ///< ordinary
  ColorPtr subdued() const noexcept { return decorative_.subdued(); }  ///< less prominent

 private:
  friend class VLMBriselColorThemeColorSet;
  explicit VLMBriselColorThemeDecorativeColors(const Brisel::Theme::Decorative& decorative) : decorative_(decorative) {}

  Brisel::Theme::Decorative decorative_;
};

/// `Brisel::Theme::ColorSet` as an object.
class VLMBriselColorThemeColorSet final : public Brisel::Platform::NSObject {
 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The value that it wraps.
  const Brisel::Theme::ColorSet& colorSet() const noexcept { return colorSet_; }

  std::shared_ptr<const VLMBriselColorThemeBackgroundColors> background() const;  ///< what everything else stands on
  std::shared_ptr<const VLMBriselColorThemeTextColors> text() const;              ///< what is read
  std::shared_ptr<const VLMBriselColorThemeEssentialColors> essential() const;    ///< icons and controls
  std::shared_ptr<const VLMBriselColorThemeDecorativeColors> decorative() const;  ///< what could be left out

 private:
  friend class VLMBriselCampaignColorSets;
  friend class VLMBriselColorTheme;
  explicit VLMBriselColorThemeColorSet(const Brisel::Theme::ColorSet& colorSet) : colorSet_(colorSet) {}

  Brisel::Theme::ColorSet colorSet_;
};

/// The colour sets of `Brisel::Theme::ColorSet::Campaign`, each wrapped once when the collection is made. A property
/// returns the object that the collection holds, the same one each time.
class VLMBriselCampaignColorSets final : public Brisel::Platform::NSObject {
  using ColorSetPtr = std::shared_ptr<const VLMBriselColorThemeColorSet>;

 public:
  /// Another collection, with objects of its own; `VLMBriselColorTheme::campaign()` is the one that is shared.
  static std::shared_ptr<const VLMBriselCampaignColorSets> init();

#define BRISEL_CAMPAIGN(name, ...) \
  const ColorSetPtr& name() const noexcept { return name##_; }
#include "brisel/themes/campaign.def"

 private:
  VLMBriselCampaignColorSets() = default;

#define BRISEL_CAMPAIGN(name, ...) \
  ColorSetPtr name##_{new VLMBriselColorThemeColorSet(Brisel::Theme::ColorSet::Campaign::name())};
#include "brisel/themes/campaign.def"
};

/// `Brisel::Theme` as an object.
class VLMBriselColorTheme final : public Brisel::Platform::NSObject {
  using ColorSetPtr = std::shared_ptr<const VLMBriselColorThemeColorSet>;

 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The one object around `Brisel::Theme::dark()`. Made on first use, from any thread, and never destroyed.
  static const std::shared_ptr<const VLMBriselColorTheme>& dark() noexcept;
  /// The one collection that is shared. Made on first use, from any thread, and never destroyed.
  static const std::shared_ptr<const VLMBriselCampaignColorSets>& campaign() noexcept;

  /// The value that it wraps.
  const Brisel::Theme& theme() const noexcept { return theme_; }

  ColorSetPtr base() const;           ///< ordinary surfaces
  ColorSetPtr brightAccent() const;   ///< surfaces in the bright accent colour
  ColorSetPtr negative() const;       ///< errors and what destroys
  ColorSetPtr warning() const;        ///< warnings
  ColorSetPtr positive() const;       ///< success
  ColorSetPtr announcement() const;   ///< announcements that inform
  ColorSetPtr invertedDark() const;   ///< a dark inverted surface
  ColorSetPtr invertedLight() const;  ///< a light inverted surface
  ColorSetPtr mutedAccent() const;    ///< a muted accent surface
  ColorSetPtr overMedia() const;      ///< content over images or video

 private:
  explicit VLMBriselColorTheme(const Brisel::Theme& theme) : theme_(theme) {}
  static std::shared_ptr<const VLMBriselColorTheme> makeDark(std::size_t);
  static std::shared_ptr<const VLMBriselCampaignColorSets> makeCampaign(std::size_t);
  static ColorSetPtr wrapped(const Brisel::Theme::ColorSet& colorSet);

  Brisel::Theme theme_;
};
