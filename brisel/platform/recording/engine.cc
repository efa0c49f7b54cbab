#include "brisel/platform/recording/engine.h"

#include <algorithm>
#include <utility>

#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {

class RecordingFace final : public Face {
 public:
  RecordingFace(const RecordingEngine& maker, std::string name) : Face(maker), name_(std::move(name)) {}
  const std::string& name() const noexcept { return name_; }

 private:
  std::string name_;
};

class RecordingTypeface final : public Typeface {
 public:
  RecordingTypeface(const RecordingEngine& maker, const TypefaceRequest& request)
      : Typeface(maker, request.name, RecordingEngine::kMetrics),
        face_(std::make_shared<const RecordingFace>(maker, request.name)),
        cascade_(request.cascade),
        state_(maker.state_) {}

  const std::shared_ptr<const RecordingFace>& face() const noexcept { return face_; }

 private:
  bool onHasCharacter(char32_t character) const override {
    const std::lock_guard lock(state_->mutex);
    if (!state_->missing.contains(character)) return true;
    const std::string& substitute = state_->substitute;
    return !substitute.empty() &&
           (name() == substitute || std::find(cascade_.begin(), cascade_.end(), substitute) != cascade_.end());
  }

  std::shared_ptr<const RecordingFace> face_;
  std::vector<std::string> cascade_;
  std::shared_ptr<RecordingEngine::State> state_;
};

class RecordingCanvas final : public Canvas {
 public:
  RecordingCanvas(const RecordingEngine& maker, const RecordingEngine::CanvasSize& size)
      : Canvas(maker, size.scale), state_(maker.state_), size_(size) {
    const std::lock_guard lock(state_->mutex);
    state_->record.canvases.push_back(size);
  }

 private:
  using Call = RecordingEngine::CanvasCall;

  void onSave() override { note({.kind = Call::Kind::save}); }
  void onRestore() override { note({.kind = Call::Kind::restore}); }
  void onSetBlendMode(CGBlendMode mode) override { note({.kind = Call::Kind::setBlendMode, .blendMode = mode}); }
  void onSetInterpolationQuality(CGInterpolationQuality quality) override {
    note({.kind = Call::Kind::setInterpolationQuality, .quality = quality});
  }
  void onClipToPath(const UIBezierPath& path) override { note({.kind = Call::Kind::clipToPath, .path = path}); }
  void onClipToMask(const Bitmap&, const CGRect& rect) override {
    note({.kind = Call::Kind::clipToMask, .rect = rect});
  }
  void onFillPath(const UIBezierPath& path, const UIColor& color) override {
    note({.kind = Call::Kind::fillPath, .path = path, .color = color});
  }
  void onStrokePath(const UIBezierPath& path, const UIColor& color) override {
    note({.kind = Call::Kind::strokePath, .path = path, .color = color});
  }
  void onDrawBitmap(const Bitmap&, const CGRect& rect) override {
    note({.kind = Call::Kind::drawBitmap, .rect = rect});
  }

  void onFillRect(const CGRect& rect, const UIColor& color) override {
    const std::lock_guard lock(state_->mutex);
    state_->record.calls.push_back({.kind = Call::Kind::fillRect, .rect = rect, .color = color});
    state_->record.fills.push_back({rect, color});
  }

  void onDrawGlyphs(const Face& face, CGFloat pointSize, std::span<const PositionedGlyph> glyphs,
                    const UIColor& color) override {
    const std::lock_guard lock(state_->mutex);
    state_->record.calls.push_back({.kind = Call::Kind::drawGlyphs, .color = color});
    state_->record.drawings.push_back(
        {static_cast<const RecordingFace&>(face).name(), pointSize, {glyphs.begin(), glyphs.end()}, color});
  }

  Bitmap onBitmap() const override {
    const auto pixels = static_cast<std::size_t>(size_.pixelWidth) * static_cast<std::size_t>(size_.pixelHeight);
    Bitmap blank{size_.pixelWidth, size_.pixelHeight, std::vector<std::uint8_t>(pixels * 4)};
    for (std::size_t i = 3; size_.isOpaque && i < blank.rgba.size(); i += 4) blank.rgba[i] = 255;
    return blank;
  }

  Bitmap onTakeBitmap() override { return onBitmap(); }

  void note(Call call) {
    const std::lock_guard lock(state_->mutex);
    state_->record.calls.push_back(std::move(call));
  }

  std::shared_ptr<RecordingEngine::State> state_;
  RecordingEngine::CanvasSize size_;
};

RecordingEngine::RecordingEngine() = default;
RecordingEngine::~RecordingEngine() = default;

RecordingEngine::Record RecordingEngine::record() const {
  const std::lock_guard lock(state_->mutex);
  return state_->record;
}

void RecordingEngine::forget() {
  const std::lock_guard lock(state_->mutex);
  state_->record = {};
}

void RecordingEngine::setMissingCharacters(std::u32string_view characters, std::string_view substitute) {
  const std::lock_guard lock(state_->mutex);
  state_->missing = {characters.begin(), characters.end()};
  state_->substitute = substitute;
}

void RecordingEngine::setScalesLinearly(bool scales) {
  const std::lock_guard lock(state_->mutex);
  state_->scalesLinearly = scales;
}

