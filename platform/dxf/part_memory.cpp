#include "platform/dxf/part_memory.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>
#include <vector>

#include "platform/dxf/large_memory.h"

namespace kovra::dxf {

namespace {

constexpr std::size_t kStep = alignof(std::max_align_t);  ///< sizes are rounded up to multiples
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kLargestPart = 0;  // so that it sees what is lost or used too late
#else
constexpr std::size_t kLargestPart = 512;
#endif
constexpr std::size_t kFirstPiece = std::size_t{32} << 10U;
constexpr std::size_t kLargestPiece = std::size_t{2} << 20U;

class Parts {
 public:
  void* take(std::size_t steps) {
    Free*& free = free_[steps];
    return free != nullptr ? std::exchange(free, free->next) : takeNew(steps * kStep);
  }
  void giveBack(void* part, std::size_t steps) { free_[steps] = ::new (part) Free{free_[steps]}; }

 private:
  struct Free {
    Free* next;
  };

  void* takeNew(std::size_t size) {
    if (pieces_.empty() || pieces_.back().size() - used_ < size) {
      LargeMemory piece;
      const std::size_t last = pieces_.empty() ? kFirstPiece / 2 : pieces_.back().size();
      if (!piece.resize(std::min(2 * last, kLargestPiece))) throw std::bad_alloc();
      pieces_.push_back(std::move(piece));
      used_ = 0;
    }
    return pieces_.back().data() + std::exchange(used_, used_ + size);
  }

  std::vector<LargeMemory> pieces_;
  std::size_t used_ = 0;  ///< of the last piece
  std::array<Free*, kLargestPart / kStep + 1> free_{};
};

/// Parts may be held to the end of the program, so they are never destroyed.
union ForEver {
  constexpr ForEver() : parts() {}
  ~ForEver() {}
  Parts parts;
};
constinit ForEver all;

}  // namespace

void* takePart(std::size_t size) {
  if (size > kLargestPart) return ::operator new(size);
  return all.parts.take((size + kStep - 1) / kStep);
}

void giveBackPart(void* part, std::size_t size) {
  if (size > kLargestPart) return ::operator delete(part);
  all.parts.giveBack(part, (size + kStep - 1) / kStep);
}

}  // namespace kovra::dxf
