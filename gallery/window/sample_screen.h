#pragma once

#include <memory>
#include <string>

#include "brisel/platform/image.h"
#include "brisel/platform/views/window.h"
#include "brisel/typography/content_size_category.h"

#include "gallery/code_names.h"
#include "gallery/window/sample_content.h"
#include "gallery/window/scroll_view.h"
#include "gallery/window/slider_view.h"
#include "gallery/window/styled_views.h"

namespace Brisel::Gallery {

/// The style guide as a tree of views: text in several styles and scripts, fields, buttons and icons. Above them stands
/// the slider of text sizes, below them a line of help.
///
/// It follows the preferred text size, of which `DynamicTypeMonitor` tells. For the main thread only.
class SampleScreen {
 public:
  /// `size` is in points.
  SampleScreen(Platform::CGSize size, const NamedColorSet& colors, Platform::UIUserInterfaceLayoutDirection direction);
  SampleScreen(const SampleScreen&) = delete;
  SampleScreen& operator=(const SampleScreen&) = delete;
  ~SampleScreen();

  void setSize(Platform::CGSize size);
  void setColors(const NamedColorSet& colors);
  void setDirection(Platform::UIUserInterfaceLayoutDirection direction);
  Platform::UIUserInterfaceLayoutDirection direction() const noexcept { return direction_; }
  /// Moves the content by points, as far as there is more of it.
  void scrollBy(Platform::CGFloat points);
  /// Points of the content that are in sight.
  Platform::CGFloat visibleHeight();

  /// Whether it would look other than when it was drawn last.
  bool needsDisplay() const noexcept { return needsDisplay_; }
  /// To be called by whoever has changed one of its views.
  void setNeedsDisplay() noexcept { needsDisplay_ = true; }
  /// Lays out and draws. Empty where it would have too many pixels.
  Platform::ImagePtr draw(Platform::CGFloat scale);

  /// The height, in points, at which nothing has to be scrolled.
  Platform::CGFloat wholeHeight();

  // For what is done with the pointer, and for tests.
  Platform::UIWindow& window();  ///< laid out
  ContentSizeCategory textSize() const noexcept { return category_; }
  const std::shared_ptr<SliderView>& slider() const noexcept { return slider_; }
  const StyledViews& views() const noexcept { return views_; }
  const std::shared_ptr<ScrollView>& scroll() const noexcept { return scroll_; }

 private:
  void build();
  std::shared_ptr<Platform::UIView> makeBar();
  std::shared_ptr<Platform::UIView> makeHelp();
  void textSizeDidChange(const Platform::UIContentSizeCategory& category);
  void tellSurroundings();
  void describe();
  void layOut();

  const std::shared_ptr<Platform::UIWindow> window_;
  StyledViews views_;
  std::string colorsName_;
  Platform::UIUserInterfaceLayoutDirection direction_;
  ContentSizeCategory category_;
  SampleContent content_;
  std::shared_ptr<ScrollView> scroll_;
  std::shared_ptr<SliderView> slider_;
  std::shared_ptr<Platform::UILabel> status_;
  Platform::CGFloat fittedWidth_ = -1;  // points; of the title, when it was fitted last
  bool needsDisplay_ = true;
  const std::shared_ptr<const bool> subscriber_ = std::make_shared<const bool>();
};

}  // namespace Brisel::Gallery
