#include "brisel/platform/attributed_string.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/typography/type_style.h"

namespace Brisel {

using Platform::UIContentSizeCategory;

std::shared_ptr<const Platform::UIFont> TypeStyle::font(const UIContentSizeCategory& contentSizeCategory) const {
  return Font::font(primaryFont_, fallbackFonts_, fontWeight_, configuration_.fontSize().value(contentSizeCategory),
                    configuration_.fontFeatures());
}

Platform::Dictionary TypeStyle::stringAttributes(const UIContentSizeCategory& contentSizeCategory) const {
  return {{Platform::NSFontAttributeName, font(contentSizeCategory)}};
}

}  // namespace Brisel
