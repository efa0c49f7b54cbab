#include "brisel/platform/linux/font_face.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <hb-ot.h>

#include "brisel/platform/linux/freetype_library.h"

namespace Brisel::Platform::Linux {
namespace {

using Registration = Engine::Registration;
using HbBlobPtr = std::unique_ptr<hb_blob_t, HbDelete<hb_blob_t, hb_blob_destroy>>;
using HbFacePtr = std::unique_ptr<hb_face_t, HbDelete<hb_face_t, hb_face_destroy>>;

// The file's bytes; none where it cannot be read. They are copied and not mapped: a mapped file that somebody cuts
// short would end the process.
HbBlobPtr read(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream content;
  const bool isRead = static_cast<bool>(content << in.rdbuf());  // false also where there are none
  if (!isRead || content.view().size() > std::numeric_limits<unsigned>::max()) return HbBlobPtr(hb_blob_get_empty());
  auto bytes = std::make_unique<std::string>(std::move(content).str());
  const std::string_view view = *bytes;
  return HbBlobPtr(hb_blob_create(view.data(), static_cast<unsigned>(view.size()), HB_MEMORY_MODE_READONLY,
                                  bytes.release(), [](void* owned) { delete static_cast<std::string*>(owned); }));
}

// Whether the file says that it is an OpenType font or a collection of them.
bool hasFontSignature(hb_blob_t* blob) {
  unsigned length = 0;
  const char* data = hb_blob_get_data(blob, &length);
  if (length < 4) return false;
  const std::string_view signature(data, 4);
  return signature == std::string_view("\0\1\0\0", 4) || signature == "OTTO" || signature == "true" ||
         signature == "ttcf";
}

// FreeType reads a face strictly and so tells damaged files from sound ones; HarfBuzz, which draws, would take a
// damaged table for an absent one. The result is the face's PostScript name.
std::pair<Registration, std::string> inspect(hb_blob_t* blob, unsigned index) {
  const FreeTypeLibrary freetype;
  unsigned length = 0;
  const char* data = hb_blob_get_data(blob, &length);
  FT_Face face = nullptr;
  const FT_Error error = FT_New_Memory_Face(freetype.get(), reinterpret_cast<const FT_Byte*>(data),
                                            static_cast<FT_Long>(length), static_cast<FT_Long>(index & 0xFFFF), &face);
  if (error != FT_Err_Ok) return {Registration::invalidFontData, {}};
  const char* name = FT_Get_Postscript_Name(face);
  const bool isSound = name && *name != '\0' && FT_IS_SFNT(face) && face->num_glyphs > 0 && face->num_charmaps > 0;
  std::pair<Registration, std::string> result{Registration::invalidFontData, {}};
  if (isSound) result = {Registration::registered, name};
  FT_Done_Face(face);
  return result;
}

// Every table must lie inside the file: HarfBuzz would quietly clip one that does not.
bool tablesAreWhole(hb_blob_t* blob) {
  unsigned length = 0;
  const auto* data = reinterpret_cast<const unsigned char*>(hb_blob_get_data(blob, &length));
  const auto word = [&](std::size_t at) -> std::uint32_t {
    return (std::uint32_t{data[at]} << 24) | (std::uint32_t{data[at + 1]} << 16) | (std::uint32_t{data[at + 2]} << 8) |
           data[at + 3];
  };
  constexpr std::size_t kHeader = 12;
  constexpr std::size_t kRecord = 16;
  if (length < kHeader) return false;
  if (std::memcmp(data, "ttcf", 4) == 0) return true;  // A collection's faces are checked by FreeType alone.
  const std::size_t tables = (std::size_t{data[4]} << 8) | data[5];
  if (length < kHeader + tables * kRecord) return false;
  for (std::size_t i = 0; i < tables; ++i) {
    const std::size_t record = kHeader + i * kRecord;
    if (std::uint64_t{word(record + 8)} + word(record + 12) > length) return false;
  }
  return true;
}

std::string nameRecord(hb_face_t* face, hb_ot_name_id_t id) {
  std::array<char, 256> buffer{};
  auto size = static_cast<unsigned>(buffer.size());
  hb_ot_name_get_utf8(face, id, HB_LANGUAGE_INVALID, &size, buffer.data());
  return std::string(buffer.data());
}

CGFloat metric(hb_font_t* font, hb_ot_metrics_tag_t tag, CGFloat fallback, CGFloat unitsPerEm) {
  hb_position_t position = 0;
  return hb_ot_metrics_get_position(font, tag, &position) != 0 ? position / unitsPerEm : fallback;
}

}  // namespace

FontFace::Loaded FontFace::load(const Engine& maker, const std::filesystem::path& file, unsigned index) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return {nullptr, Registration::fileNotFound};
  if (!std::filesystem::is_regular_file(file, error)) return {nullptr, Registration::unrecognizedFormat};
  const HbBlobPtr blob = read(file);
  if (!hasFontSignature(blob.get())) return {nullptr, Registration::unrecognizedFormat};

