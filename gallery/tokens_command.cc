#include "gallery/tokens_command.h"

#include "gallery/exports/dtcg.h"

namespace Brisel::Gallery {

std::string exportTokens(const TokensCommand& command) {
  if (command.format != "dtcg") throw UsageError("--format " + command.format + " is not written yet");
  writeDtcg(command.out);
  return {};
}

}  // namespace Brisel::Gallery
