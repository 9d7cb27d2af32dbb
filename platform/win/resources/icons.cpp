#include "platform/win/resources/icons.h"

#include <map>

#include "platform/win/resources/resources.h"

namespace kovra::win {
namespace {

std::map<HICON, Icon>& icons() {
  static std::map<HICON, Icon> table;
  return table;
}

}  // namespace

const Icon* findIcon(HICON icon) {
  const auto found = icons().find(icon);
  return found != icons().end() ? &found->second : nullptr;
}

}  // namespace kovra::win

HANDLE LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int /*height*/,
                  UINT /*flags*/) {
  using namespace kovra::win;
  static std::uintptr_t last = 0x20000;
  const auto id = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(name));
  if (type != IMAGE_ICON || findResource(module, ResourceType::groupIcon, id).empty()) {
    return nullptr;
  }
  constexpr int kUsualSize = 32;
  const auto icon = reinterpret_cast<HICON>(++last);
  icons()[icon] = {module, id, width > 0 ? width : kUsualSize};
  return icon;
}

HICON LoadIconW(HINSTANCE module, LPCWSTR name) {
  return static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, 0, 0, LR_SHARED));
}

BOOL DestroyIcon(HICON icon) {
  return kovra::win::icons().erase(icon) == 1 ? TRUE : FALSE;
}
