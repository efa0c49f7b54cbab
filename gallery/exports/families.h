// The exported tokens, family by family.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "gallery/exports/token.h"

namespace Brisel::Gallery {

struct TokenFamily {
  std::string_view name;  ///< such as "palette": the first step of its tokens' paths
  std::vector<Token> (*tokens)();
};

/// All families in the order of export, their tokens in that of their catalogues. Those of type styles measure the
/// bundled faces, and throw std::runtime_error where one is missing.
std::span<const TokenFamily> tokenFamilies();

/// The tokens of all families.
std::vector<Token> allTokens();

}  // namespace Brisel::Gallery
