#include "brisel/typography/catalogue.h"

namespace Brisel::Catalogue {
namespace {

constexpr TypeStyleEntry kTypeStyles[] = {
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  {#name, #name, &TypeStyle::name},
#include "brisel/typography/type_styles.def"
};

}  // namespace

std::span<const TypeStyleEntry> typeStyles() noexcept { return kTypeStyles; }

}  // namespace Brisel::Catalogue
