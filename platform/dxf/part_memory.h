#pragma once

#include <cstddef>

namespace kovra::dxf {

/// Memory for the many small parts that edits leave: states of records and what they differ in;
/// also for the elements of lists.
/// They lie side by side in large pieces (see LargeMemory), since the heap takes new memory in
/// small pages. What is given back waits for parts of the same size. For one thread; lives as long
/// as the program. takePart() throws std::bad_alloc.
void* takePart(std::size_t size);
void giveBackPart(void* part, std::size_t size);

/// For containers and shared pointers of parts.
template <class T>
struct PartAllocator {
  using value_type = T;

  PartAllocator() = default;
  template <class Other>
  PartAllocator(const PartAllocator<Other>&) {}

  T* allocate(std::size_t count) { return static_cast<T*>(takePart(count * sizeof(T))); }
  void deallocate(T* parts, std::size_t count) { giveBackPart(parts, count * sizeof(T)); }
  bool operator==(const PartAllocator&) const = default;
};

}  // namespace kovra::dxf
