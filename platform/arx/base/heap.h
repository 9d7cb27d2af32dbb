// The platform's heap: objects made in one library may be deleted in another.
#pragma once
#include <cstddef>
#include <new>

/// `heap` is null, which means the process's own. Throws std::bad_alloc.
void* acHeapAlloc(void* heap, std::size_t size);
/// Null is left alone.
void acHeapFree(void* heap, void* memory);

/// Base of classes whose objects live on that heap.
class AcHeapOperators {
 public:
  static void* operator new(std::size_t size) { return acHeapAlloc(nullptr, size); }
  static void* operator new[](std::size_t size) { return acHeapAlloc(nullptr, size); }
  static void* operator new(std::size_t, void* place) { return place; }
  /// Null where there is no memory.
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return ::operator new(size, std::nothrow);
  }
  static void operator delete(void* memory) { acHeapFree(nullptr, memory); }
  static void operator delete[](void* memory) { acHeapFree(nullptr, memory); }
  static void operator delete(void*, void*) {}
  static void operator delete(void* memory, const std::nothrow_t&) noexcept {
    acHeapFree(nullptr, memory);
  }
};
