#include "module/frame/narrow_text.h"

namespace kovra {

std::string NarrowText(const ACHAR* text) {
  const int length = WideCharToMultiByte(CP_THREAD_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (length <= 0) return {};
  std::string bytes(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_THREAD_ACP, 0, text, -1, bytes.data(), length, nullptr, nullptr);
  bytes.pop_back();  // the null that ends it
  return bytes;
}

}  // namespace kovra
