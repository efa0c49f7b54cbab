#include "gallery/icon_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <numeric>
#include <utility>

#include "brisel/icons/icon_constants.h"

#include "gallery/arguments.h"

namespace Brisel::Gallery {
namespace {

std::string lowered(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

// How many letters must be put in, left out or changed to make one text of the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

const Catalogue::IconEntry* findIcon(std::string_view name) {
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    if (entry.name == name || entry.accessor == name) return &entry;
  }
  const std::uint64_t number = iconNumber(name);
  return number == 0 || number >= kIconNumberCount ? nullptr : &Catalogue::icons()[number - 1];
}

const Catalogue::IconEntry& namedIcon(std::string_view name) {
  if (const Catalogue::IconEntry* entry = findIcon(name)) return *entry;
  std::string complaint = "no icon is called \"" + std::string(name) + "\"";
  std::string_view separator = "; near it are ";
  for (const std::string_view like : iconsLike(name)) {
    complaint += separator;
    complaint += like;
    separator = ", ";
  }
  throw UsageError(complaint);
}

std::vector<std::string_view> iconsLike(std::string_view name) {
  constexpr std::size_t kMost = 3;
  constexpr std::size_t kLongest = 64;
  if (name.empty() || name.size() > kLongest) return {};
  std::string wanted = lowered(name);
  for (const std::string_view prefix : {"vlmbriselicon", "vlmicon"}) {
    if (wanted.starts_with(prefix)) wanted.erase(0, prefix.size());
  }
  // A name that holds what was typed is nearer than one that two slips lead to.
  std::vector<std::pair<std::size_t, std::string_view>> near;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const std::string known = lowered(entry.name);
    const std::size_t distance = editDistance(wanted, known);
    if (distance <= std::max<std::size_t>(1, wanted.size() / 3)) {
      near.emplace_back(2 * distance, entry.name);
    } else if (wanted.size() >= 3 && known.find(wanted) != std::string::npos) {
      near.emplace_back(3, entry.name);
    }
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < std::min(kMost, near.size()); ++i) names.push_back(near[i].second);
  return names;
}

std::string accessorCode(const Catalogue::IconEntry& entry) {
  return "Brisel::Icon::" + std::string(entry.accessor) + "()";
}

std::string codePoint(const std::optional<Icon::Glyph>& glyph) {
  if (!glyph) return {};
  std::array<char, 8> digits{};
  const auto result =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<std::uint32_t>(glyph->unichar()), 16);
  std::string text = "U+";
  for (const char* digit = digits.data(); digit != result.ptr; ++digit) {
    text += static_cast<char>(std::toupper(static_cast<unsigned char>(*digit)));
  }
  return text;
}

}  // namespace Brisel::Gallery
