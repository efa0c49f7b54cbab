#include "gallery/commands/tokens_command.h"

#include <vector>

#include "gallery/exports/css.h"
#include "gallery/exports/dtcg.h"
#include "gallery/exports/families.h"
#include "gallery/exports/flat_json.h"
#include "gallery/output_directory.h"

namespace Brisel::Gallery {

std::string exportTokens(const TokensCommand& command) {
  if (command.format == "dtcg") {
    writeDtcg(command.out);
    return {};
  }
  const std::vector<Token> tokens = allTokens();
  std::string text = command.format == "css" ? cssText(tokens) : flatJsonText(tokens);
  if (command.out.empty()) return text;
  writeFile(command.out, bytesOf(text));
  return {};
}

}  // namespace Brisel::Gallery
