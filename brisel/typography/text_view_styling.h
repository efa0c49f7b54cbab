// Styles put on the platform's text views, once or from now on.
#pragma once

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/views/button.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_field.h"
#include "brisel/platform/views/text_view.h"
#include "brisel/typography/type_style.h"

namespace Brisel {

/// `apply(typeStyle:contentSizeCategory:useDynamicTypeMonitor:)`: sets the label's font, and its text in the style at
/// the size for a category; alignment and line breaking stay. With the flag, the label is restyled at each later change
/// of the preferred category, with the category of that notification, until it is freed or unsubscribed; without it,
/// an earlier subscription stays as it is, with its own style. A label whose intrinsic size was known is measured with
/// the change.
///
/// A label that does not shrink its text, and whose minimum scale factor lies between 0 and 1, gets its text fitted
/// into its lines here; one that does shrink it gets it as it is. This polarity is deliberate.
void apply(Platform::UILabel& label, const TypeStyle& typeStyle,
           const Platform::UIContentSizeCategory& contentSizeCategory, bool useDynamicTypeMonitor);
void apply(Platform::UILabel& label, const TypeStyle& typeStyle,
           const Platform::UIContentSizeCategory& contentSizeCategory, const void*) = delete;
/// Ends the label's subscription; it keeps its styling. (Published on the object interface alone.)
void disableDynamicTypeMonitor(Platform::UILabel& label);

/// `apply(typeStyle:with:)`: sets the field's default text attributes, and its text, if there is any, in the style.
void apply(Platform::UITextField& textField, const TypeStyle& typeStyle,
           const Platform::UIContentSizeCategory& contentSizeCategory);
/// `applyPlaceholder(typeStyle:with:)`: sets the placeholder, if there is any, in the style, and nothing else.
void applyPlaceholder(Platform::UITextField& textField, const TypeStyle& typeStyle,
                      const Platform::UIContentSizeCategory& contentSizeCategory);

/// `apply(typeStyle:with:useDynamicTypeMonitor:)`: sets the text view's font, and its text in the style; alignment and
/// colour stay. With the flag, it is restyled at each later change, deliberately with the monitor's own category and
/// not the notification's.
void apply(Platform::UITextView& textView, const TypeStyle& typeStyle,
           const Platform::UIContentSizeCategory& contentSizeCategory, bool useDynamicTypeMonitor);
void apply(Platform::UITextView& textView, const TypeStyle& typeStyle,
           const Platform::UIContentSizeCategory& contentSizeCategory, const void*) = delete;
/// Ends the text view's subscription; it keeps its styling.
void disableDynamicTypeMonitor(Platform::UITextView& textView);

/// `apply(typeStyle:with:)`: sets the titles of all states in the style, each as `apply` for one state does.
void apply(Platform::UIButton& button, const TypeStyle& typeStyle,
           const Platform::UIContentSizeCategory& contentSizeCategory);
/// `apply(typeStyle:for:with:)`: sets the title of one state, if it has one of its own, in the style and in the colour
/// of that state.
void apply(Platform::UIButton& button, const TypeStyle& typeStyle, Platform::UIControlState state,
           const Platform::UIContentSizeCategory& contentSizeCategory);

}  // namespace Brisel
