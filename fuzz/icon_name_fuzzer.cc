// Any bytes as the name or the constant of an icon: the quick look-ups against the plain searches.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_constants.h"
#include "brisel/icons/icon_error.h"
#include "brisel/platform/log.h"

#include "tests/icon_model.h"

namespace {

using Brisel::Icon;

void require(bool holds) {
  if (!holds) std::abort();
}

const Icon* iconOrNull(std::string_view name) {
  try {
    return &Brisel::Icon::allCases()[Brisel::iconNumber(Icon(name).name()) - 1];
  } catch (const Brisel::Error::Icon&) {
    return nullptr;
  }
}

int loggedLines = 0;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A copy of just these bytes, so that reading beyond them is found.
  const std::string text(reinterpret_cast<const char*>(data), size);
  require(iconOrNull(text) == Brisel::Tests::iconNamed(text));

  Brisel::Platform::setLogHandler([](std::string_view) { ++loggedLines; });
  loggedLines = 0;
  const auto expected = Brisel::Tests::iconNumbered(text);
  require(Brisel::iconNumber(text) == expected.number);
  require(loggedLines == (expected.isLogged ? 1 : 0));
  return 0;
}
