#include "module/grid/kovra_spread_sheet.h"

#include "module/frame/reporting.h"

namespace kovra {
namespace {

// Strings, and command ids of the menu's items.
constexpr UINT kCutItem = 2717;
constexpr UINT kCopyItem = 2718;
constexpr UINT kPasteItem = 2719;
constexpr UINT kClearItem = 2720;
constexpr int kItemLength = 64;

// Keys by their codes; of letters both forms come.
constexpr int kInsertKey = 45;
constexpr int kDeleteKey = 46;
constexpr int kEditKey = 113;
constexpr int kInputMethodKey = 229;

bool isLetter(int key, char letter) {
  return key == letter || key == letter + ('a' - 'A');
}

}  // namespace

BEGIN_MESSAGE_MAP(KovraSpreadSheet, CSpreadSheet)
ON_MESSAGE(SSN_EDIT_OPENED, &KovraSpreadSheet::OnEditOpened)
ON_MESSAGE(SSN_EDIT_CLOSED, &KovraSpreadSheet::OnEditClosed)
ON_MESSAGE(SSN_DATA_CHANGED, &KovraSpreadSheet::OnDataChanged)
ON_MESSAGE(SSN_KEY, &KovraSpreadSheet::OnGridKey)
ON_MESSAGE(SSN_CONTEXT_MENU, &KovraSpreadSheet::OnGridMenu)
END_MESSAGE_MAP()

LRESULT KovraSpreadSheet::OnEditOpened(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  SetEditFlag(true);
  return 0;
}

LRESULT KovraSpreadSheet::OnEditClosed(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  SetEditFlag(false);
  return 0;
}

LRESULT KovraSpreadSheet::OnDataChanged(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  MarkGridModified();
  return 0;
}

LRESULT KovraSpreadSheet::OnGridKey(WPARAM /*wParam*/, LPARAM keyAndFlags) {
  GridKey(LOWORD(keyAndFlags), (keyAndFlags & SS_KEY_SHIFT) != 0,
          (keyAndFlags & SS_KEY_CONTROL) != 0);
  return 0;
}

LRESULT KovraSpreadSheet::OnGridMenu(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  GridMenu();
  return 0;
}

void KovraSpreadSheet::MarkGridModified() {
  if (GridModified != 0) return;
  GridModified = 1;
  GetParent()->PostMessage(kGridModifiedMessage);
}

void KovraSpreadSheet::GridKey(int key, bool shift, bool control) {
  if (key == kInputMethodKey && !isEditing()) SSSetEditMode(m_hWnd, TRUE);
  if (isEditing()) {
    if (!GetEditFlag()) SetEditFlag(true);
    return;
  }
  if (key == kInsertKey && shift) return GridPaste();
  if (key == kInsertKey && control) return GridCopy();
  if (key == kDeleteKey) return GridClear();
  if (key == kEditKey) {
    SSSetEditMode(m_hWnd, TRUE);
    return;
  }
  if (!control) return;
  if (isLetter(key, 'C')) return GridCopy();
  if (isLetter(key, 'V')) return GridPaste();
  if (isLetter(key, 'X')) return GridCut();
}

void KovraSpreadSheet::GridMenu() {
  SS_CELLTYPE type{};
  SSGetCellType(m_hWnd, 1, 1, &type);
  // An editor of texts has a menu of its own.
  if (isEditing() && type.type != SS_TYPE_NUMBER) return;
  switch (chosenFromMenu()) {
    case kCutItem:
      return GridCut();
    case kCopyItem:
      return GridCopy();
    case kPasteItem:
      return GridPaste();
    case kClearItem:
      return GridClear();
    default:
      return;
  }
}

UINT KovraSpreadSheet::chosenFromMenu() {
  if (MenuPopup == nullptr) {
    MenuPopup = std::make_unique<CMenu>();
    MenuPopup->CreatePopupMenu();
    const auto append = [this](UINT item) {
      MenuPopup->AppendMenu(MF_STRING | MF_ENABLED, item, ResourceText(item, kItemLength));
    };
    for (const UINT item : {kCutItem, kCopyItem, kPasteItem}) append(item);
    MenuPopup->AppendMenu(MF_SEPARATOR);
    append(kClearItem);
  }
  CPoint cursor;
  GetCursorPos(&cursor);
  return static_cast<UINT>(
      MenuPopup->TrackPopupMenu(TPM_RIGHTBUTTON | TPM_RETURNCMD, cursor.x, cursor.y, GetParent()));
}

}  // namespace kovra
