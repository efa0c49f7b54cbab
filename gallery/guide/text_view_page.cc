#include <cmath>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brisel/platform/content_size_category.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/specimens.h"
#include "gallery/guide/text_view_specimens.h"

namespace Brisel::Gallery {
namespace {

using Calls = std::vector<std::string_view>;  // on the value-type interface, then on the object interface

struct Title {
  std::string_view script, language, text;
};
constexpr Title kTitles[] = {
    {"Latin", "en", "The Longest Night of the Year"}, {"Arabic", "ar", "أطول ليلة في السنة كلها"},
    {"Hebrew", "he", "הלילה הארוך ביותר בכל השנה"},   {"Cyrillic", "ru", "Самая длинная ночь в этом году"},
    {"Greek", "el", "Η πιο μεγάλη νύχτα του χρόνου"}, {"Devanagari", "hi", "साल की सबसे लंबी रात का संगीत"},
};

// As exact as the text-size control says them.
std::string points(double size) { return decimal(std::round(size * 1000) / 1000); }

std::string outcome(const FittedTitle& title) {
  std::string text = points(title.pointsBefore);
  if (title.pointsAfter < title.pointsBefore) text += " → " + points(title.pointsAfter);
  return text + (title.fits ? " pt, fits" : " pt, does not fit");
}

class TextViewPage {
 public:
  explicit TextViewPage(PictureBook& pictures) : pictures_(pictures) {
    page_.file = "text-views.html";
    page_.name = "Text views";
  }

  Page make() && {
    labels();
    textFields();
    textViews();
    buttons();
    legacyLabels();
    page_.contents.emplace_back("fitting", "Fitting");
    page_.contents.emplace_back("after-a-change", "After a change");
    page_.markup = fillTemplate(siteFile("text_views.html"),
                                {{"control", textSizeControl()},
                                 {"kinds", sections_},
                                 {"width", decimal(kSpecimenWidth)},
                                 {"fitted", fitted(TypeStyle::bass(), "bass") + fitted(TypeStyle::forte(), "forte") +
                                                fitted(TypeStyle::brio(), "brio")},
                                 {"changes", changes()}});
    nameFitting();
    return std::move(page_);
  }

 private:
  using Make = std::function<ViewPtr(ContentSizeCategory)>;

  std::string path(std::string_view name) { return "pictures/text-views/" + std::string(name); }

  std::string following(std::string_view name, const Make& make) {
    return followingPicture(path(name), [&](const std::string& file, ContentSizeCategory category) {
      return pictures_.addView(file, make(category));
    });
  }

  // `text` is what the view shows.
  static std::string figure(std::string_view title, std::string_view language, std::string_view text,
                            std::string_view image, const Calls& calls) {
    std::string code;
    for (const std::string_view call : calls) code += fillTemplate(siteFile("shape_code.html"), {{"code", call}});
    return fillTemplate(siteFile("text_view_specimen.html"),
                        {{"title", title}, {"language", language}, {"text", text}, {"image", image}, {"code", code}});
  }

  void specimen(std::string_view name, std::string_view title, std::string_view text, const Make& make,
                const Calls& calls, std::string_view language = "en") {
    specimens_ += figure(title, language, text, following(name, make), calls);
  }

  void end(std::string_view fragment, std::string_view title, std::string_view lead) {
    sections_ += fillTemplate(siteFile("text_view_section.html"),
                              {{"id", fragment}, {"title", title}, {"lead", lead}, {"specimens", specimens_}});
    page_.contents.emplace_back(fragment, title);
    specimens_.clear();
  }

  // For the search. The first name is the one that is copied.
  void name(std::string_view fragment, std::string_view receiver, std::vector<std::string> names) {
    page_.items.push_back({std::string(fragment), std::string(receiver), {}, std::move(names)});
  }

