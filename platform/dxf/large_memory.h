#pragma once

#include <cstddef>

namespace kovra::dxf {

/// Zeroed memory for what grows with a drawing, straight from the system: growing moves pages
/// instead of copying them, and pages that were never touched cost nothing. Large pages aren't
/// asked for: on virtual machines whose host takes back free memory, and takes it in large pieces,
/// each costs many times what it saves.
class LargeMemory {
 public:
  LargeMemory() = default;
  ~LargeMemory();
  LargeMemory(LargeMemory&& other) noexcept;
  LargeMemory& operator=(LargeMemory&& other) noexcept;

  /// Makes it `size` bytes long; what was there stays, what is new is zero. False if there is no
  /// memory: it is as before then.
  bool resize(std::size_t size);
  char* data() const { return data_; }
  std::size_t size() const { return size_; }

 private:
  char* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace kovra::dxf
