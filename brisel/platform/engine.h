// The seam: what the library asks of the machine that it runs on.
//
// A port implements two interfaces. `Engine` knows fonts, shapes text, paints, writes and reads PNG files and
// upper-cases; `SystemEvents` knows the main queue and memory pressure. Everything else (layout of lines, measuring,
// views) is ours and the same everywhere. A port defines the two functions of platform/port.h; linking the port is
// choosing it.
//
// Each public call checks its arguments once for every port; the protected hook does the work. Hooks see no null or
// foreign handles, no ill-formed text, and no distances that are not finite. Where a hook answers null though it must
// not, the public call ends the process.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/bitmap.h"
#include "brisel/platform/canvas.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/port_object.h"
#include "brisel/platform/shaped_text.h"
#include "brisel/platform/text_direction.h"

namespace Brisel::Platform {

/// A number-coded font feature, as font descriptors carry it.
struct FontFeatureSetting {
  int type = 0;      ///< the feature
  int selector = 0;  ///< what it is set to
  friend bool operator==(const FontFeatureSetting&, const FontFeatureSetting&) = default;
};

/// Which faces draw a text, at any size: the named one, and behind it a cascade in order of preference.
struct TypefaceRequest {
  std::string name;                          ///< PostScript name
  std::vector<std::string> cascade;          ///< PostScript names
  std::vector<FontFeatureSetting> features;  ///< asked of all faces
  friend bool operator==(const TypefaceRequest&, const TypefaceRequest&) = default;
};

/// The answer to a request: a face with its cascade and features.
class Typeface : public PortObject {
 public:
  /// The PostScript name of the primary face. Differs from the requested one where a substitute stands in.
  const std::string& name() const noexcept { return name_; }
  /// The vertical measures of the primary face, in ems.
  const FontMetrics& metrics() const noexcept { return metrics_; }
  /// Whether the primary face or one of its cascade has a glyph for the character (the host's fonts do not count).
  bool hasCharacter(char32_t character) const { return onHasCharacter(character); }
  /// Whether that holds for every character of a well-formed text that needs a glyph, as controls do not. Asked often.
  bool hasCharacters(std::u16string_view text) const { return onHasCharacters(text); }

 protected:
  /// A typeface of an engine, whose primary face is called `name`.
  Typeface(const Engine& maker, std::string name, const FontMetrics& metrics)
      : PortObject(maker), name_(std::move(name)), metrics_(metrics) {}
  /// The work of `hasCharacter`.
  virtual bool onHasCharacter(char32_t character) const = 0;
  /// The work of `hasCharacters`; asks for each character in turn, unless a port knows better.
  virtual bool onHasCharacters(std::u16string_view text) const;

 private:
  std::string name_;
  FontMetrics metrics_;
};

/// The typeface of a stretch of text, which ends before the UTF-16 code unit `end`. A size is given for fonts that do
/// not scale linearly (bitmap faces, faces with optical sizes); others ignore it.
struct TypefaceSpan {
  std::uint32_t end = 0;                     ///< UTF-16 code units
  std::shared_ptr<const Typeface> typeface;  ///< not null
  CGFloat pointSize = 0;                     ///< points
  bool usesLigatures = true;                 ///< false where letters are spaced out
};

/// A text to be shaped, and what it is set in.
struct ShapeRequest {
  std::u16string_view text;                                ///< well-formed UTF-16
  std::span<const TypefaceSpan> typefaces;                 ///< ascending; the last ends with the text
  WritingDirection direction = WritingDirection::natural;  ///< of all paragraphs
  bool naturalFallbackIsRightToLeft = false;               ///< for paragraphs without a strong character
};

/// A stretch of a text for which there is a better face than those of its typeface.
struct FaceSubstitution {
  std::uint32_t begin = 0;  ///< UTF-16 code units
  std::uint32_t end = 0;    ///< one behind the last
  std::string name;         ///< PostScript name, which `typeface` knows
  friend bool operator==(const FaceSubstitution&, const FaceSubstitution&) = default;
};

/// What came of reading a PNG file: a picture, or why there is none.
struct PngPicture {
  Bitmap bitmap;          ///< empty where there is none
  bool hasAlpha = false;  ///< whether the file has an alpha channel
  std::string problem;    ///< in a few words without a full stop, such as "not a PNG file"
};

/// Fonts, shaping, painting, PNG files written and read, upper-casing. All calls may come from any thread.
class Engine {
 public:
  /// What became of a font file. The numbers are those of the published error codes; 0 is success.
  enum class Registration : std::uint8_t {
    registered = 0,            ///< it is known from now on
    fileNotFound = 101,        ///< it cannot be opened
    unrecognizedFormat = 103,  ///< it is no font
    invalidFontData = 104,     ///< it is a damaged one
    alreadyRegistered = 105,   ///< a font of its name is known already
  };

  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  /// Whatever it has made must be gone by then, or unused.
  virtual ~Engine();

  /// Makes the font of a file (of a collection, the first) known to this process, by its PostScript name. A file that
  /// is refused changes nothing.
  Registration registerFontFile(const std::filesystem::path& file);

  /// The family whose registered faces stand in for missing names, each time in the nearest weight. Until told, and
  /// where none of it is registered, that is the family of the first registered face with Latin letters.
  void setSubstituteFamily(std::string_view family);

  /// Whether characters that no face of a cascade has may be drawn with the host's fonts (true at first). Texts that
  /// have been shaped keep what they have.
  void setUsesHostFonts(bool uses);