  void labels() {
    const Calls calls{"Brisel::apply(*label, Brisel::TypeStyle::ballad(), category, true)",
                      "briselSwift_applyStyle(*label, VLMBriselTypeStyle::ballad(), category)"};
    specimen("label-wrapped", "As many lines as it takes", kSentence, wrappedLabel, calls);
    specimen("label-truncated", "One line", kSentence, truncatedLabel, calls);
    specimen("label-shrinking", "One line, shrinking by itself down to half", kSentence, shrinkingLabel, calls);
    specimen("label-right-to-left", "From right to left", kArabicSentence, rightToLeftLabel, calls, "ar");
    end("label", "Label",
        "Its font and its text are set in the style. Alignment and line breaking stay as they are. With the flag, it "
        "is "
        "set anew at each change of the text size.");
    name("label", "UILabel",
         {"Brisel::apply", "briselSwift_applyStyle", "apply(typeStyle:contentSizeCategory:useDynamicTypeMonitor:)",
          "briselSwift_applyStyle:withContentSizeCategory:",
          "briselSwift_applyStyle:withContentSizeCategory:useDynamicTypeMonitor:"});
  }

  void textFields() {
    specimen("field-filled", "With text", kFieldText, filledTextField,
             {"Brisel::apply(*textField, Brisel::TypeStyle::ballad(), category)",
              "briselSwift_applyStyle(*textField, VLMBriselTypeStyle::ballad(), category)"});
    specimen("field-empty", "With a placeholder", kPlaceholder, emptyTextField,
             {"Brisel::applyPlaceholder(*textField, Brisel::TypeStyle::ballad(), category)"});
    end("text-field", "Text field",
        "The style’s attributes become the field’s own, and those of its text; set the colour behind that. The "
        "placeholder has an operation of its own, on the value-type interface alone. Neither follows the text size by "
        "itself.");
    name("text-field", "UITextField",
         {"Brisel::apply", "briselSwift_applyStyle", "apply(typeStyle:with:)",
          "briselSwift_applyStyle:contentSizeCategory:"});
    name("text-field", "UITextField", {"Brisel::applyPlaceholder", "applyPlaceholder(typeStyle:with:)"});
  }

  void textViews() {
    specimen("text-view", "Two paragraphs", kParagraphs, paragraphTextView,
             {"Brisel::apply(*textView, Brisel::TypeStyle::ballad(), category, true)",
              "briselSwift_applyStyle(*textView, VLMBriselTypeStyle::ballad(), category, true)"});
    end("text-view", "Text view",
        "Its font and its text are set in the style. Alignment and colour stay as they are. With the flag, it is set "
        "anew at each change of the text size.");
    name("text-view", "UITextView",
         {"Brisel::apply", "briselSwift_applyStyle", "apply(typeStyle:with:useDynamicTypeMonitor:)",
          "briselSwift_applyStyle:withContentSizeCategory:useDynamicTypeMonitor:"});
  }

  void buttons() {
    struct State {
      std::string_view name, title, text;
      Platform::UIControlState state;
      std::string_view constant;
    };
    constexpr State kStates[] = {
        {"normal", "Normal", "Follow", Platform::UIControlStateNormal, "UIControlStateNormal"},
        {"highlighted", "Highlighted: it shows the normal title", "Follow", Platform::UIControlStateHighlighted,
         "UIControlStateHighlighted"},
        {"disabled", "Disabled", "Follow", Platform::UIControlStateDisabled, "UIControlStateDisabled"},
        {"selected", "Selected", "Following", Platform::UIControlStateSelected, "UIControlStateSelected"},
        {"focused", "Focused: it shows the normal title", "Follow", Platform::UIControlStateFocused,
         "UIControlStateFocused"},
    };
    for (const State& entry : kStates) {
      const std::string state(entry.constant);
      const std::string call = "Brisel::apply(*button, Brisel::TypeStyle::balladBold(), " + state + ", category)";
      const std::string objectCall =
          "briselSwift_applyStyle(*button, VLMBriselTypeStyle::balladBold(), " + state + ", category)";
      specimen("button-" + std::string(entry.name), entry.title, entry.text,
               [&](ContentSizeCategory category) { return followButton(entry.state, category); }, {call, objectCall});
    }
    end("button", "Button",
        "The title of each state is set in the style and in the colour of that state. Without the state, the call sets "
        "the titles of all seven. A state without a title of its own gets none; drawn is the normal one then. A button "
        "does not follow the text size by itself.");
    name("button", "UIButton",
         {"Brisel::apply", "briselSwift_applyStyle", "apply(typeStyle:with:)", "apply(typeStyle:for:with:)",
          "briselSwift_applyStyle:withContentSizeCategory:",
          "briselSwift_applyStyle:forState:withContentSizeCategory:"});
  }

