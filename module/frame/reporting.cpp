#include "module/frame/reporting.h"

#include <vector>

#include "module/frame/attach.h"

namespace kovra {

CString ResourceText(UINT id, int limit) {
  std::vector<ACHAR> buffer(static_cast<std::size_t>(limit), ACHAR{});
  LoadStringW(ResourceModule, id, buffer.data(), limit);
  return CString(buffer.data());
}

CString FormatResourceText(UINT id, const ACHAR* argument) {
  const CString format = ResourceText(id, kCommandLineLength);
  CString text;
  text.FormatMessage(format, argument);
  const int surplus = text.GetLength() - (kCommandLineLength - 1);
  if (surplus <= 0) return text;
  const CString dots = L"...";
  const CString whole = argument;
  const CString cut = whole.Left(whole.GetLength() - surplus - dots.GetLength()) + dots;
  text.FormatMessage(format, cut.GetString());
  return text;
}

int ShowMessage(UINT id) {
  const CString text = ResourceText(id, kMessageBoxLength);
  return MessageBoxW(nullptr, text.GetString(), L"AutoCAD", MB_TASKMODAL | MB_ICONEXCLAMATION);
}

void ProjectMessage(UINT id) {
  const CString text = ResourceText(id, kCommandLineLength);
  acutPrintf(L"%s", text.GetString());
}

}  // namespace kovra
