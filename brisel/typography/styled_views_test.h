// What tests of styles on text views share.
#pragma once

#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/color.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/font.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/type_style.h"

#include "tests/recording_ports.h"

namespace Brisel {

inline const Platform::UIContentSizeCategory& kSmall = Platform::UIContentSizeCategorySmall;
inline const Platform::UIContentSizeCategory& kLarge = Platform::UIContentSizeCategoryLarge;
inline const Platform::UIContentSizeCategory& kHuge = Platform::UIContentSizeCategoryAccessibilityLarge;

inline DynamicTypeMonitor& monitor() { return *DynamicTypeMonitor::shared(); }

inline Platform::CGFloat sizeIn(const TypeStyle& style, const Platform::UIContentSizeCategory& category) {
  return style.configuration().fontSize().value(category);
}

template <class View>
Platform::CGFloat fontSize(const View& view) {
  return view.font() ? view.font()->pointSize() : -1;
}

template <class T>
std::shared_ptr<const T> attributeAtStart(const Platform::NSAttributedString& string, std::string_view name) {
  const Platform::Value* const value = string.attribute(name, 0);
  return value ? value->as<T>() : nullptr;
}

inline Platform::CGFloat textSize(const std::shared_ptr<const Platform::NSAttributedString>& string) {
  return attributeAtStart<Platform::UIFont>(*string, Platform::NSFontAttributeName)->pointSize();
}

inline const Platform::ColorPtr& green() {
  static const Platform::ColorPtr color = std::make_shared<const Platform::UIColor>(Platform::UIColor::rgb(0, 1, 0, 1));
  return color;
}

/// The tests of one kind of view, on the recording engine.
class StyledViews : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }
};

}  // namespace Brisel
