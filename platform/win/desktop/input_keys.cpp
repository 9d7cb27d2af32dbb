#include "platform/win/desktop/input_keys.h"

#include "platform/win/base/wide_text.h"
#include "platform/win/windows/key_translation.h"
#include "platform/win/windows/message_queue.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

struct KeyName {
  std::string_view name;
  int key;
};
constexpr KeyName kKeyNames[] = {
    {"Enter", VK_RETURN}, {"Return", VK_RETURN}, {"Esc", VK_ESCAPE},     {"Escape", VK_ESCAPE},
    {"Tab", VK_TAB},      {"Space", VK_SPACE},   {"Backspace", VK_BACK}, {"Delete", VK_DELETE},
    {"Del", VK_DELETE},   {"Insert", VK_INSERT}, {"Ins", VK_INSERT},     {"Home", VK_HOME},
    {"End", VK_END},      {"PageUp", VK_PRIOR},  {"PageDown", VK_NEXT},  {"Left", VK_LEFT},
    {"Right", VK_RIGHT},  {"Up", VK_UP},         {"Down", VK_DOWN},
};

bool sameName(std::string_view a, std::string_view b) {
  return equalNoCase(fromUtf8(a), fromUtf8(b));
}

std::optional<int> plainKey(std::string_view name) {
  for (const KeyName& entry : kKeyNames) {
    if (sameName(name, entry.name)) return entry.key;
  }
  const char first = name.empty() ? '\0' : name.front();
  const bool isLetter = (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
  const bool isDigit = first >= '0' && first <= '9';
  if (name.size() == 1 && isLetter) return first & ~0x20;
  if (name.size() == 1 && isDigit) return first;
  if ((first == 'F' || first == 'f') && name.size() > 1) {
    const int number = _atoi(std::string(name.substr(1)).c_str());
    if (number >= 1 && number <= VK_F12 - VK_F1 + 1) return VK_F1 + number - 1;
  }
  return std::nullopt;
}

bool holdModifier(std::string_view name, Keystroke& stroke) {
  if (sameName(name, "Shift")) return stroke.shift = true;
  if (sameName(name, "Ctrl")) return stroke.control = true;
  if (sameName(name, "Alt")) return stroke.alt = true;
  return false;
}

}  // namespace

std::optional<Keystroke> keyNamed(std::string_view name) {
  Keystroke stroke;
  for (auto plus = name.find('+'); plus != std::string_view::npos; plus = name.find('+')) {
    if (!holdModifier(name.substr(0, plus), stroke)) return std::nullopt;
    name.remove_prefix(plus + 1);
  }
  const auto key = plainKey(name);
  if (!key) return std::nullopt;
  stroke.key = *key;
  return stroke;
}

std::vector<std::string> keyNames() {
  std::vector<std::string> names;
  for (const KeyName& entry : kKeyNames) names.emplace_back(entry.name);
  for (int i = VK_F1; i <= VK_F12; ++i) names.push_back("F" + std::to_string(i - VK_F1 + 1));
  return names;
}

void sendKey(HWND target, Keystroke stroke) {
  const KeyHeld shift(VK_SHIFT, stroke.shift);
  const KeyHeld control(VK_CONTROL, stroke.control);
  const KeyHeld alt(VK_MENU, stroke.alt);
  const auto key = static_cast<WPARAM>(stroke.key);
  takeTranslatedCharacter();
  deliver(target, stroke.alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 0);
  if (const auto character = takeTranslatedCharacter()) {
    deliver(target, stroke.alt ? WM_SYSCHAR : WM_CHAR, static_cast<WPARAM>(*character), 0);
  }
  const HWND now = GetFocus() != nullptr ? GetFocus() : target;
  deliver(now, stroke.alt ? WM_SYSKEYUP : WM_KEYUP, key, 0);
}

}  // namespace kovra::win
