// What tokens and colour sets are called in code, on both interfaces.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "brisel/themes/catalogue.h"
#include "brisel/tokens/catalogue.h"

namespace Brisel::Gallery {

struct CodeNames {
  std::string valueInterface;   ///< "Brisel::Spacer::x4()"
  std::string objectInterface;  ///< "VLMBriselSpacers::spacer4()"
};

CodeNames codeNames(const Catalogue::OpacityEntry& opacity);
CodeNames codeNames(const Catalogue::SpacerEntry& spacer);

struct NamedColorSet {
  std::string_view name;  ///< such as "mutedAccent"
  bool isCampaign;        ///< else one of the dark theme
  std::string_view role;  ///< what a set of the theme is for; empty of campaigns, which are for what they are called
  const Theme::ColorSet& colors;
  CodeNames code;  ///< "Brisel::Theme::dark().base()", "VLMBriselColorTheme::dark()->base()"
};

/// The dark theme's in field order, then those of campaigns in published order.
std::vector<NamedColorSet> allColorSets();

/// What follows a set's code to read one of its slots: ".text().subdued()", "->text()->subdued()".
CodeNames slotCalls(const Catalogue::SlotEntry& slot);

}  // namespace Brisel::Gallery
