#include "module/propcopy/copy_result.h"

#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kObjectsChanged = 2786;

}  // namespace

CString ObjectsChangedText(int count) {
  return PrintfResourceText(kObjectsChanged, count);
}

void PrintObjectsChanged(int count) {
  acutPrintf(L"\n%s", ObjectsChangedText(count).GetString());
}

}  // namespace kovra
