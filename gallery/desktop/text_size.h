// The user's text size, as a desktop states it and as the library does.
#pragma once

#include <optional>
#include <string_view>

#include "brisel/typography/content_size_category.h"

namespace Brisel::Gallery {

/// The category nearest to a desktop's text scaling factor: running text at each category has this size against that at
/// `large`, and the boundaries lie midway.
///
///     extraSmall  small   medium  large   extraLarge  extraExtraLarge  extraExtraExtraLarge
///     0.82        0.88    0.94    1       1.12        1.24             1.35
///            0.85     0.91    0.97   1.06        1.18           1.295
///
///     accessibility: Medium  Large   ExtraLarge  ExtraExtraLarge  ExtraExtraExtraLarge
///                    1.65    1.94    2.35        2.76             3.12
///                 1.5   1.795   2.145      2.555            2.94
///
/// On a boundary it is the smaller category. Nothing for what no desktop offers: factors that are not a number, or not
/// within 0.5 … 3.
std::optional<ContentSizeCategory> categoryForTextScalingFactor(double factor) noexcept;

/// Whether the text scaling factor of GNOME's settings is the user's choice on a desktop, by the names in
/// $XDG_CURRENT_DESKTOP, parted by colons. On others (KDE, COSMIC …) it may be left over from an earlier session.
bool hasTextScalingFactor(std::string_view desktops) noexcept;

/// Tells the library of the user's preferred text size, by the platform's notification.
void announceTextSize(ContentSizeCategory category);

}  // namespace Brisel::Gallery
