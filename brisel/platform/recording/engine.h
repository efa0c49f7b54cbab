#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brisel/platform/engine.h"

namespace Brisel::Platform {

/// An engine for tests, a host's or ours: it needs no fonts, draws nothing, measures by plain numbers, and keeps what
/// it was asked.
///
/// Every font has every character (but for those declared missing), whatever its name. Each character is one glyph of
/// half an em, whose number is its code point. Lines may break behind a space and end behind a line feed; there is no
/// bidirectional text, except that paragraphs set from right to left run that way throughout. Upper-casing knows ASCII.
class RecordingEngine final : public Engine {
 public:
  /// The measures of every font.
  static constexpr FontMetrics kMetrics{
      .ascender = 0.75, .descender = -0.25, .leading = 0, .capHeight = 0.75, .xHeight = 0.5};
  /// How wide every character is, in ems.
  static constexpr CGFloat kAdvance = 0.5;  // ems

  /// A rectangle that was filled.
  struct Fill {
    CGRect rect;                          ///< points
    UIColor color = UIColor::grey(0, 1);  ///< as it was given
  };
  /// Glyphs that were drawn.
  struct GlyphDrawing {
    std::string face;                     ///< the name of their face
    CGFloat pointSize;                    ///< points
    std::vector<PositionedGlyph> glyphs;  ///< in the order of drawing
    UIColor color = UIColor::grey(0, 1);  ///< as it was given
  };
  /// A call on a canvas; of the fields, those that the call has.
  struct CanvasCall {
    /// The calls, by their names.
    enum class Kind : std::uint8_t {
      save,                     ///< state kept
      restore,                  ///< state put back
      setBlendMode,             ///< a mode of blending chosen
      setInterpolationQuality,  ///< a quality for scaled bitmaps chosen
      clipToPath,               ///< drawing limited to a path
      clipToMask,               ///< drawing limited by a bitmap's alpha
      fillRect,                 ///< a rectangle filled
      fillPath,                 ///< a path filled
      strokePath,               ///< a path's outline drawn
      drawBitmap,               ///< a bitmap drawn
      drawGlyphs,               ///< glyphs drawn
    };
    Kind kind = Kind::save;                       ///< which call it was
    CGRect rect{};                                ///< of `clipToMask`, `fillRect` and `drawBitmap`
    UIBezierPath path{};                          ///< of `clipToPath`, `fillPath` and `strokePath`
    UIColor color = UIColor::grey(0, 1);          ///< of what is filled, stroked and drawn
    CGBlendMode blendMode = CGBlendMode::normal;  ///< of `setBlendMode`
    CGInterpolationQuality quality = CGInterpolationQuality::default_;  ///< of `setInterpolationQuality`
    friend bool operator==(const CanvasCall&, const CanvasCall&) = default;
  };
  /// A canvas that was made.
  struct CanvasSize {
    int pixelWidth = 0;     ///< pixels
    int pixelHeight = 0;    ///< pixels
    CGFloat scale = 1;      ///< pixels a point
    bool isOpaque = false;  ///< whether it has no alpha
    friend bool operator==(const CanvasSize&, const CanvasSize&) = default;
  };
  /// What an engine has been asked, kind by kind, each in the order of the calls.
  struct Record {
    std::vector<std::filesystem::path> registeredFiles;  ///< by `registerFontFile`
    std::vector<TypefaceRequest> typefaces;              ///< by `typeface`
    std::vector<std::u16string> shapedTexts;             ///< by `shape`
    std::vector<Fill> fills;                             ///< on all canvases
    std::vector<GlyphDrawing> drawings;                  ///< on all canvases
    std::vector<CanvasSize> canvases;                    ///< by `makeCanvas`
    std::vector<CanvasCall> calls;                       ///< on all canvases, in order
    std::string substituteFamily;                        ///< by `setSubstituteFamily`
    bool usesHostFonts = true;                           ///< by `setUsesHostFonts`
  };

  /// An engine that has been asked nothing.
  RecordingEngine();
  /// Its canvases may outlive it.
  ~RecordingEngine() override;

  /// All that was asked so far.
  Record record() const;
  /// Begins the record anew; what was set stays.
  void forget();

  /// From now on no face has these characters, or, where a name is given, the face of that name alone.
  void setMissingCharacters(std::u32string_view characters, std::string_view substitute = {});
  /// Whether what is shaped from now on says that it holds at every size; true at first.
  void setScalesLinearly(bool scales);
  /// What registration answers from now on, instead of "registered" the first time and "already registered" later.
  void setRegistrationResult(Registration result);

 private:
  friend class RecordingCanvas;
  friend class RecordingTypeface;

  Registration onRegisterFontFile(const std::filesystem::path& file) override;
  void onSetSubstituteFamily(const std::string& family) override;
  void onSetUsesHostFonts(bool uses) override;
  std::shared_ptr<const Typeface> onTypeface(const TypefaceRequest& request) override;
  std::shared_ptr<const ShapedText> onShape(const ShapeRequest& request) override;
  std::vector<FaceSubstitution> onSubstitutions(const ShapeRequest& request) override;
  std::unique_ptr<Canvas> onMakeCanvas(int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque) override;
  /// No PNG: the bitmap's bytes as they are.
  std::vector<std::uint8_t> onEncodePng(const Bitmap& bitmap) override;
  /// Reads no files.
  PngPicture onDecodePng(std::span<const std::uint8_t> file) override;
  std::string onUpperCase(const std::string& text) override;

  // Canvases may outlive the engine; they share the record with it.
  struct State {
    mutable std::mutex mutex;
    Record record;
    std::set<char32_t> missing;
    std::string substitute;  // the face that has the missing characters
    bool scalesLinearly = true;
    bool hasRegistrationResult = false;
    Registration registrationResult = Registration::registered;
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
  std::vector<std::pair<TypefaceRequest, std::shared_ptr<const Typeface>>> typefaces_;  // those that were asked for
};

}  // namespace Brisel::Platform
