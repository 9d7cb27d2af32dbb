#include "platform/win/resources/cursors.h"

#include <cstdint>
#include <utility>

namespace {

HCURSOR shown = nullptr;

}  // namespace

HCURSOR LoadCursorW(HINSTANCE module, LPCWSTR name) {
  // The number of a system cursor serves as its handle.
  if (module != nullptr) return nullptr;
  return reinterpret_cast<HCURSOR>(reinterpret_cast<std::uintptr_t>(name));
}

HCURSOR SetCursor(HCURSOR cursor) {
  return std::exchange(shown, cursor);
}

HCURSOR GetCursor() {
  return shown;
}
