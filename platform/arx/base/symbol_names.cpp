#include "platform/arx/base/symbol_names.h"

namespace kovra::arx {

bool isSymbolName(std::wstring_view name) {
  if (name.empty() || name.size() > 255 || name.front() == L' ' || name.back() == L' ')
    return false;
  for (const wchar_t c : name)
    if (c < 32 || std::wstring_view(L"<>/\\\":;?*|,=`").find(c) != std::wstring_view::npos)
      return false;
  return true;
}

std::vector<std::wstring> splitNames(std::wstring_view list) {
  std::vector<std::wstring> names;
  while (!list.empty()) {
    const size_t comma = std::min(list.find(L','), list.size());
    if (comma > 0) names.emplace_back(list.substr(0, comma));
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return names;
}

}  // namespace kovra::arx
