#include "module/countup/radix_table.h"

#include <iterator>

#include "module/frame/attach.h"
#include "module/frame/dialog_items.h"

namespace kovra {
namespace {

constexpr UINT kFirstLabel = 2795;

}  // namespace

RadixRow RadixTable[kRadixRows] = {{L"", 8},  {L"", 10}, {L"", 16}, {L"", 24},
                                   {L"", 26}, {L"", 80}, {L"", 160}};

int RadixCodeOf(int row) {
  return RadixTable[row >= 0 && row < kRadixRows ? row : kDecimalRow].RadixCode;
}

void FillRadixCombo(CWnd& dialog) {
  UINT label = kFirstLabel;
  for (RadixRow& row : RadixTable) {
    LoadStringW(ResourceModule, label++, row.Label, static_cast<int>(std::size(row.Label)));
    AddComboItem(dialog, kRadixCombo, row.Label, row.RadixCode);
  }
}

}  // namespace kovra
