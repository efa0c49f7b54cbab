// Uses a colour, a type style and a content size, then reads which files are mapped into the process, and fails on any
// library but the few named here.
#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <set>
#include <string>
#include <string_view>

#include "brisel/tokens/color.h"
#include "brisel/typography/content_size_category.h"
#include "brisel/typography/type_style.h"

namespace {

constexpr std::array<std::string_view, 11> kAllowed = {
    "libBriselPlatform.so", "libBriselTokens.so", "libstdc++.so", "libm.so", "libgcc_s.so", "libc.so", "ld-linux",
    "libasan.so",           "libubsan.so",        "libtsan.so",   "libgcov"};

std::set<std::string> loadedLibraries() {
  std::set<std::string> names;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    const std::string name = line.substr(line.rfind('/') + 1);
    if (name.find(".so") != std::string::npos) names.insert(name);
  }
  return names;
}

}  // namespace

int main() {
  if (Brisel::Color::gray7().value()->alpha() != 1.0) return 1;
  const Brisel::ContentSizeCategory small = Brisel::ContentSizeCategory::small;
  if (Brisel::TypeStyle::bass().configuration().fontSize().value(small.platformCategory()) != 54.002) return 1;
  const std::set<std::string> names = loadedLibraries();
  bool clean = !names.empty();
  for (const std::string& name : names) {
    const bool allowed = std::any_of(kAllowed.begin(), kAllowed.end(),
                                     [&](std::string_view prefix) { return name.starts_with(prefix); });
    std::printf("%s%s\n", name.c_str(), allowed ? "" : "  <- not for tokens alone");
    clean = clean && allowed;
  }
  return clean ? 0 : 1;
}
