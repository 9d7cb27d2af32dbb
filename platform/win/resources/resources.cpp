#include "platform/win/resources/resources.h"

#include <algorithm>

#include "platform/win/resources/module_table.h"

namespace kovra::win {

std::span<const std::byte> findResource(HMODULE handle, ResourceType type, unsigned id) {
  const LoadedModule* module = findModule(handle);
  if (module == nullptr || !module->resources) return {};
  return module->resources->find(static_cast<unsigned>(type), id);
}

bool findString(HMODULE handle, unsigned id, std::wstring& text) {
  text.clear();
  const LoadedModule* module = findModule(handle);
  return module != nullptr && module->resources && module->resources->findString(id, text);
}

}  // namespace kovra::win

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int capacity) {
  static std::wstring text;  // stays for callers that ask for its address
  if (buffer == nullptr || capacity < 0) return 0;
  const bool found = kovra::win::findString(module, id, text);
  if (capacity == 0) {
    // `buffer` is really the address of a pointer.
    *reinterpret_cast<const wchar_t**>(buffer) = found ? text.c_str() : nullptr;
    return static_cast<int>(text.size());
  }
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity) - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = 0;
  return static_cast<int>(length);
}
