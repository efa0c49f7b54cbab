#include "brisel/typography/styled_string.h"

#include <string>

#include "brisel/platform/views/text_case.h"

namespace Brisel {

std::shared_ptr<Platform::NSMutableAttributedString> attributedString(
    std::string_view string, const TypeStyle& typeStyle, const Platform::UIContentSizeCategory& contentSizeCategory,
    const Platform::Dictionary& baseAttributes) {
  const Platform::Dictionary attributes = baseAttributes.mergedWith(typeStyle.stringAttributes(contentSizeCategory));
  const bool usesUpperCase = typeStyle.configuration().usesUpperCaseLayout();
  auto styled = Platform::NSMutableAttributedString::initWithString(
      usesUpperCase ? Platform::upperCased(string) : std::string(string), attributes);
  styled->fixAttributesInRange({0, styled->length()});
  return styled;
}

}  // namespace Brisel
