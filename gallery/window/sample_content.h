#pragma once

#include <memory>
#include <string_view>

#include "brisel/platform/views/label.h"
#include "brisel/platform/views/view.h"

#include "gallery/window/placing.h"
#include "gallery/window/styled_views.h"

namespace Brisel::Gallery {

/// What a sample screen shows: a title, and below it type styles, and beside or below these fields, buttons and icons.
class SampleContent {
 public:
  /// `views` makes all that there is.
  explicit SampleContent(StyledViews& views);

  const std::shared_ptr<Platform::UIView>& view() const noexcept { return view_; }

  /// Sets the type styles beside the others, or above them.
  void setTwoColumns(bool isTwoColumns);
  bool isTwoColumns() const noexcept { return isTwoColumns_; }

  /// Fits the title into one line of the width that it was laid out at.
  void fitTitle(const Platform::UIContentSizeCategory& category);

 private:
  std::shared_ptr<Platform::UIView> makeHead();
  std::shared_ptr<Platform::UIView> makeStyles();
  std::shared_ptr<Platform::UIView> makeControls();
  std::shared_ptr<Platform::UIView> makeIcons();
  std::shared_ptr<Platform::UIView> makeRoles();
  void addHeading(Column& column, std::string_view text);

  StyledViews& views_;
  std::shared_ptr<Platform::UIView> view_;
  std::shared_ptr<Platform::UILabel> title_;
  Constraints oneColumn_, twoColumns_;
  bool isTwoColumns_ = false;
};

}  // namespace Brisel::Gallery
