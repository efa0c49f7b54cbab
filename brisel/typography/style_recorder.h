#pragma once

#include "brisel/typography/type_style.h"

namespace Brisel {

/// What a label also is where it keeps the style that is applied to it. To record a style must not apply it.
class StyleRecorder {
 public:
  StyleRecorder(const StyleRecorder&) = delete;
  StyleRecorder& operator=(const StyleRecorder&) = delete;
  virtual ~StyleRecorder();

  /// Keeps a style, which is being applied to this label.
  virtual void recordStyle(const TypeStyle& style) = 0;

 protected:
  StyleRecorder() = default;
};

}  // namespace Brisel
