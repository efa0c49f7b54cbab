#include "gallery/guide/picture_book.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

#include "brisel/platform/image.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/platform/views/text_drawing.h"

#include "gallery/guide/progress.h"
#include "gallery/interruption.h"

namespace Brisel::Gallery {
namespace {

std::string fileName(const std::string& path, int scale) { return path + (scale == 1 ? ".png" : "@2x.png"); }

}  // namespace

std::string Picture::attributes() const {
  return "src=\"" + fileName(path, 1) + "\" srcset=\"" + fileName(path, 2) + " 2x\" width=\"" + std::to_string(width) +
         "\" height=\"" + std::to_string(height) + "\"";
}

Picture PictureBook::add(std::string path, Platform::CGSize size, Paint paint) {
  Picture picture{std::move(path), static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height))};
  plans_.push_back({picture, std::move(paint)});
  return picture;
}

Picture PictureBook::addText(std::string path, const Platform::NSAttributedString& text,
                             const Platform::UIColor& ground, Platform::CGFloat maximumWidth) {
  const auto drawing = std::make_shared<const Platform::TextDrawing>(text);
  const Platform::CGSize size{std::min(drawing->size().width, maximumWidth), drawing->size().height};
  return add(std::move(path), size, [drawing, ground](Platform::Canvas& canvas) {
    canvas.fillRect({{0, 0}, {32767, 32767}}, ground);
    drawing->draw(canvas, {0, 0});
  });
}

Picture PictureBook::addImage(std::string path, const std::function<Platform::ImagePtr()>& make,
                              const Platform::UIColor& ground) {
  return add(std::move(path), make()->size(), [make, ground](Platform::Canvas& canvas) {
    const Platform::ImagePtr image = make();
    canvas.fillRect({{}, image->size()}, ground);
    drawAtPoint(*image, canvas, {0, 0});
  });
}

Picture PictureBook::addView(std::string path, std::shared_ptr<const Platform::UIView> view) {
  const Platform::CGSize size = view->frame().size;
  return add(std::move(path), size, [view = std::move(view)](Platform::Canvas& canvas) {
    view->drawHierarchy(canvas, {0, 0});
  });
}

void PictureBook::draw(const Plan& plan, int scale, const OutputDirectory& directory) {
  const Platform::CGSize size{static_cast<double>(plan.picture.width), static_cast<double>(plan.picture.height)};
  const Platform::ImagePtr image = Platform::UIGraphicsImageRenderer(size).image(plan.paint);
  if (!image->bitmap()) throw std::runtime_error("cannot draw " + plan.picture.path + ": it is empty or too large");
  directory.write(fileName(plan.picture.path, scale), UIImagePNGRepresentation(*image));
}

void PictureBook::draw(const OutputDirectory& directory, Progress& progress) const {
  for (const int scale : kScales) {
    Platform::UIScreen::mainScreen().setScale(scale);  // of all images that the plans make
    draw(scale, directory, progress);
  }
}

void PictureBook::draw(int scale, const OutputDirectory& directory, Progress& progress) const {
  std::atomic<std::size_t> next = 0;
  std::mutex mutex;
  std::exception_ptr failure;
  const auto work = [&] {
    try {
      for (std::size_t i = next++; i < plans_.size(); i = next++) {
        if (wasInterrupted()) throw Interrupted();
        draw(plans_[i], scale, directory);
        progress.step();
      }
    } catch (...) {
      next = plans_.size();
      const std::lock_guard lock(mutex);
      if (!failure) failure = std::current_exception();
    }
  };
  std::vector<std::thread> threads(std::max(1U, std::thread::hardware_concurrency()));
  for (std::thread& thread : threads) thread = std::thread(work);
  for (std::thread& thread : threads) thread.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace Brisel::Gallery