  /// How often the faces that texts get have changed by a call of the three above. What was shaped before may be in
  /// other faces than the same request gets now.
  std::uint64_t generation() const noexcept { return fontGeneration_.load(std::memory_order_acquire); }

  /// The faces that draw a text. Never null: a name that nobody has registered is answered by the port's substitute;
  /// unknown names in the cascade are left out. Equal requests may get the same object.
  std::shared_ptr<const Typeface> typeface(const TypefaceRequest& request);

  /// Shapes a text: bidirectional levels, one face for each character (the first of the cascade that has it, else one
  /// of the host's, else the primary face's replacement glyph), glyphs and their distances, and where lines may break.
  /// Never null; an unusable request gives an empty text.
  std::shared_ptr<const ShapedText> shape(const ShapeRequest& request);

  /// Faces for what neither a text's typefaces nor their cascades have, in the order of the text: of all registered
  /// faces that have it, else of the host's, the one nearest in weight. Combining marks, joiners and selectors go with
  /// the character that they belong to. What nobody has is left out. None for an unusable request.
  std::vector<FaceSubstitution> substitutions(const ShapeRequest& request);

  /// A canvas of `size` points, at `scale` pixels a point, its pixel size rounded up: transparent, or black for ever
  /// opaque. Null where a side is not above 0 or above 32,767 pixels, where the whole is above 2^27 pixels, and where
  /// there is no memory for it.
  std::unique_ptr<Canvas> makeCanvas(CGSize size, CGFloat scale, bool isOpaque = false);

  /// A bitmap as a PNG file's bytes, without an alpha channel where all of it is opaque, and in grey where all of that
  /// is grey; empty where the bitmap is, and where there is no memory for them.
  std::vector<std::uint8_t> encodePng(const Bitmap& bitmap);

  /// The picture in the bytes of a PNG file, of any colour type and depth, its pixels premultiplied. No picture, but
  /// the problem, where the file is empty, damaged or something else, where a side is above `Bitmap::kMostPixelsASide`
  /// or the whole above `Bitmap::kMostPixels`, and where there is no memory for it.
  PngPicture decodePng(std::span<const std::uint8_t> file);

  /// Full Unicode upper-casing, independent of any locale ("ß" becomes "SS"). Ill-formed bytes become U+FFFD.
  std::string upperCase(std::string_view text);

 protected:
  Engine() = default;
  /// @{
  /// The work of the public call of this name, whose arguments have been checked.
  virtual Registration onRegisterFontFile(const std::filesystem::path& file) = 0;
  virtual void onSetSubstituteFamily(const std::string& family) = 0;
  virtual void onSetUsesHostFonts(bool uses) = 0;
  virtual std::shared_ptr<const Typeface> onTypeface(const TypefaceRequest& request) = 0;
  virtual std::shared_ptr<const ShapedText> onShape(const ShapeRequest& request) = 0;
  virtual std::vector<FaceSubstitution> onSubstitutions(const ShapeRequest& request);
  virtual std::unique_ptr<Canvas> onMakeCanvas(int pixelWidth, int pixelHeight, CGFloat scale, bool isOpaque) = 0;
  virtual std::vector<std::uint8_t> onEncodePng(const Bitmap& bitmap) = 0;
  virtual PngPicture onDecodePng(std::span<const std::uint8_t> file) = 0;
  virtual std::string onUpperCase(const std::string& text) = 0;
  /// @}

 private:
  std::atomic<std::uint64_t> fontGeneration_{0};
};

/// The levels of memory pressure that are told of.
enum class MemoryPressureLevel : std::uint8_t {
  warning,   ///< memory grows short
  critical,  ///< processes may be ended for want of it
};

/// The main queue and memory pressure.
class SystemEvents {
 public:
  /// A piece of work for the main queue.
  using Work = std::function<void()>;
  /// What to call with the level of an event.
  using PressureHandler = std::function<void(MemoryPressureLevel)>;

  SystemEvents(const SystemEvents&) = delete;
  SystemEvents& operator=(const SystemEvents&) = delete;
  virtual ~SystemEvents();

  /// Runs `work` later on the main queue: serially, in the order of posting, on the thread that runs the host's main
  /// loop or calls `runPending`. May be called from any thread; nothing posted is lost while nobody runs the queue.
  void post(Work work);

  /// Runs on the calling thread what is due on the main queue, and returns how many pieces of work that was. For hosts
  /// without the port's own main loop. A call from within such work does nothing and returns 0.
  std::size_t runPending();

  /// Starts to watch the system's memory. `handler` is called on the main queue, once for each warning or critical
  /// event, until `stopWatchingMemoryPressure`. Where the system offers nothing to watch, the port says so once in its
  /// log and stays silent.
  void watchMemoryPressure(PressureHandler handler);

  /// Ends the watching: events whose delivery has not begun are dropped. Waits for nobody, and is harmless when nothing
  /// is watched.
  void stopWatchingMemoryPressure();

 protected:
  SystemEvents() = default;
  /// @{
  /// The work of the public call of this name, whose arguments have been checked.
  virtual void onPost(Work work) = 0;
  virtual std::size_t onRunPending() = 0;
  virtual void onWatchMemoryPressure(PressureHandler handler) = 0;
  virtual void onStopWatchingMemoryPressure() = 0;
  /// @}
};

}  // namespace Brisel::Platform