  void legacyLabels() {
    const auto unlimited = Platform::UIContentSizeCategoryAccessibilityExtraExtraExtraLarge;
    specimen("legacy-label", "As its traits say", kSentence,
             [&](ContentSizeCategory category) { return legacyLabel(true, unlimited, category); },
             {"VLMBriselLegacyLabel::initWithStyle(VLMBriselTypeStyle::ballad())"});
    specimen("legacy-label-limited", "No larger than extraExtraExtraLarge", kSentence,
             [](ContentSizeCategory category) {
               return legacyLabel(true, Platform::UIContentSizeCategoryExtraExtraExtraLarge, category);
             },
             {"label->setMaxContentSizeCategory(UIContentSizeCategoryExtraExtraExtraLarge)"});
    const auto fixed = legacyLabel(false, unlimited, ContentSizeCategory::accessibilityExtraLarge);
    specimens_ += figure("Always as large as large", "en", kSentence,
                         pictures_.addView(path("legacy-label-fixed"), fixed).attributes(),
                         {"label->setUsingDynamicType(false)"});
    end("legacy-label", "Legacy label",
        "A label that keeps its style, and applies it anew whenever style, text, size or traits change. It follows its "
        "own traits and not the monitor.");
    name("legacy-label", "UILabel",
         {"VLMBriselLegacyLabel::initWithStyle", "VLMBriselLegacyLabel::initWithFrame",
          "initWithFrame:andStyle:", "VLMBriselLegacyLabel::setStyle", "VLMBriselLegacyLabel::setSwiftStyle",
          "VLMBriselLegacyLabel::setUsingDynamicType", "VLMBriselLegacyLabel::isUsingDynamicType",
          "VLMBriselLegacyLabel::setMaxContentSizeCategory", "VLMBriselLegacyLabel::accessibilityScale",
          "VLMBriselLegacyLabel::updateStyle", "VLMBriselLegacyLabel::firstAscenderAnchor",
          "VLMBriselLegacyLabel::firstLineHeightAnchor", "VLMBriselLegacyLabel::firstCapHeightAnchor",
          "VLMBriselBaseLegacyLabel"});
  }

  // One title in one or two lines, with what came of it.
  std::string box(std::string_view styleName, const TypeStyle& style, const Title& title, std::int64_t lines) {
    std::vector<std::string> outcomes;
    const std::string name =
        "fitted-" + std::string(styleName) + "-" + std::string(title.language) + "-" + std::to_string(lines);
    const std::string image = following(name, [&](ContentSizeCategory category) {
      FittedTitle fitted = fittedTitle(title.text, style, lines, category);
      outcomes.push_back(outcome(fitted));
      return std::move(fitted.view);
    });
    return fillTemplate(siteFile("text_view_box.html"), {{"text", title.text},
                                                         {"language", title.language},
                                                         {"image", image},
                                                         {"lines", lines == 1 ? "One line" : "Two lines"},
                                                         {"outcome", followingText(outcomes)}});
  }

  std::string fitted(const TypeStyle& style, std::string_view styleName) {
    std::string titles;
    for (const Title& title : kTitles) {
      titles += fillTemplate(
          siteFile("text_view_title.html"),
          {{"script", title.script}, {"boxes", box(styleName, style, title, 1) + box(styleName, style, title, 2)}});
    }
    const auto& factors = style.configuration().minimumScaleFactor();
    std::vector<std::string> least;
    for (const NamedCategory& entry : categories()) least.push_back(points(factors.value(entry.category.rawValue())));
    return fillTemplate(siteFile("text_view_fitted.html"), {{"id", "fitted-" + std::string(styleName)},
                                                            {"name", style.name()},
                                                            {"factor", followingText(least)},
                                                            {"titles", titles}});
  }

