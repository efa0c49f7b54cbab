#include "brisel/icons/internal/icon_names.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <type_traits>

namespace Brisel::internal {
namespace {

constexpr std::uint64_t byteAt(const char* text) { return static_cast<unsigned char>(*text); }

/// The bytes of an unsigned `Word` in the machine's order, for the compiler too.
template <class Word>
constexpr std::uint64_t load(const char* text) {
  Word word = 0;
  if (std::is_constant_evaluated()) {
    constexpr bool kLittle = std::endian::native == std::endian::little;
    for (std::size_t i = 0; i < sizeof(Word); ++i)
      word |= static_cast<Word>(byteAt(text + i)) << 8 * (kLittle ? i : sizeof(Word) - 1 - i);
  } else {
    std::memcpy(&word, text, sizeof(Word));
  }
  return word;
}
constexpr std::uint64_t fourBytes(const char* text) { return load<std::uint32_t>(text); }
constexpr std::uint64_t eightBytes(const char* text) { return load<std::uint64_t>(text); }

/// A name in three words, made without a branch for most names. Names of up to `kWhole` bytes are equal when their keys
/// are; of longer ones a key holds both ends.
struct Key {
  static constexpr std::size_t kWhole = 16;

  /// What no name has.
  constexpr Key() = default;
  /// `name` is not empty.
  constexpr explicit Key(std::string_view name) : size(name.size()) {
    const char* const begin = name.data();
    const char* const end = begin + size;
    if (size > kWhole) {
      first = eightBytes(begin);
      second = eightBytes(end - 8);
    } else if (size >= 4) {
      // From eight bytes on, those behind the first four and before the last four; below, the same ones again.
      const std::size_t inwards = size / 8 * 4;
      first = fourBytes(begin) << 32 | fourBytes(begin + inwards);
      second = fourBytes(end - 4) << 32 | fourBytes(end - 4 - inwards);
    } else {
      first = byteAt(begin);
      second = byteAt(begin + size / 2) << 8 | byteAt(end - 1);
    }
  }

  constexpr std::uint64_t hash() const {
    const std::uint64_t half = (first ^ size) * 0x9E3779B97F4A7C15;
    const std::uint64_t whole = ((half ^ half >> 32) + second) * 0xD6E8FEB86659FD93;
    return whole ^ whole >> 32;
  }

  friend constexpr bool operator==(const Key&, const Key&) = default;

  std::uint64_t size = 0, first = 0, second = 0;
};

/// A hash table without collisions: the keys of one bucket are moved by the bucket's displacement, in steps of their
/// own, to places that nobody else has. The compiler finds the displacements.
class NameTable {
 public:
  constexpr NameTable() {
    std::uint64_t hashes[kNone]{};
    std::size_t firstOf[kBuckets]{}, next[kNone]{}, sizeOf[kBuckets]{};  // the lists of the buckets' names
    for (std::size_t& first : firstOf) first = kNone;
    for (std::size_t i = 0; i < kNone; ++i) {
      keys_[i] = Key(kIconNames[i]);
      hashes[i] = keys_[i].hash();
      const std::size_t bucket = hashes[i] % kBuckets;
      next[i] = firstOf[bucket];
      firstOf[bucket] = i;
      ++sizeOf[bucket];
    }
    for (std::uint16_t& index : indices_) index = kNone;
    // The largest buckets first: they are the hardest to place.
    for (std::size_t size = *std::ranges::max_element(sizeOf); size > 0; --size)
      for (std::size_t bucket = 0; bucket < kBuckets; ++bucket)
        if (sizeOf[bucket] == size) place(bucket, hashes, firstOf[bucket], next);
  }

  constexpr std::size_t find(std::string_view name) const {
    if (name.empty() || name.size() > kLongestIconName) return kNone;
    const Key key(name);
    const std::uint64_t hash = key.hash();
    const std::size_t index = indices_[placeOf(hash, displacements_[hash % kBuckets])];
    if (keys_[index] != key) return kNone;
    if (name.size() > Key::kWhole && !haveSameMiddle(kIconNames[index], name)) return kNone;
    return index;
  }

 private:
  static constexpr std::uint16_t kNone = kNoIcon;
  static constexpr std::size_t kBuckets = 128, kPlaces = 512, kDisplacements = 256;

  static constexpr std::size_t placeOf(std::uint64_t hash, std::size_t displacement) {
    const std::uint64_t step = hash >> 16 | 1;
    return ((hash >> 7) + displacement * step) % kPlaces;
  }

  // What keys leave out of long names, of one length; without a call, unlike the texts' own comparison.
  static constexpr bool haveSameMiddle(std::string_view a, std::string_view b) {
    const std::size_t last = a.size() - 16;
    return eightBytes(a.data() + 8) == eightBytes(b.data() + 8) &&
           eightBytes(a.data() + last) == eightBytes(b.data() + last);
  }

  constexpr void place(std::size_t bucket, const std::uint64_t* hashes, std::size_t first, const std::size_t* next) {
    for (std::size_t displacement = 0; displacement < kDisplacements; ++displacement) {
      displacements_[bucket] = static_cast<std::uint8_t>(displacement);
      std::size_t name = first;
      for (; name != kNone; name = next[name]) {
        std::uint16_t& taken = indices_[placeOf(hashes[name], displacement)];
        if (taken != kNone) break;
        taken = static_cast<std::uint16_t>(name);
      }
      if (name == kNone) return;
      for (std::size_t placed = first; placed != name; placed = next[placed])
        indices_[placeOf(hashes[placed], displacement)] = kNone;
    }
    throw "Some names cannot be told apart: give Key::hash other multipliers, or a key more words";
  }

  std::uint8_t displacements_[kBuckets]{};
  std::uint16_t indices_[kPlaces]{};  // kNone where there is no name
  Key keys_[kNone + 1]{};
};

static_assert(kLongestIconName <= 2 * Key::kWhole, "A key and its middle cover no more");

constexpr NameTable kTable;

}  // namespace

std::size_t indexOfIconName(std::string_view name) noexcept { return kTable.find(name); }

}  // namespace Brisel::internal