  auto [result, name] = inspect(blob.get(), index);
  if (result != Registration::registered) return {nullptr, result};
  if (!tablesAreWhole(blob.get())) return {nullptr, Registration::invalidFontData};

  const HbFacePtr face(hb_face_create(blob.get(), index & 0xFFFF));
  if (hb_face_get_glyph_count(face.get()) == 0) return {nullptr, Registration::invalidFontData};
  HbFontPtr font(hb_font_create(face.get()));
  const auto unitsPerEm = static_cast<int>(hb_face_get_upem(face.get()));
  hb_font_set_scale(font.get(), unitsPerEm, unitsPerEm);
  if (index >> 16) hb_font_set_var_named_instance(font.get(), (index >> 16) - 1);
  return {std::make_shared<const FontFace>(maker, std::move(font), std::move(name)), Registration::registered};
}

std::shared_ptr<const FontFace> FontFace::empty(const Engine& maker) {
  HbFontPtr font(hb_font_create(hb_face_get_empty()));
  hb_font_set_scale(font.get(), 1000, 1000);
  return std::make_shared<const FontFace>(maker, std::move(font), "");
}

FontFace::FontFace(const Engine& maker, HbFontPtr font, std::string postscriptName)
    : Face(maker),
      font_(std::move(font)),
      outlines_(font_.get()),
      characters_(hb_set_create()),
      postscriptName_(std::move(postscriptName)) {
  hb_font_make_immutable(font_.get());
  hb_face_t* face = hb_font_get_face(font_.get());
  hb_face_collect_unicodes(face, characters_.get());

  family_ = nameRecord(face, HB_OT_NAME_ID_TYPOGRAPHIC_FAMILY);
  if (family_.empty()) family_ = nameRecord(face, HB_OT_NAME_ID_FONT_FAMILY);
  weight_ = static_cast<int>(hb_style_get_value(font_.get(), HB_STYLE_TAG_WEIGHT));

  int xScale = 0;
  int yScale = 0;
  hb_font_get_scale(font_.get(), &xScale, &yScale);
  unitsPerEm_ = std::max(xScale, 1);
  hb_font_extents_t extents{};
  hb_font_get_h_extents(font_.get(), &extents);
  metrics_.ascender = extents.ascender / unitsPerEm_;
  metrics_.descender = extents.descender / unitsPerEm_;
  metrics_.leading = extents.line_gap / unitsPerEm_;
  metrics_.capHeight = metric(font_.get(), HB_OT_METRICS_TAG_CAP_HEIGHT, metrics_.ascender, unitsPerEm_);
  metrics_.xHeight = metric(font_.get(), HB_OT_METRICS_TAG_X_HEIGHT, metrics_.capHeight / 2, unitsPerEm_);
}

}  // namespace Brisel::Platform::Linux
