#include "brisel/platform/font.h"

#include <cmath>
#include <utility>

#include "brisel/platform/fatal_error.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {

std::shared_ptr<const UIFont> UIFont::fontWithDescriptor(std::shared_ptr<const UIFontDescriptor> descriptor,
                                                         CGFloat size) {
  if (!descriptor) fatalError("A font needs a descriptor");
  if (!std::isfinite(size) || size < 0) size = 0;
  if (descriptor->pointSize() != size)
    descriptor = descriptor->fontDescriptorByAddingAttributes({{UIFontDescriptorSizeAttribute, size}});
  auto typeface = engine().typeface(descriptor->typefaceRequest());
  return std::shared_ptr<const UIFont>(new UIFont(std::move(descriptor), size, std::move(typeface)));
}

std::shared_ptr<const UIFont> UIFont::fontWithSize(CGFloat size) const { return fontWithDescriptor(descriptor_, size); }

}  // namespace Brisel::Platform
