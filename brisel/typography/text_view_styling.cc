#include "brisel/typography/text_view_styling.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/internal/hash.h"
#include "brisel/platform/internal/prefetch.h"
#include "brisel/platform/internal/weak_key.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/value.h"
#include "brisel/platform/views/text_case.h"
#include "brisel/tokens/internal/lazy_table.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/font.h"
#include "brisel/typography/internal/fitted_string.h"
#include "brisel/typography/internal/text_size_listener.h"
#include "brisel/typography/style_recorder.h"
#include "brisel/typography/styled_string.h"

namespace Brisel {

using Platform::Dictionary;
using Platform::NSMutableParagraphStyle;
using Platform::UIButton;
using Platform::UIContentSizeCategory;
using Platform::UIControlState;
using Platform::UIFont;
using Platform::UILabel;
using Platform::UITextField;
using Platform::UITextView;

namespace {

Dictionary foreground(const Platform::ColorPtr& color) {
  if (!color) return {};
  return {{Platform::NSForegroundColorAttributeName, color}};
}

// --- What the views say already ---

// What the attributes of a styled label are made of.
struct LabelAttributes {
  std::shared_ptr<const UIFont> font;
  Platform::NSTextAlignment alignment;
  Platform::NSLineBreakMode lineBreakMode;

  Dictionary dictionary() const {
    const auto paragraphStyle = NSMutableParagraphStyle::init();
    paragraphStyle->setAlignment(alignment);
    paragraphStyle->setLineBreakMode(lineBreakMode);
    return {{Platform::NSParagraphStyleAttributeName, paragraphStyle->copy()}, {Platform::NSFontAttributeName, font}};
  }

  friend bool operator==(const LabelAttributes&, const LabelAttributes&) = default;
  friend void hashInto(Platform::internal::Hasher& hasher, const LabelAttributes& attributes) {
    hasher(attributes.font.get(), attributes.alignment, attributes.lineBreakMode);
  }
};

// A screen has many views in few styles: those that are styled alike share what is made for a style.
template <class Key, class Value>
class Shared {
 public:
  template <class Make>
  Value of(const Key& key, const Make& make) const {
    if (auto known = cache_.getValue(key)) return *std::move(known);
    Value value = make(key);
    cache_.setValue(value, key, 0);
    return value;
  }

  static void build(void* place, std::size_t) noexcept { ::new (place) Shared; }

 private:
  static constexpr std::int64_t kCapacity = 64;

  // May be changed by any thread.
  mutable Cache<Key, Value, Platform::internal::FieldHash<Key>> cache_{kCapacity,
                                                                       std::numeric_limits<std::int64_t>::max()};
};

template <class Key, class Value>
using SharedTable = internal::LazyTable<Shared<Key, Value>, 1, Shared<Key, Value>::build>;

constinit SharedTable<LabelAttributes, Dictionary> labelAttributes;

Dictionary baseAttributes(const UITextView& textView) {
  const auto paragraphStyle = NSMutableParagraphStyle::init();
  paragraphStyle->setAlignment(textView.textAlignment());
  return foreground(textView.textColor()).with(Platform::NSParagraphStyleAttributeName, paragraphStyle);
}

void restyle(UITextView& textView, const TypeStyle& typeStyle, const UIContentSizeCategory& contentSizeCategory) {
  const Dictionary base = baseAttributes(textView);
  const Dictionary attributes = typeStyle.stringAttributes(contentSizeCategory);
  const Platform::Value* const font = attributes.find(Platform::NSFontAttributeName);
  textView.setFont(font ? font->as<UIFont>() : nullptr);
  if (const auto text = textView.text())
    textView.setAttributedText(attributedString(*text, typeStyle, contentSizeCategory, base));
}

void follow(UILabel& label, const TypeStyle& typeStyle, const UIContentSizeCategory& contentSizeCategory) {
  const bool wasMeasured = label.isMeasured();
  // Without the flag: a subscription must not be renewed from within its own notification.
  apply(label, typeStyle, contentSizeCategory, false);
  // Whoever shows the label will ask again. It is at hand now; of thousands, each would have to be fetched once more.
  if (wasMeasured) label.UILabel::intrinsicContentSize();
}

void follow(UITextView& textView, const TypeStyle& typeStyle, const UIContentSizeCategory&) {
  // Deliberately unlike labels, which use the category that they are handed.
  restyle(textView, typeStyle, DynamicTypeMonitor::shared()->preferredContentSizeCategory());
}

// Has views follow the text size in one style.
template <class View>
class Follower final : public internal::TextSizeListener {
 public:
  explicit Follower(TypeStyle typeStyle) : typeStyle_(std::move(typeStyle)) {}

  static void subscribe(View& view, const TypeStyle& typeStyle) {
    static constinit SharedTable<TypeStyle, std::shared_ptr<const Follower>> followers;
    // Null for a view that no shared_ptr holds, which the monitor refuses.
    const auto subscriber = std::static_pointer_cast<View>(view.weak_from_this().lock());
    const auto listener =
        followers[0].of(typeStyle, [](const TypeStyle& style) { return std::make_shared<const Follower>(style); });
    TextSizeListener::subscribe(*DynamicTypeMonitor::shared(), subscriber, listener);
  }

