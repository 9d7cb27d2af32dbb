#include "module/propcopy/copy_result.h"

#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kObjectsChanged = 2786;

}  // namespace

CString ObjectsChangedText(int count) {
  CString text;
  text.Format(ResourceText(kObjectsChanged).GetString(), count);
  return text;
}

void PrintObjectsChanged(int count) {
  acutPrintf(L"\n%s", ObjectsChangedText(count).GetString());
}

}  // namespace kovra
