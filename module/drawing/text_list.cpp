#include "module/drawing/text_list.h"

#include <string_view>

namespace kovra {

int TextListAdd(TextList& list, const wchar_t* text) {
  const std::wstring_view source = text != nullptr ? text : L"";
  const auto copy = std::make_shared<wchar_t[]>(source.size() + 1);
  source.copy(copy.get(), source.size());
  return list.add(copy);
}

void ClearTextList(TextList& list) {
  list.clear();
}

}  // namespace kovra
