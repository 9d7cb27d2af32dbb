#include "module/text7/split_lines.h"

namespace kovra {

int SplitLines(CString text, const ACHAR* separator, std::vector<CString>& lines) {
  const int width = CString(separator).GetLength();
  lines.clear();
  text += separator;
  int start = 0;
  for (int end = text.Find(separator); end >= 0 && width > 0; end = text.Find(separator, start)) {
    lines.push_back(text.Mid(start, end - start));
    start = end + width;
  }
  return static_cast<int>(lines.size());
}

int SplitFieldLines(CString& text, std::vector<CString>& lines) {
  text.Replace(L"\r\n", L"\t");
  return SplitLines(text, L"\t", lines);
}

bool HasSeveralLines(CString text) {
  return text.TrimRight(L"\r\n").Find(L'\n') >= 0;
}

}  // namespace kovra
