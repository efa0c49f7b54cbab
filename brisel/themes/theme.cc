#include "brisel/themes/theme.h"

#include "brisel/themes/internal/slot_reader.h"

namespace Brisel {

using internal::SlotReader;

Theme::State::State(SlotReader& slots) : base_(slots.next()), highlight_(slots.next()), press_(slots.next()) {}

Theme::Background::Background(SlotReader& slots)
    : elevated_(slots), tinted_(slots), unsafeForSmallText_(slots), plain_(slots) {}

template <class Role>
Theme::Foreground<Role>::Foreground(SlotReader& slots)
    : base_(slots.next()),
      subdued_(slots.next()),
      brightAccent_(slots.next()),
      negative_(slots.next()),
      warning_(slots.next()),
      positive_(slots.next()),
      announcement_(slots.next()) {}

Theme::Decorative::Decorative(SlotReader& slots) : base_(slots.next()), subdued_(slots.next()) {}

Theme::ColorSet::ColorSet(SlotReader& slots)
    : background_(slots), text_(slots), essential_(slots), decorative_(slots) {}

template class Theme::Foreground<Theme::TextRole>;
template class Theme::Foreground<Theme::EssentialRole>;

}  // namespace Brisel
