// The site's pictures: planned by the pages, drawn by the library, all at once.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/engine.h"
#include "brisel/platform/geometry.h"

#include "gallery/output_directory.h"

namespace Brisel::Gallery {

class Progress;

/// A picture as pages refer to it.
struct Picture {
  std::string path;  // without scale and ending
  int width = 0;     // points
  int height = 0;    // points

  /// The attributes src, srcset, width and height of an image element.
  std::string attributes() const;
};

class PictureBook {
 public:
  using Paint = std::function<void(Platform::Canvas&)>;

  /// Plans a picture of a size in points, which is rounded up. `paint` will be called once for each scale, on any
  /// thread.
  Picture add(std::string path, Platform::CGSize size, Paint paint);

  /// Plans a picture of a text in its own size, but not wider than `maximumWidth` points, on an opaque ground.
  Picture addText(std::string path, const Platform::NSAttributedString& text, const Platform::UIColor& ground,
                  Platform::CGFloat maximumWidth);

  std::size_t size() const noexcept { return plans_.size(); }

  /// Draws what is planned, at scales 1 and 2, on all processors. Throws what goes wrong first, and Interrupted.
  void draw(const OutputDirectory& directory, Progress& progress) const;

 private:
  struct Plan {
    Picture picture;
    Paint paint;
  };
  static void draw(const Plan& plan, const OutputDirectory& directory);

  std::vector<Plan> plans_;
};

}  // namespace Brisel::Gallery
