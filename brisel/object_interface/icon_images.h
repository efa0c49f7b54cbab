// The object interface of icon images. Each is `Brisel::image` (icons/icon_image.h), with what its name leaves out
// filled in. Class methods of `UIImage`, and so without a receiver.
#pragma once

#include <memory>

#include "brisel/object_interface/icons.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"

// --- Of an icon object ---
//
// A null icon gives a blank image of `imageSize`. Without a glyph size the font size decides (above 16.0 points the
// 24-point design); a number that is neither small nor medium is a programming error.

/// `briselSwift_imageForIcon:size:color:backgroundColor:`: box and image of one size.
Brisel::Platform::ImagePtr briselSwift_imageForIcon(const std::shared_ptr<const VLMBriselSwiftIcons>& icon,
                                                    Brisel::Platform::CGSize size,
                                                    const Brisel::Platform::ColorPtr& color,
                                                    const Brisel::Platform::ColorPtr& backgroundColor);
/// `briselSwift_imageForIcon:size:glyphSize:color:backgroundColor:`: with a design that is given.
Brisel::Platform::ImagePtr briselSwift_imageForIcon(const std::shared_ptr<const VLMBriselSwiftIcons>& icon,
                                                    Brisel::Platform::CGSize size, VLMBriselIconGlyphSize glyphSize,
                                                    const Brisel::Platform::ColorPtr& color,
                                                    const Brisel::Platform::ColorPtr& backgroundColor);
/// `briselSwift_imageForIcon:iconSize:imageSize:color:backgroundColor:offset:`: a box of its own size, moved from the
/// middle of the image.
Brisel::Platform::ImagePtr briselSwift_imageForIcon(const std::shared_ptr<const VLMBriselSwiftIcons>& icon,
                                                    Brisel::Platform::CGSize iconSize,
                                                    Brisel::Platform::CGSize imageSize,
                                                    const Brisel::Platform::ColorPtr& color,
                                                    const Brisel::Platform::ColorPtr& backgroundColor,
                                                    Brisel::Platform::CGPoint offset);
/// `briselSwift_imageForIcon:iconSize:imageSize:glyphSize:color:backgroundColor:offset:`: with all that can be said.
Brisel::Platform::ImagePtr briselSwift_imageForIcon(
    const std::shared_ptr<const VLMBriselSwiftIcons>& icon, Brisel::Platform::CGSize iconSize,
    Brisel::Platform::CGSize imageSize, VLMBriselIconGlyphSize glyphSize, const Brisel::Platform::ColorPtr& color,
    const Brisel::Platform::ColorPtr& backgroundColor, Brisel::Platform::CGPoint offset);

// --- Of an icon's number ---
//
// A number that is no icon gives a blank image. Without a glyph size the height of the box decides (above 20.0 points
// the 24-point design), unlike for icon objects; this is deliberate. A glyph size that is neither small nor medium
// counts as medium. Without colours the icon is white on nothing.

/// `brisel_imageForIcon:size:`: in white on nothing.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize size);
/// `brisel_imageForIcon:size:color:`: on nothing.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize size,
                                               const Brisel::Platform::ColorPtr& color);
/// `brisel_imageForIcon:size:color:backgroundColor:`: box and image of one size.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize size,
                                               const Brisel::Platform::ColorPtr& color,
                                               const Brisel::Platform::ColorPtr& backgroundColor);
/// `brisel_imageForIcon:size:glyphSize:color:backgroundColor:`: with a design that is given.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize size,
                                               VLMBriselIconGlyphSize glyphSize,
                                               const Brisel::Platform::ColorPtr& color,
                                               const Brisel::Platform::ColorPtr& backgroundColor);
/// `brisel_imageForIcon:iconSize:imageSize:color:`: a box of its own size in the middle, on nothing.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize iconSize,
                                               Brisel::Platform::CGSize imageSize,
                                               const Brisel::Platform::ColorPtr& color);
/// `brisel_imageForIcon:iconSize:imageSize:color:backgroundColor:`: a box of its own size in the middle.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize iconSize,
                                               Brisel::Platform::CGSize imageSize,
                                               const Brisel::Platform::ColorPtr& color,
                                               const Brisel::Platform::ColorPtr& backgroundColor);
/// `brisel_imageForIcon:iconSize:imageSize:color:backgroundColor:offset:`: a box of its own size, moved from the middle
/// of the image.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize iconSize,
                                               Brisel::Platform::CGSize imageSize,
                                               const Brisel::Platform::ColorPtr& color,
                                               const Brisel::Platform::ColorPtr& backgroundColor,
                                               Brisel::Platform::CGPoint offset);
/// `brisel_imageForIcon:iconSize:imageSize:glyphSize:color:backgroundColor:offset:`: with all that can be said.
Brisel::Platform::ImagePtr brisel_imageForIcon(VLMBriselIcon icon, Brisel::Platform::CGSize iconSize,
                                               Brisel::Platform::CGSize imageSize, VLMBriselIconGlyphSize glyphSize,
                                               const Brisel::Platform::ColorPtr& color,
                                               const Brisel::Platform::ColorPtr& backgroundColor,
                                               Brisel::Platform::CGPoint offset);