  void nameFitting() {
    name("fitting", "NSAttributedString",
         {"Brisel::scaledToFit", "VLMBrisel::canScaledStringFit", "scaledToFit(size:numberOfLines:minScale:)",
          "canScaledStringFit:numberOfLines:minScale:", "Brisel::ScaledResult", "scaledStringFits"});
    name("fitting", "NSAttributedString",
         {"Brisel::attributedString", "briselSwift_attributedStringWithString",
          "attributedString(string:typeStyle:contentSizeCategory:minimumScaleFactor:maxNumberOfLines:target:"
          "baseAttributes:)",
          "briselSwift_attributedStringWithString:typeStyle:contentSizeCategory:minimumScaleFactor:maxNumberOfLines:"
          "target:baseAttributes:"});
    name("fitting", "UIView",
         {"Brisel::brisel_systemLayoutSizeFitting", "brisel_systemLayoutSizeFittingSize",
          "briselSwift_systemLayoutSizeFittingSize",
          "brisel_systemLayoutSizeFitting(_:withHorizontalFittingPriority:verticalFittingPriority:)"});
    name("differences", "UILabel", {"Brisel::disableDynamicTypeMonitor", "briselSwift_disableDynamicTypeMorning"});
    name("differences", "UITextView", {"Brisel::disableDynamicTypeMonitor", "briselSwift_disableDynamicTypeMonitor"});
    name("differences", "UIViewController",
         {"Brisel::briselSwift_setMaxPreferredContentSizeCategory", "brisel_setMaxPreferredContentSizeCategory"});
  }

  std::string change(std::string_view fragment, std::string_view title, std::string_view text,
                     const std::string& figures) {
    return fillTemplate(siteFile("text_view_change.html"),
                        {{"id", fragment}, {"title", title}, {"text", text}, {"figures", figures}});
  }

  std::string changes() {
    const auto picture = [this](std::string_view name, const ViewPtr& view) {
      return pictures_.addView(path(name), view).attributes();
    };
    const auto pair = [](std::string_view when, std::string_view labelImage, std::string_view textViewImage) {
      return figure("Label" + std::string(when), "en", kSentence, labelImage, {}) +
             figure("Text view" + std::string(when), "en", kSentence, textViewImage, {});
    };
    const auto followingPair = [&](std::string_view name, std::string_view when, Styling styling) {
      const std::string stem(name);
      return pair(
          when, following(stem + "-label", [&](auto category) { return afterChange(styling, category).label; }),
          following(stem + "-text-view", [&](auto category) { return afterChange(styling, category).textView; }));
    };
    const auto largest = ContentSizeCategory::accessibilityExtraLarge;
    const LabelAndTextView once = afterChange(Styling::once, largest);
    const LabelAndTextView restyled = beforeChange(Styling::restyled);
    return change("subscribed", "With the flag, both follow",
                  "Each is set anew at the change, in the style that it was given last with the flag.",
                  followingPair("subscribed", "", Styling::subscribed)) +
           change("applied-once", "Without the flag, neither does",
                  "They stay as they were set, whatever the text size becomes.",
                  pair("", picture("once-label", once.label), picture("once-text-view", once.textView))) +
           change(
               "restyled", "The flag’s style comes back",
               "Set in Ballad with the flag and then in Ballad Bold without it, both are bold until the next change. "
               "The subscription still holds Ballad. This is deliberate.",
               pair(", before", picture("restyled-label-before", restyled.label),
                    picture("restyled-text-view-before", restyled.textView)) +
                   followingPair("restyled", ", after", Styling::restyled));
  }

  PictureBook& pictures_;
  Page page_;
  std::string specimens_, sections_;
};

}  // namespace

Page makeTextViewPage(PictureBook& pictures) { return TextViewPage(pictures).make(); }

}  // namespace Brisel::Gallery