  void update(const void* subscriber, const UIContentSizeCategory& contentSizeCategory) const override {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): no constant one has been subscribed.
    follow(*static_cast<View*>(const_cast<void*>(subscriber)), typeStyle_, contentSizeCategory);
  }

  void approach(std::size_t steps, const Platform::internal::WeakKey& subscriber) const override {
    if constexpr (std::is_same_v<View, UILabel>) {  // of text views there are never many
      constexpr std::size_t kCounts = 32;           // mostly behind the label
      if (steps > 1)
        Platform::internal::prefetch(reinterpret_cast<std::uintptr_t>(subscriber.address()), sizeof(View) + kCounts);
      else if (const auto alive = subscriber.lock())
        static_cast<const View*>(alive.get())->prefetchText();
    }
  }

 private:
  TypeStyle typeStyle_;
};

}  // namespace

// --- Labels ---

void apply(UILabel& label, const TypeStyle& typeStyle, const UIContentSizeCategory& contentSizeCategory,
           bool useDynamicTypeMonitor) {
  if (auto* const recorder = dynamic_cast<StyleRecorder*>(&label)) recorder->recordStyle(typeStyle);
  if (useDynamicTypeMonitor) Follower<UILabel>::subscribe(label, typeStyle);

  const double scale = ContentSizeCategory(contentSizeCategory).rawValue();
  const TypeStyle::Configuration& configuration = typeStyle.configuration();
  const auto font = Font::font(typeStyle.primaryFont(), typeStyle.fallbackFonts(), typeStyle.fontWeight(),
                               configuration.fontSize().value(scale), configuration.fontFeatures());
  label.setFont(font);

  const auto characters = label.characters();
  if (!characters) return;
  const Dictionary attributes = labelAttributes[0].of({font, label.textAlignment(), label.lineBreakMode()},
                                                      std::mem_fn(&LabelAttributes::dictionary));
  const auto styled = configuration.usesUpperCaseLayout() ? Platform::NSAttributedString::initWithString(
                                                                Platform::upperCased(characters->string()), attributes)
                                                          : characters->withAttributes(attributes);
  // Deliberately this way round: who shrinks his text himself gets it as it is.
  const double minimumScaleFactor = label.adjustsFontSizeToFitWidth() ? -1.0 : label.minimumScaleFactor();
  label.setAttributedText(
      internal::fitted(styled->withFixedAttributes(), minimumScaleFactor, label.numberOfLines(), label));
}

void disableDynamicTypeMonitor(UILabel& label) { DynamicTypeMonitor::shared()->unsubscribe(label); }

// --- Text fields ---

void apply(UITextField& textField, const TypeStyle& typeStyle, const UIContentSizeCategory& contentSizeCategory) {
  textField.setDefaultTextAttributes(typeStyle.stringAttributes(contentSizeCategory));
  const auto text = textField.text();
  if (!text || text->empty()) return;
  textField.setAttributedText(attributedString(*text, typeStyle, contentSizeCategory));
}

void applyPlaceholder(UITextField& textField, const TypeStyle& typeStyle,
                      const UIContentSizeCategory& contentSizeCategory) {
  const auto placeholder = textField.placeholder();
  if (!placeholder || placeholder->empty()) return;
  textField.setAttributedPlaceholder(attributedString(*placeholder, typeStyle, contentSizeCategory));
}

// --- Text views ---

void apply(UITextView& textView, const TypeStyle& typeStyle, const UIContentSizeCategory& contentSizeCategory,
           bool useDynamicTypeMonitor) {
  if (useDynamicTypeMonitor) Follower<UITextView>::subscribe(textView, typeStyle);
  restyle(textView, typeStyle, contentSizeCategory);
}

void disableDynamicTypeMonitor(UITextView& textView) { DynamicTypeMonitor::shared()->unsubscribe(textView); }

// --- Buttons ---

void apply(UIButton& button, const TypeStyle& typeStyle, const UIContentSizeCategory& contentSizeCategory) {
  // The last two are masks of several states; that they are passed as states is deliberate.
  for (const UIControlState state :
       {Platform::UIControlStateNormal, Platform::UIControlStateHighlighted, Platform::UIControlStateDisabled,
        Platform::UIControlStateSelected, Platform::UIControlStateFocused, Platform::UIControlStateApplication,
        Platform::UIControlStateReserved})
    apply(button, typeStyle, state, contentSizeCategory);
}

void apply(UIButton& button, const TypeStyle& typeStyle, UIControlState state,
           const UIContentSizeCategory& contentSizeCategory) {
  const auto title = button.titleForState(state);
  if (!title) return;
  button.setAttributedTitle(
      attributedString(*title, typeStyle, contentSizeCategory, foreground(button.titleColorForState(state))), state);
}

}  // namespace Brisel
