#include "module/frame/reporting.h"

#include <vector>

#include "module/frame/attach.h"

namespace kovra {
namespace {

/// False when the text with its argument doesn't fit.
bool formatMessage(const CString& format, const ACHAR* argument,
                   ACHAR (&text)[kCommandLineLength]) {
  DWORD_PTR arguments[] = {reinterpret_cast<DWORD_PTR>(argument)};
  return FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY,
                        format.GetString(), 0, 0, text, kCommandLineLength,
                        reinterpret_cast<va_list*>(arguments)) != 0;
}

}  // namespace

CString ResourceText(UINT id, int limit) {
  std::vector<ACHAR> buffer(static_cast<std::size_t>(limit), ACHAR{});
  LoadStringW(ResourceModule, id, buffer.data(), limit);
  return CString(buffer.data());
}

CString FormatResourceText(UINT id, const ACHAR* argument) {
  const CString format = ResourceText(id, kCommandLineLength);
  ACHAR text[kCommandLineLength] = {};
  if (formatMessage(format, argument, text)) return text;
  const CString dots = L"...";
  const int room = kCommandLineLength - 1 - format.GetLength() - dots.GetLength();
  const CString beginning = CString(argument).Left(room) + dots;
  formatMessage(format, beginning.GetString(), text);
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
