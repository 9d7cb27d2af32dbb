#include "platform/win/windows/key_translation.h"

#include <string_view>
#include <utility>

#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

std::optional<wchar_t>& pending() {
  static std::optional<wchar_t> character;
  return character;
}

bool isDown(int key) {
  return GetKeyState(key) < 0;
}

std::optional<wchar_t> characterOf(WPARAM key) {
  const bool control = isDown(VK_CONTROL);
  const bool isLetter = key >= 'A' && key <= 'Z';
  if (isLetter && control) return static_cast<wchar_t>(key - 'A' + 1);
  if (isLetter) return static_cast<wchar_t>(isDown(VK_SHIFT) ? key : key - 'A' + 'a');
  switch (key) {
    case VK_RETURN:
      return control ? L'\n' : L'\r';
    case VK_BACK:
    case VK_TAB:
    case VK_ESCAPE:
    case VK_SPACE:
      return static_cast<wchar_t>(key);
    default:
      if (key >= '0' && key <= '9' && !control) return static_cast<wchar_t>(key);
      return std::nullopt;
  }
}

}  // namespace

std::optional<wchar_t> takeTranslatedCharacter() {
  return std::exchange(pending(), std::nullopt);
}

void translateAndDispatch(const MSG& message) {
  if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
    pending() = characterOf(message.wParam);
  }
  DispatchMessageW(&message);
}

}  // namespace kovra::win

UINT MapVirtualKeyW(UINT key, UINT mapping) {
  // Rows of the keyboard: the first key's code and the keys in their order.
  static constexpr struct {
    UINT firstCode;
    std::string_view keys;
  } kRows[] = {{0x01,
                "\x1B"
                "1234567890"},
               {0x0E, "\b\tQWERTYUIOP"},
               {0x1C, "\r"},
               {0x1E, "ASDFGHJKL"},
               {0x2C, "ZXCVBNM"},
               {0x39, " "},
               {0x4F, "\x23"}};
  if (mapping != MAPVK_VK_TO_VSC || key > 0xFF) return 0;
  for (const auto& [firstCode, keys] : kRows) {
    const std::size_t place = keys.find(static_cast<char>(key));
    if (place != std::string_view::npos) return firstCode + static_cast<UINT>(place);
  }
  return 0;
}
