#include "module/countup/copy_cup.h"
#include "module/countup/copy_cup_ids.h"
#include "module/countup/radix_table.h"
#include "module/frame/dialog_items.h"
#include "module/frame/dialog_state.h"

namespace kovra {

using namespace copycup;

namespace {

constexpr ACHAR kSection[] = L"ORVEKovraTextCntUpDlg";

}  // namespace

void CCopyCup::loadState() {
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  RestoreWindowPlace(*this, store);
  loadFields(store);
}

void CCopyCup::loadFields(const DialogStateStore& store) {
  int counts = CountUp ? 1 : 0;
  store.GetInt(L"CountUp", counts);
  CountUp = counts != 0;
  GetStateChoice(store, L"Radix", kRadixRows - 1, Radix);
  store.GetInt(L"CountUpStep", CountUpStep);
  if (offersRadixStep() && Radix != kDecimalRow) GetStateChoice(store, L"RadixMode", 1, radixMode_);
  GetStateChoice(store, L"Mode", 1, Mode);
  GetStateChoice(store, L"Direction", kLastDirection - kFirstDirection, Direction);
  store.GetInt(L"Rows", Rows);
  store.GetInt(L"Cols", Cols);
  GetStateReal(store, L"RowHeight", RowHeight);
  GetStateReal(store, L"ColWidth", ColWidth);
}

void CCopyCup::saveState() {
  DialogStateStore store;
  if (!store.OpenSection(kSection)) return;
  StoreWindowPlace(*this, store);
  saveFields(store);
}

void CCopyCup::saveFields(DialogStateStore& store) {
  store.SetInt(L"CountUp", CountUp ? 1 : 0);
  if (CountUp) {
    store.SetInt(L"Radix", Radix);
    store.SetInt(L"CountUpStep", CountUpStep);
    if (offersRadixStep()) store.SetInt(L"RadixMode", radixMode_);
  }
  store.SetInt(L"Mode", Mode);
  if (Mode != kModePattern) return;
  store.SetInt(L"Direction", Direction);
  if (IsItemEnabled(*this, kRows)) {
    store.SetInt(L"Rows", Rows);
    store.SetString(L"RowHeight", ItemText(*this, kRowHeight).GetString());
  }
  if (IsItemEnabled(*this, kCols)) {
    store.SetInt(L"Cols", Cols);
    store.SetString(L"ColWidth", ItemText(*this, kColWidth).GetString());
  }
}

}  // namespace kovra
