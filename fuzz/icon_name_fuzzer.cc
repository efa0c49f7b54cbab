// Any bytes as the name or the constant of an icon: the quick look-ups against the plain searches.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_constants.h"
#include "brisel/icons/icon_error.h"
#include "brisel/platform/log.h"

#include "fuzz/input.h"
#include "tests/icon_model.h"

namespace {

using Brisel::Icon;
using Brisel::Fuzz::require;

bool is(const Icon* expected, std::string_view name) {
  try {
    const Icon icon(name);
    return expected && icon == *expected;
  } catch (const Brisel::Error::Icon&) {
    return !expected;
  }
}

int loggedLines = 0;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A copy of just these bytes, so that reading beyond them is found.
  const std::string text(reinterpret_cast<const char*>(data), size);
  require(is(Brisel::Tests::iconNamed(text), text));

  Brisel::Platform::setLogHandler([](std::string_view) { ++loggedLines; });
  loggedLines = 0;
  const auto expected = Brisel::Tests::iconNumbered(text);
  require(Brisel::iconNumber(text) == expected.number);
  require(loggedLines == (expected.isLogged ? 1 : 0));
  return 0;
}
