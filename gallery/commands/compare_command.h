#pragma once

#include <cstddef>
#include <string>

#include "brisel/platform/image.h"

#include "gallery/arguments.h"

namespace Brisel::Gallery {

/// How far two pictures differ.
struct Difference {
  std::size_t pixels = 0;      // of both together
  std::size_t differing = 0;   // of these, by more than the accuracy, or in one picture only
  int largest = 0;             // of all channels, of 255
  Platform::ImagePtr picture;  // the first dimmed, on it what differs in pink, what only one has in yellow
};

/// Blends both pictures into a picture of their difference. `accuracy` is a fraction of full scale.
Difference difference(const Platform::UIImage& first, const Platform::ImagePtr& second, double accuracy);

struct Verdict {
  bool isEqual = false;
  std::string text;  // one line
};

/// Reads both pictures, compares them and draws their difference where asked to. Throws std::runtime_error.
Verdict comparePictures(const CompareCommand& command);

}  // namespace Brisel::Gallery
