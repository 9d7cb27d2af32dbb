#include "platform/arx/base/heap.h"

#include <new>

void* acHeapAlloc(void* /*heap*/, std::size_t size) {
  return ::operator new(size);
}

void acHeapFree(void* /*heap*/, void* memory) {
  ::operator delete(memory);
}
