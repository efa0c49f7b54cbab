// Every published name of both interfaces, as the catalogues brisel/<folder>/names.def list them.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace Brisel::Gallery {

/// A name on one interface; empty where it has none there.
struct PublishedName {
  std::string_view name;  ///< qualified: "Brisel::TypeStyle::withFontSize"; of a constructor its class's
  std::string_view
      signature;  ///< "(TypeStyle(double) const)", of a constructor "(Arguments)"; of types and constants empty
};

struct PublishedEntry {
  enum class Kind { type, function, constructor, constant };
  Kind kind = Kind::type;
  PublishedName value, object;
};

struct PublishedGroup {
  std::string_view title;
  std::vector<PublishedEntry> entries;
};

struct PublishedSubsystem {
  std::string_view title;
  std::vector<PublishedGroup> groups;
};

/// In published order.
std::vector<PublishedSubsystem> publishedNames();

/// How many entries that are.
std::size_t publishedEntryCount();

}  // namespace Brisel::Gallery
