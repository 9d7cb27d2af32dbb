#include "module/options/option_page_dialog.h"

#include <algorithm>

#include "module/frame/reporting.h"
#include "module/options/option_ids.h"
#include "module/options/option_page.h"

namespace kovra {

using namespace optionpage;

namespace {

constexpr DWORD kNumberStyle = SS_NUMBER_NEGATIVE | SS_NUMBER_LEADING_ZERO;
constexpr double kLeastNumber = -999999999999.99;
constexpr double kGreatestNumber = 999999999999.99;

/// A list that is typed into from top to bottom and goes on at its end.
void makeList(CSpreadSheet& grid) {
  SSSetMaxCols(grid.m_hWnd, 1);
  SSSetBool(grid.m_hWnd, SS_BOOL_COLUMN_HEADERS, FALSE);
  SSSetBool(grid.m_hWnd, SS_BOOL_ROW_HEADERS, FALSE);
  SSSetBool(grid.m_hWnd, SS_BOOL_USER_RESIZES, FALSE);
  SSSetBool(grid.m_hWnd, SS_BOOL_GROWS, TRUE);
  SSSetEditEnterAction(grid.m_hWnd, SS_ENTER_NEXT);
  SSSetBool(grid.m_hWnd, SS_BOOL_EDIT_SELECTS, TRUE);
}

void makeNumbers(CSpreadSheet& grid, SHORT digits) {
  SS_CELLTYPE type{};
  SSSetTypeNumber(grid.m_hWnd, &type, kNumberStyle, digits, kLeastNumber, kGreatestNumber);
  SSSetCellType(grid.m_hWnd, -1, -1, &type);
}

CRect placeIn(const CWnd& dialog, const CWnd& item) {
  CRect place;
  item.GetWindowRect(&place);
  dialog.ScreenToClient(&place);
  return place;
}

}  // namespace

BEGIN_MESSAGE_MAP(COptionPage1, CDialog)
ON_NOTIFY(TCN_SELCHANGE, kTableTabs, &COptionPage1::OnTabChange)
ON_BN_CLICKED(kRowUp, &COptionPage1::OnRowUp)
ON_BN_CLICKED(kRowDown, &COptionPage1::OnRowDown)
ON_BN_CLICKED(kDeleteRow, &COptionPage1::OnDeleteRow)
ON_MESSAGE(kGridModifiedMessage, &COptionPage1::OnGridModified)
ON_WM_SIZE()
END_MESSAGE_MAP()

COptionPage1::COptionPage1(UINT templateId, int tableCount)
    : CDialog(templateId), TableCount(tableCount) {}

void COptionPage1::DoDataExchange(CDataExchange* exchange) {
  CDialog::DoDataExchange(exchange);
  DDX_Control(exchange, kTableTabs, tabs_);
}

BOOL COptionPage1::OnInitDialog() {
  for (int i = 0; i < TableCount; ++i) Grids[i].ReplaceDlgItem(this, OptionTableAt(i).grid);
  CDialog::OnInitDialog();
  for (int i = 0; i < TableCount; ++i) prepareGrid(i);
  for (int i = 0; i < TableCount; ++i) tabs_.InsertItem(i, ResourceText(OptionTableAt(i).tabText));
  showSelectedTab();
  return TRUE;
}

void COptionPage1::prepareGrid(int index) {
  KovraSpreadSheet& grid = Grids[index];
  const GridRedrawOff off(grid);
  makeList(grid);
  if (index > 0) grid.MoveWindow(placeIn(*this, Grids[0]));
  CRect cells;
  SSGetClientRect(grid.m_hWnd, &cells);
  SSSetColWidthInPixels(grid.m_hWnd, 1, cells.Width());
  const SHORT digits = OptionTableAt(index).digits;
  if (digits != kTextCells) makeNumbers(grid, digits);
}

void COptionPage1::OnTabChange(NMHDR* /*notification*/, LRESULT* /*result*/) {
  showSelectedTab();
}

void COptionPage1::showSelectedTab() {
  const int selected = tabs_.GetCurSel();
  if (selected < 0) return;
  for (int i = 0; i < TableCount; ++i) Grids[i].ShowWindow(i == selected ? SW_SHOW : SW_HIDE);
  ActiveTable = selected;
}

void COptionPage1::swapRows(int offset) {
  KovraSpreadSheet& grid = Grids[ActiveTable];
  const int row = grid.GetActiveRow();
  const CString moved = grid.GetRowText(row, 0);
  const CString other = grid.GetRowText(row + offset, 0);
  grid.SetRowText(row, other, 0);
  grid.SetRowText(row + offset, moved, 0);
  SSSetActiveCell(grid.m_hWnd, grid.GetActiveCol(), row + offset);
  setModified();
}

void COptionPage1::OnRowUp() {
  const GridRedrawOff off(Grids[ActiveTable]);
  if (Grids[ActiveTable].GetActiveRow() >= 2) swapRows(-1);
}

void COptionPage1::OnRowDown() {
  KovraSpreadSheet& grid = Grids[ActiveTable];
  const GridRedrawOff off(grid);
  const int row = grid.GetActiveRow();
  if (row >= 1 && row < SSGetMaxRows(grid.m_hWnd)) swapRows(1);
}

void COptionPage1::OnDeleteRow() {
  KovraSpreadSheet& grid = Grids[ActiveTable];
  const GridRedrawOff off(grid);
  const int row = grid.GetActiveRow();
  if (row >= 1) SSDelRow(grid.m_hWnd, row);
  setModified();
}

LRESULT COptionPage1::OnGridModified(WPARAM /*wParam*/, LPARAM /*lParam*/) {
  setModified();
  return 0;
}

void COptionPage1::setModified() {
  if (OwnerPage != nullptr) OwnerPage->SetModified();
}

void COptionPage1::ForgetChanges() {
  for (int i = 0; i < TableCount; ++i) Grids[i].GridModified = 0;
}

/// The grids reach as far into the tab control as it stands away from the page's edge.
void COptionPage1::OnSize(UINT type, int width, int height) {
  CDialog::OnSize(type, width, height);
  if (tabs_.m_hWnd == nullptr) return;
  const LONG margin = placeIn(*this, tabs_).left;
  const LONG top = placeIn(*this, *GetDlgItem(kRowUp)).top;
  const LONG gridHeight = std::max<LONG>(0, height - top - 2 * margin);
  for (int i = 0; i < TableCount; ++i) {
    constexpr UINT kSizeAlone = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    const CRect place = placeIn(*this, Grids[i]);
    Grids[i].SetWindowPos(nullptr, 0, 0, place.Width(), gridHeight, kSizeAlone);
  }
}

}  // namespace kovra
