#include "brisel/typography/styled_string.h"

#include "brisel/platform/views/text_case.h"

namespace Brisel {

std::shared_ptr<Platform::NSMutableAttributedString> attributedString(
    std::string_view string, const TypeStyle& typeStyle, const Platform::UIContentSizeCategory& contentSizeCategory,
    const Platform::Dictionary& baseAttributes) {
  const Platform::Dictionary attributes = baseAttributes.mergedWith(typeStyle.stringAttributes(contentSizeCategory));
  if (!typeStyle.configuration().usesUpperCaseLayout())
    return Platform::NSMutableAttributedString::initWithString(string, attributes);
  return Platform::NSMutableAttributedString::initWithString(Platform::upperCased(string), attributes);
}

}  // namespace Brisel
