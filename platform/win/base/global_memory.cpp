#include "platform/win/base/global_memory.h"

#include <map>
#include <memory>
#include <new>

namespace {

struct Block {
  std::unique_ptr<std::byte[]> bytes;
  SIZE_T size = 0;
  int locks = 0;
};

struct Blocks {
  std::map<HGLOBAL, Block> all;
  std::uintptr_t lastHandle = 0x2000;
};

/// Handles are counted up and never used again.
Blocks& blocks() {
  static Blocks single;
  return single;
}

Block* find(HGLOBAL memory) {
  const auto found = blocks().all.find(memory);
  return found != blocks().all.end() ? &found->second : nullptr;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT /*flags*/, SIZE_T bytes) {
  Block block;
  block.bytes.reset(new (std::nothrow) std::byte[bytes]());
  block.size = bytes;
  if (block.bytes == nullptr) return nullptr;
  blocks().lastHandle += 4;
  auto* const handle = reinterpret_cast<HGLOBAL>(blocks().lastHandle);
  blocks().all.emplace(handle, std::move(block));
  return handle;
}

LPVOID GlobalLock(HGLOBAL memory) {
  Block* block = find(memory);
  if (block == nullptr) return nullptr;
  ++block->locks;
  return block->bytes.get();
}

BOOL GlobalUnlock(HGLOBAL memory) {
  Block* block = find(memory);
  if (block == nullptr || block->locks == 0) return FALSE;
  return --block->locks > 0 ? TRUE : FALSE;
}

SIZE_T GlobalSize(HGLOBAL memory) {
  const Block* block = find(memory);
  return block != nullptr ? block->size : 0;
}

HGLOBAL GlobalFree(HGLOBAL memory) {
  return blocks().all.erase(memory) > 0 ? nullptr : memory;
}
