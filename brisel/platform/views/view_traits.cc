// What a view is told of its surroundings.
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

void UIView::surroundingsDidChange() {}

}  // namespace Brisel::Platform
