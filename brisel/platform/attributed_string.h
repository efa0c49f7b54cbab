#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/object.h"
#include "brisel/platform/value.h"

namespace Brisel::Platform {

/// A UIFont.
inline constexpr std::string_view NSFontAttributeName = "NSFontAttributeName";
/// A UIColor: of the glyphs, and behind them.
inline constexpr std::string_view NSForegroundColorAttributeName = "NSForegroundColorAttributeName";
/// A UIColor: behind the glyphs.
inline constexpr std::string_view NSBackgroundColorAttributeName = "NSBackgroundColorAttributeName";
/// An NSParagraphStyle; the one at the first character of a paragraph holds for all of it.
inline constexpr std::string_view NSParagraphStyleAttributeName = "NSParagraphStyleAttributeName";
/// A number of points that is added to each character's advance.
inline constexpr std::string_view NSKernAttributeName = "NSKernAttributeName";
/// A number of points by which the text is raised above the baseline.
inline constexpr std::string_view NSBaselineOffsetAttributeName = "NSBaselineOffsetAttributeName";

/// A part of a text, in UTF-16 code units.
struct NSRange {
  std::size_t location = 0;  ///< the first code unit
  std::size_t length = 0;    ///< how many there are
  /// One behind the last code unit.
  std::size_t end() const noexcept { return location + length; }
  friend bool operator==(const NSRange&, const NSRange&) = default;
};

/// A longest part of a text whose attributes are equal.
struct AttributeRun {
  NSRange range;          ///< not empty
  Dictionary attributes;  ///< of all its characters
};

class NSMutableAttributedString;

/// An immutable text whose characters bear attributes. Positions are UTF-16 code units. A position beyond the text is a
/// programming error; a range that cuts a surrogate pair stands for the one with the whole pair, so that no half ever
/// comes about. Equal when texts and attributes are equal.
class NSAttributedString : public NSObject {
 protected:
  struct Characters;
  // Only factories can make one, and with it a string.
  struct Factory {
    explicit Factory() = default;
  };

 public:
  /// `initWithString:attributes:`: a text with the same attributes throughout. Ill-formed bytes are replaced.
  static std::shared_ptr<const NSAttributedString> initWithString(std::string_view text,
                                                                  const Dictionary& attributes = {});

  /// For the factories.
  NSAttributedString(Factory, std::shared_ptr<const Characters> characters, std::vector<AttributeRun> runs);

  /// The text in UTF-8, well-formed.
  const std::string& string() const noexcept { return characters_->utf8; }
  /// The text in UTF-16; lives as long as this string, unchanged.
  std::u16string_view utf16() const noexcept { return characters_->utf16; }
  /// The same, kept alive by the pointer without the attributes.
  std::shared_ptr<const std::u16string> sharedUtf16() const noexcept { return {characters_, &characters_->utf16}; }
  /// How many UTF-16 code units there are.
  std::size_t length() const noexcept { return characters_->utf16.size(); }

  /// All attributes in order: the runs are never empty and cover the text.
  std::span<const AttributeRun> attributeRuns() const noexcept { return runs_; }

  /// `attributesAtIndex:effectiveRange:`: the attributes of a character, and the longest part around it that has the
  /// same. `index` must be below the length.
  const Dictionary& attributesAtIndex(std::size_t index, NSRange* effectiveRange = nullptr) const;

  /// `attribute:atIndex:effectiveRange:`: one attribute of a character, or null; valid until the string is changed.
  const Value* attribute(std::string_view name, std::size_t index) const;

  /// `enumerateAttributesInRange:options:usingBlock:`, which has no options: calls `block(range, attributes)` for the
  /// part of each run that lies in `range`, in order and as it was at the beginning, so that the block may change a
  /// mutable string.
  template <class Block>
  void enumerateAttributesInRange(NSRange range, Block&& block) const {
    for (const AttributeRun& run : runsIn(range)) block(run.range, run.attributes);
  }

