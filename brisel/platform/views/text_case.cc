#include "brisel/platform/views/text_case.h"

#include "brisel/platform/port.h"

namespace Brisel::Platform {

std::string upperCased(std::string_view text) { return engine().upperCase(text); }

}  // namespace Brisel::Platform
