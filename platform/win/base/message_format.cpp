#include "platform/win/base/message_format.h"

#include <algorithm>
#include <optional>
#include <string>

#include "platform/win/base/wide_format.h"

namespace {

std::optional<std::wstring> formatted(DWORD flags, const wchar_t* format, std::va_list* arguments) {
  if (flags == (FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY)) {
    return kovra::win::formatNumbered(format, reinterpret_cast<const DWORD_PTR*>(arguments));
  }
  if (flags != FORMAT_MESSAGE_FROM_STRING) return std::nullopt;
  if (arguments == nullptr) return kovra::win::formatNumbered(format, nullptr);
  return kovra::win::formatNumberedV(format, *arguments);
}

}  // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD /*messageId*/, DWORD /*languageId*/,
                     LPWSTR buffer, DWORD capacity, std::va_list* arguments) {
  const auto text = formatted(flags, static_cast<const wchar_t*>(source), arguments);
  if (!text || buffer == nullptr || text->size() >= capacity) return 0;
  std::copy_n(text->c_str(), text->size() + 1, buffer);
  return static_cast<DWORD>(text->size());
}
