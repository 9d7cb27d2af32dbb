#include "module/drawing/input_filter.h"

namespace kovra {
namespace {

CString withoutDoubleByte(const CString& text) {
  CString kept;
  for (int i = 0; i < text.GetLength(); ++i) {
    const auto lowByte = static_cast<unsigned char>(text[i]);
    if (_ismbblead(lowByte) != 0) {
      ++i;
    } else {
      kept += text[i];
    }
  }
  return kept;
}

}  // namespace

int FilterInputText(CString& text, bool numbersOnly) {
  CString cleaned = withoutDoubleByte(text);
  if (numbersOnly) cleaned = cleaned.SpanIncluding(L"0123456789.-+Ee");
  if (cleaned == text) return 0;
  text = cleaned;
  return 1;
}

}  // namespace kovra