  /// `attributedSubstringFromRange:`: a part with its attributes.
  std::shared_ptr<const NSAttributedString> attributedSubstringFromRange(NSRange range) const;
  /// A string of its own with the same text and attributes, which can be changed.
  std::shared_ptr<NSMutableAttributedString> mutableCopy() const;
  /// The string as it is now, which nobody can change: one that nobody can change anyway is its own copy.
  virtual std::shared_ptr<const NSAttributedString> copy() const;

  /// The same characters with these attributes and no others.
  std::shared_ptr<const NSAttributedString> withAttributes(const Dictionary& attributes) const;
  /// A copy with the fonts that `fixAttributesInRange` would set. Needs a port.
  std::shared_ptr<const NSAttributedString> withFixedAttributes() const;

  bool isEqual(const NSObject& other) const override;
  std::size_t objectHash() const override;

 protected:
  /// The same text twice. Immutable, so that copies share it.
  struct Characters {
    std::string utf8;      ///< well-formed
    std::u16string utf16;  ///< well-formed
  };

  /// A text twice, its ill-formed bytes replaced.
  static std::shared_ptr<const Characters> charactersOf(std::string_view text);
  /// A text twice.
  static std::shared_ptr<const Characters> charactersOf(std::u16string text);

  /// The range, checked against the text, with whole pairs.
  NSRange checked(NSRange range) const;
  /// The runs of a part, cut to it, at their places in the whole.
  std::vector<AttributeRun> runsIn(NSRange range) const;
  /// Whether all characters of a part, which is checked, are in their font or its cascade.
  bool hasFontsFor(NSRange range) const;

  std::shared_ptr<const Characters> characters_;  ///< never null
  std::vector<AttributeRun> runs_;                ///< cover the text; neighbours differ
};

/// An attributed string that can be changed. For one thread at a time.
class NSMutableAttributedString final : public NSAttributedString {
 public:
  using NSAttributedString::NSAttributedString;
  /// `initWithString:attributes:`: as of the base class, in a string that can be changed.
  static std::shared_ptr<NSMutableAttributedString> initWithString(std::string_view text,
                                                                   const Dictionary& attributes = {});

  std::shared_ptr<const NSAttributedString> copy() const override;

  /// `replaceCharactersInRange:withString:`: the new text takes the attributes of the first replaced character; where
  /// none is replaced, those of the character before, else of the one behind.
  void replaceCharactersInRange(NSRange range, std::string_view text);
  /// `replaceCharactersInRange:withAttributedString:`: the new text keeps its attributes.
  void replaceCharactersInRange(NSRange range, const NSAttributedString& text);
  /// `appendAttributedString:`: puts a text with its attributes at the end.
  void appendAttributedString(const NSAttributedString& text);

  /// `addAttribute:value:range:`, `addAttributes:range:`: sets these and keeps all others.
  void addAttribute(std::string_view name, Value value, NSRange range);
  /// Sets these and keeps all others.
  void addAttributes(const Dictionary& attributes, NSRange range);
  /// `setAttributes:range:`: these and no others.
  void setAttributes(const Dictionary& attributes, NSRange range);
  /// `removeAttribute:range:`: takes it from all characters that have it.
  void removeAttribute(std::string_view name, NSRange range);
  /// Gives the part of each run that lies in `range` the attributes that `change` answers for it, all in one walk: as
  /// many changes one by one would each walk over all runs. `change` may not change the string.
  void changeAttributesInRange(NSRange range,
                               const std::function<Dictionary(NSRange part, const Dictionary& attributes)>& change);

  /// `fixAttributesInRange:`: where neither a font nor its cascade has a character, sets the font of a face that has
  /// it, with all that the old one asked for besides its name. Combining marks and the like go with their base; what
  /// nobody has keeps its font, and so does text without one. Needs a port.
  void fixAttributesInRange(NSRange range);

 private:
  void replace(NSRange range, std::u16string_view text, std::span<const AttributeRun> runs);
  /// Puts runs, which need not be the longest, in the place of those of a checked range.
  void replaceRuns(NSRange range, std::span<const AttributeRun> runs);
};

}  // namespace Brisel::Platform
