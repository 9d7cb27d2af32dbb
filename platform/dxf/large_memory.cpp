#include "platform/dxf/large_memory.h"

#include <sys/mman.h>

#include <utility>

namespace kovra::dxf {

LargeMemory::~LargeMemory() {
  if (data_ != nullptr) ::munmap(data_, size_);
}

LargeMemory::LargeMemory(LargeMemory&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

LargeMemory& LargeMemory::operator=(LargeMemory&& other) noexcept {
  std::swap(data_, other.data_);
  std::swap(size_, other.size_);
  return *this;
}

bool LargeMemory::resize(std::size_t size) {
  if (size == 0) size = 1;
  void* memory = data_ == nullptr ? ::mmap(nullptr, size, PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)
                                  : ::mremap(data_, size_, size, MREMAP_MAYMOVE);
  if (memory == MAP_FAILED) return false;
  data_ = static_cast<char*>(memory);
  size_ = size;
  return true;
}

}  // namespace kovra::dxf