void RecordingEngine::setRegistrationResult(Registration result) {
  const std::lock_guard lock(state_->mutex);
  state_->hasRegistrationResult = true;
  state_->registrationResult = result;
}

Engine::Registration RecordingEngine::onRegisterFontFile(const std::filesystem::path& file) {
  const std::lock_guard lock(state_->mutex);
  auto& files = state_->record.registeredFiles;
  const bool isKnown = std::find(files.begin(), files.end(), file) != files.end();
  files.push_back(file);
  if (state_->hasRegistrationResult) return state_->registrationResult;
  return isKnown ? Registration::alreadyRegistered : Registration::registered;
}

void RecordingEngine::onSetSubstituteFamily(const std::string& family) {
  const std::lock_guard lock(state_->mutex);
  state_->record.substituteFamily = family;
}

void RecordingEngine::onSetUsesHostFonts(bool uses) {
  const std::lock_guard lock(state_->mutex);
  state_->record.usesHostFonts = uses;
}

std::shared_ptr<const Typeface> RecordingEngine::onTypeface(const TypefaceRequest& request) {
  const std::lock_guard lock(state_->mutex);
  state_->record.typefaces.push_back(request);
  for (const auto& [known, typeface] : typefaces_)
    if (known == request) return typeface;
  return typefaces_.emplace_back(request, std::make_shared<const RecordingTypeface>(*this, request)).second;
}

std::shared_ptr<const ShapedText> RecordingEngine::onShape(const ShapeRequest& request) {
  auto shaped = std::make_shared<ShapedText>();
  {
    const std::lock_guard lock(state_->mutex);
    state_->record.shapedTexts.emplace_back(request.text);
    shaped->scalesLinearly = state_->scalesLinearly;
  }
  const std::u16string_view text = request.text;
  const bool isRightToLeft = request.direction == WritingDirection::rightToLeft;
  shaped->length = static_cast<std::uint32_t>(text.size());
  shaped->endsWithLineBreak = text.back() == u'\n';

  std::size_t at = 0;
  for (const TypefaceSpan& span : request.typefaces) {
    const auto runIndex = static_cast<std::uint32_t>(shaped->runs.size());
    ShapedRun& run = shaped->runs.emplace_back();
    run.face = static_cast<const RecordingTypeface&>(*span.typeface).face();
    run.metrics = span.typeface->metrics();
    run.firstCluster = static_cast<std::uint32_t>(shaped->clusters.size());
    run.level = isRightToLeft ? 1 : 0;
    while (at < span.end) {
      std::size_t next = at;
      const char32_t unit = internal::nextCharacter(text, next);
      const char16_t before = at > 0 ? text[at - 1] : u'\0';
      ShapedCluster& cluster = shaped->clusters.emplace_back();
      cluster.begin = static_cast<std::uint32_t>(at);
      cluster.run = runIndex;
      cluster.isSpace = unit == U' ' || unit == U'\n';
      cluster.isParagraphStart = at == 0 || before == u'\n';
      cluster.paragraphIsRightToLeft = isRightToLeft;
      if (before == u'\n') cluster.breakBefore = ShapedCluster::Break::required;
      if (before == u' ' && unit != U' ' && unit != U'\n') cluster.breakBefore = ShapedCluster::Break::allowed;
      if (unit != U'\n') {
        cluster.advance = kAdvance;
        const auto index = static_cast<std::uint32_t>(shaped->clusters.size() - 1);
        run.glyphs.push_back({static_cast<std::uint32_t>(unit), index, kAdvance, 0, 0});
      }
      at = next;
    }
    run.endCluster = static_cast<std::uint32_t>(shaped->clusters.size());
    if (isRightToLeft) std::reverse(run.glyphs.begin(), run.glyphs.end());
  }
  return shaped;
}

std::vector<FaceSubstitution> RecordingEngine::onSubstitutions(const ShapeRequest& request) {
  std::vector<FaceSubstitution> result;
  const std::string substitute = [this] {
    const std::lock_guard lock(state_->mutex);
    return state_->substitute;
  }();
  std::size_t at = 0;
  for (const TypefaceSpan& span : request.typefaces) {
    while (!substitute.empty() && at < span.end) {
      const auto begin = static_cast<std::uint32_t>(at);
      if (span.typeface->hasCharacter(internal::nextCharacter(request.text, at))) continue;
      if (result.empty() || result.back().end != begin) result.push_back({begin, begin, substitute});
      result.back().end = static_cast<std::uint32_t>(at);
    }
  }
  return result;
}

std::unique_ptr<Canvas> RecordingEngine::onMakeCanvas(int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque) {
  return std::make_unique<RecordingCanvas>(*this, CanvasSize{pixelWidth, pixelHeight, scale, isOpaque});
}

std::vector<std::uint8_t> RecordingEngine::onEncodePng(const Bitmap& bitmap) { return bitmap.rgba; }

PngPicture RecordingEngine::onDecodePng(std::span<const std::uint8_t>) {
  return {{}, false, "a port without pictures"};
}

std::string RecordingEngine::onUpperCase(const std::string& text) {
  std::string upper = text;
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace Brisel::Platform
