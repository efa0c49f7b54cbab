// Mutated font files through registration and drawing: whatever is registered can be shaped with and drawn, whatever is
// refused leaves nothing behind.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

#include "brisel/platform/port.h"
#include "brisel/platform/text_layout.h"

#include "fuzz/input.h"

using namespace Brisel::Platform;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // An engine for each input, so that names registered before do not matter.
  static const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("brisel_fuzz_" + std::to_string(::getpid()) + ".otf");
  std::ofstream(file, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  const auto engine = makeDefaultEngine();
  engine->setUsesHostFonts(false);
  const auto result = engine->registerFontFile(file);
  const auto typeface = engine->typeface({"Any-Book", {}, {{6, 0}}});
  Brisel::Fuzz::require(result == Engine::Registration::registered || typeface->name().empty());

  const std::u16string text = u"Af1 \u05D0\u0628\u0915\u094D\u0937 \u1EA5";
  const TypefaceSpan span{static_cast<std::uint32_t>(text.size()), typeface, 24, true};
  const auto shaped = engine->shape({text, {&span, 1}, WritingDirection::natural, false});
  const TextSizeSpan sizeSpan{static_cast<std::uint32_t>(text.size()), 24, 0, 0, typeface->metrics()};
  const TextLayout layout(shaped, {&sizeSpan, 1}, {}, {.width = 100});
  if (const auto canvas = engine->makeCanvas({100, 100}, 1)) layout.draw(*canvas, {0, 0}, {});
  std::filesystem::remove(file);
  return 0;
}
