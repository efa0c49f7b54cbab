// The site's pictures: planned by the pages, drawn by the library, all at once.
#pragma once

#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/canvas.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/image.h"
#include "brisel/platform/views/view.h"

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

  /// Plans a picture of a size in points, which is rounded up. `paint` will be called once for each scale, which is
  /// the main screen's then, on any thread.
  Picture add(std::string path, Platform::CGSize size, Paint paint);

  /// Plans a picture of a text in its own size, but not wider than `maximumWidth` points, on an opaque ground.
  Picture addText(std::string path, const Platform::NSAttributedString& text, const Platform::UIColor& ground,
                  Platform::CGFloat maximumWidth);

  /// Plans a picture of an image in its own size, on an opaque ground. `make` is called here once, and then as `paint`
  /// would be.
  Picture addImage(std::string path, const std::function<Platform::ImagePtr()>& make, const Platform::UIColor& ground);

  /// Plans a picture of a view and what is below it, in its own size and as it is laid out. The view must show all of
  /// its own ground, and must not be used any more: it is drawn on any thread.
  Picture addView(std::string path, std::shared_ptr<const Platform::UIView> view);

  /// How many files that will be.
  std::size_t fileCount() const noexcept { return plans_.size() * std::size(kScales); }

  /// Draws what is planned, on all processors, at one scale of the main screen after the other. Throws what goes wrong
  /// first, and Interrupted.
  void draw(const OutputDirectory& directory, Progress& progress) const;

 private:
  struct Plan {
    Picture picture;
    Paint paint;
  };
  static constexpr int kScales[] = {1, 2};

  static void draw(const Plan& plan, int scale, const OutputDirectory& directory);
  void draw(int scale, const OutputDirectory& directory, Progress& progress) const;

  std::vector<Plan> plans_;
};

}  // namespace Brisel::Gallery
