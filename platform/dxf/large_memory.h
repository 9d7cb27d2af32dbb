#pragma once

#include <cstddef>

namespace kovra::dxf {

/// Zeroed memory for what grows with a drawing, straight from the system: growing moves pages
/// instead of copying them, and pages that were never touched cost nothing. Large pages are asked
/// for, a hint that systems without them ignore: the first touch of a page interrupts the program,
/// and where a virtual machine's page tables are shadowed by its host that takes longer than
/// reading a drawing.
class LargeMemory {
 public:
  static constexpr std::size_t kLargePage = std::size_t{2} << 20U;

  LargeMemory() = default;
  ~LargeMemory();
  /// So many bytes or more of any content, for who writes them before reading; without data if
  /// there is no memory. Takes over what was last given back, so that one drawing after another
  /// goes through the same pages: to take new ones costs a fifth of reading a small drawing.
  static LargeMemory ofAnyContent(std::size_t size);

  LargeMemory(LargeMemory&& other) noexcept;
  LargeMemory& operator=(LargeMemory&& other) noexcept;

  /// Makes it `size` bytes long; what was there stays, what is new is zero. False if there is no
  /// memory: it is as before then.
  bool resize(std::size_t size);
  /// Takes the pages of a piece before they are touched; by another thread it costs nobody time.
  /// False if the system can't: they come with the first touch then, as ever.
  bool prepare(std::size_t begin, std::size_t size) const;
  char* data() const { return data_; }
  std::size_t size() const { return size_; }

 private:
  char* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace kovra::dxf
