#include "module/drawing/number_text.h"

namespace kovra {

void TrimNumberTail(std::wstring& text) {
  if (text.find(L'.') == std::wstring::npos) return;
  while (text.ends_with(L'0')) text.pop_back();
  while (text.ends_with(L'.')) text.pop_back();
}

CString DecimalText(double number) {
  constexpr int kDecimal = 2;
  constexpr int kPrecisionOfTheDrawing = -1;
  ACHAR buffer[128] = {};
  acdbRToS(number, kDecimal, kPrecisionOfTheDrawing, buffer);
  return buffer;
}

CString FormatDistance(double distance) {
  std::wstring text = DecimalText(distance).GetString();
  TrimNumberTail(text);
  return CString(text.c_str());
}

}  // namespace kovra
