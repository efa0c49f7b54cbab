#pragma once

#include <string>

#include <gtest/gtest.h>

#include "brisel/platform/bitmap.h"

namespace Brisel::Pictures {

/// Whether the picture equals references/<name>.png in every byte. Where not, the picture is written to out/pictures/
/// for somebody to look at, and <name>-difference.png beside it; once found right, it may be stored as the reference.
testing::AssertionResult equalsReference(const Platform::Bitmap& picture, const std::string& name);

}  // namespace Brisel::Pictures
