#include "platform/dxf/large_memory.h"

#include <sys/mman.h>

#include <mutex>
#include <utility>

namespace kovra::dxf {

namespace {

constexpr std::size_t kLargePage = LargeMemory::kLargePage;

/// Whole large pages for what fills an eighth of one or more: the system puts them where they fit.
/// To clear a large page takes less than the first touches of the 64 small pages of an eighth.
std::size_t wholePages(std::size_t size) {
  if (size < kLargePage / 8) return size;
  return (size + kLargePage - 1) / kLargePage * kLargePage;
}

/// Of the program's memory so much at most stays taken for a next drawing.
constexpr std::size_t kLargestSpare = 4 * kLargePage;

/// The block that was given back last.
class Spare {
 public:
  void swap(char*& data, std::size_t& size) {
    const std::lock_guard guard(lock_);
    std::swap(data, data_);
    std::swap(size, size_);
  }

 private:
  std::mutex lock_;
  char* data_ = nullptr;
  std::size_t size_ = 0;
};

/// Blocks may be given back up to the end of the program, so it is never destroyed.
Spare& spare() {
  static auto* const only = new Spare;
  return *only;
}

}  // namespace

LargeMemory::~LargeMemory() {
  // What is less than a large page costs little to take anew.
  const bool isKept = size_ >= kLargePage && size_ <= kLargestSpare;
  if (isKept) spare().swap(data_, size_);
  if (data_ != nullptr) ::munmap(data_, size_);
}

LargeMemory LargeMemory::ofAnyContent(std::size_t size) {
  LargeMemory memory;
  if (size > kLargestSpare) {
    memory.resize(size);
    return memory;
  }
  spare().swap(memory.data_, memory.size_);
  if (memory.data_ != nullptr && memory.size_ >= size) return memory;
  LargeMemory larger;
  larger.resize(size);
  return larger;
}

LargeMemory::LargeMemory(LargeMemory&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

LargeMemory& LargeMemory::operator=(LargeMemory&& other) noexcept {
  std::swap(data_, other.data_);
  std::swap(size_, other.size_);
  return *this;
}

bool LargeMemory::resize(std::size_t size) {
  size = wholePages(size == 0 ? 1 : size);
  void* memory = data_ == nullptr ? ::mmap(nullptr, size, PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)
                                  : ::mremap(data_, size_, size, MREMAP_MAYMOVE);
  if (memory == MAP_FAILED) return false;
  if (size >= kLargePage) ::madvise(memory, size, MADV_HUGEPAGE);
  data_ = static_cast<char*>(memory);
  size_ = size;
  return true;
}

bool LargeMemory::prepare(std::size_t begin, std::size_t size) const {
  return ::madvise(data_ + begin, size, MADV_POPULATE_WRITE) == 0;
}

}  // namespace kovra::dxf
