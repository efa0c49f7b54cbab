// Campaigns are a list of names and no object; theme objects come from the shared ones and their properties alone, and
// have no equality but identity. No part of a theme is taken for another.
#include "brisel/object_interface/themes.h"

#include <memory>

#include "brisel/themes/theme.h"

int main() {
  using Brisel::Theme;
  const Theme::ColorSet& set = Theme::ColorSet::Campaign::tierAurel();
  const std::shared_ptr<const VLMBriselColorTheme>& dark = VLMBriselColorTheme::dark();
  const auto object = dark->base();
  (void)(set == Theme::dark().base() && set.text() == set.text());
  (void)(object == dark->base());
#if REFUSED  // error: use of deleted function 'Brisel::Theme::ColorSet::Campaign::Campaign\(\)'
  const Theme::ColorSet::Campaign campaign;
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(set.text() == set.essential());
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(*object == *dark->base());
#endif
#if REFUSED  // error: no match for 'operator=='
  (void)(object == set);
#endif
#if REFUSED  // error: no matching function for call to 'VLMBriselColorTheme::VLMBriselColorTheme\(\)'
  const VLMBriselColorTheme theme;
#endif
#if REFUSED  // error: 'VLMBriselColorTheme::VLMBriselColorTheme\(.*\)' is private
  const VLMBriselColorTheme darkTheme(Theme::dark());
#endif
#if REFUSED  // error: VLMBriselCampaignColorSets::VLMBriselCampaignColorSets\(\)' is private
  const VLMBriselCampaignColorSets sets;
#endif
}
