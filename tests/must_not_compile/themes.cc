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
#if CASE == 1  // error: use of deleted function 'Brisel::Theme::ColorSet::Campaign::Campaign\(\)'
  const Theme::ColorSet::Campaign campaign;
#endif
#if CASE == 2  // error: no match for 'operator=='
  (void)(set.text() == set.essential());
#endif
#if CASE == 3  // error: no match for 'operator=='
  (void)(*object == *dark->base());
#endif
#if CASE == 4  // error: no match for 'operator=='
  (void)(object == set);
#endif
#if CASE == 5  // error: no matching function for call to 'VLMBriselColorTheme::VLMBriselColorTheme\(\)'
  const VLMBriselColorTheme made;
#endif
#if CASE == 6  // error: 'VLMBriselColorTheme::VLMBriselColorTheme\(.*\)' is private
  const VLMBriselColorTheme made(Theme::dark());
#endif
#if CASE == 7  // error: VLMBriselCampaignColorSets::VLMBriselCampaignColorSets\(\)' is private
  const VLMBriselCampaignColorSets made;
#endif
}
