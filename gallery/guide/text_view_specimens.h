// The text views that the style guide shows: each is a tree of views, laid out and styled for a text size.
#pragma once

#include <cstdint>
#include <string_view>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/views/button.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

#include "gallery/guide/view_column.h"

namespace Brisel::Gallery {

/// How wide specimens are, in points: narrow screens have room for them.
inline constexpr Platform::CGFloat kSpecimenWidth = 280;

/// The sentence that labels show, in English and in Arabic.
inline constexpr std::string_view kSentence = "The harbour band plays until the last ferry leaves";
inline constexpr std::string_view kArabicSentence = "تعزف فرقة المرفأ حتى تغادر آخر عبّارة";
/// The text of the text view: two paragraphs.
inline constexpr std::string_view kParagraphs =
    "Recorded in one night on the pier, with the gulls for a choir.\nThe sea keeps time.";
inline constexpr std::string_view kFieldText = "Night Ferry";
inline constexpr std::string_view kPlaceholder = "Artists, songs, albums";

ViewPtr wrappedLabel(ContentSizeCategory category);
ViewPtr truncatedLabel(ContentSizeCategory category);
ViewPtr shrinkingLabel(ContentSizeCategory category);
ViewPtr rightToLeftLabel(ContentSizeCategory category);
ViewPtr filledTextField(ContentSizeCategory category);
ViewPtr emptyTextField(ContentSizeCategory category);
ViewPtr paragraphTextView(ContentSizeCategory category);
ViewPtr followButton(Platform::UIControlState state, ContentSizeCategory category);

/// A legacy label in a window whose traits hold the category.
ViewPtr legacyLabel(bool isUsingDynamicType, const Platform::UIContentSizeCategory& maxContentSizeCategory,
                    ContentSizeCategory category);

/// A title that a label shows in a style, made smaller to fit as the style allows.
struct FittedTitle {
  ViewPtr view;
  Platform::CGFloat pointsBefore = 0, pointsAfter = 0;
  bool fits = false;
};
FittedTitle fittedTitle(std::string_view title, const TypeStyle& style, std::int64_t numberOfLines,
                        ContentSizeCategory category);

/// How a label and a text view came by the style that they have before the text size changes.
enum class Styling : std::uint8_t {
  subscribed,  ///< once, with the flag on
  once,        ///< once, with the flag off
  restyled,    ///< with the flag on, and then in another style with the flag off
};
struct LabelAndTextView {
  ViewPtr label, textView;
};
/// Both as they are styled at the default text size.
LabelAndTextView beforeChange(Styling styling);
/// Both after the text size has changed from the default to this one. Changes it back.
LabelAndTextView afterChange(Styling styling, ContentSizeCategory category);

/// A small screen of text views, for the start page.
ViewPtr textViewScreen(Platform::CGFloat width, ContentSizeCategory category);

}  // namespace Brisel::Gallery
