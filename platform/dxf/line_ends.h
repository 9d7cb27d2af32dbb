#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace kovra::dxf {

/// Walks the line feeds of a text. Lines of drawings have some seven bytes: a call of memchr for
/// each costs more than finding all line feeds of 64 bytes at once.
class LineEnds {
 public:
  explicit LineEnds(std::string_view text) : block_(text.data()), end_(text.data() + text.size()) {
    mask_ = scan();
  }

  /// The next line feed; the end of the text when there is none left.
  [[gnu::always_inline]] const char* next() {
    while (mask_ == 0) {
      if (end_ - block_ <= kBlock) return end_;
      block_ += kBlock;
      mask_ = scan();
    }
    const char* found = block_ + std::countr_zero(mask_);
    mask_ &= mask_ - 1;
    return found;
  }

 private:
  static constexpr std::ptrdiff_t kBlock = 64;

  std::uint64_t scan() const {
    if (end_ - block_ >= kBlock) return lineFeeds(block_);
    char rest[kBlock] = {};
    if (end_ != block_) std::memcpy(rest, block_, static_cast<std::size_t>(end_ - block_));
    return lineFeeds(rest);
  }

  /// Bit n is set if byte n is a line feed.
  static std::uint64_t lineFeeds(const char* bytes) {
#if defined(__SSE2__)
    const __m128i feed = _mm_set1_epi8('\n');
    std::uint64_t mask = 0;
    for (int part = 3; part >= 0; --part) {
      __m128i chunk;
      std::memcpy(&chunk, bytes + 16 * part, sizeof chunk);
      const int bits = _mm_movemask_epi8(_mm_cmpeq_epi8(chunk, feed));
      mask = mask << 16U | static_cast<std::uint16_t>(bits);
    }
    return mask;
#else
    std::uint64_t mask = 0;
    for (unsigned n = 0; n < kBlock; ++n) mask |= std::uint64_t{bytes[n] == '\n'} << n;
    return mask;
#endif
  }

  const char* block_;
  const char* end_;
  std::uint64_t mask_;
};

}  // namespace kovra::dxf
