#pragma once

#include <memory>

#include "brisel/object_interface/type_styles.h"
#include "brisel/typography/style_recorder.h"

/// What a label also is where it keeps the style that is applied to it.
class VLMBriselBaseLegacyLabel : public Brisel::StyleRecorder {
 public:
  /// `setSwiftStyle:`: keeps the style, and does not apply it: whoever calls this does.
  virtual void setSwiftStyle(const std::shared_ptr<const VLMBriselTypeStyle>& style) = 0;

 private:
  void recordStyle(const Brisel::TypeStyle& style) final { setSwiftStyle(VLMBriselTypeStyle::wrapping(style)); }
};
