#include "module/drawing/number_text.h"

namespace kovra {

void TrimNumberTail(std::wstring& text) {
  if (text.find(L'.') == std::wstring::npos) return;
  while (text.ends_with(L'0')) text.pop_back();
  while (text.ends_with(L'.')) text.pop_back();
}

}  // namespace kovra
