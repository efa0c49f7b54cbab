#include "brisel/typography/style_recorder.h"

namespace Brisel {

StyleRecorder::~StyleRecorder() = default;

}  // namespace Brisel
