#pragma once

#include <cstdint>
#include <memory>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/views/view.h"

namespace Brisel::internal {

/// A styled text as `attributedString` for a view makes it smaller; the text itself where there is nothing to fit.
std::shared_ptr<const Platform::NSAttributedString> fitted(
    const std::shared_ptr<const Platform::NSAttributedString>& styled, double minimumScaleFactor,
    std::int64_t maxNumberOfLines, Platform::UIView& target);

}  // namespace Brisel::internal
