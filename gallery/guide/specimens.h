// What pages with text share: specimens that follow the text-size control.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/color.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

#include "gallery/guide/picture_book.h"

namespace Brisel::Gallery {

/// What specimens stand on: the theme's elevated ground.
const Platform::UIColor& specimenGround();

/// A text in a style and the theme's text colour.
std::shared_ptr<const Platform::NSAttributedString> specimenText(std::string_view text, const TypeStyle& style,
                                                                 ContentSizeCategory category);

/// The control that the page's specimens follow.
std::string textSizeControl();

/// The attributes of an image that has one picture for each category, from the smallest on. The largest, in which no
/// style grows any more, share one. `plan` plans the picture of one, under a path.
std::string followingPicture(const std::string& path,
                             const std::function<Picture(const std::string& path, ContentSizeCategory category)>& plan);

/// An element whose text follows the control: one text for each picture of such an image.
std::string followingText(const std::vector<std::string>& texts);

/// The style's point sizes in all categories, separated by blanks.
std::string pointSizes(const TypeStyle& style);
/// Its point size in the default category.
std::string defaultPointSize(const TypeStyle& style);

}  // namespace Brisel::Gallery
