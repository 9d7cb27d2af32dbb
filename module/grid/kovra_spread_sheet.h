#pragma once

#include <memory>

#include "module/grid/clip_table.h"
#include "module/grid/spread_sheet.h"

namespace kovra {

/// What a grid posts to its parent when its data has changed; both parameters are 0.
inline constexpr UINT kGridModifiedMessage = 0x5F1;

/// A grid with the usual editing of a table: cut, copy, paste and clear by keys and by a context
/// menu, on blocks of cells and in the open cell editor. Locked cells stay as they are.
class KovraSpreadSheet : public CSpreadSheet {
 private:
  std::unique_ptr<CMenu> MenuPopup;  // made when it is first shown

 public:
  /// Whether the parent has been told of a change; who has dealt with it sets it back to 0.
  int GridModified = 0;

  void GridCopy();
  void GridCut();
  void GridClear();
  void GridPaste();

 protected:
  DECLARE_MESSAGE_MAP()
  LRESULT OnEditOpened(WPARAM, LPARAM);
  LRESULT OnEditClosed(WPARAM, LPARAM);
  LRESULT OnDataChanged(WPARAM, LPARAM);
  LRESULT OnGridKey(WPARAM, LPARAM keyAndFlags);
  LRESULT OnGridMenu(WPARAM, LPARAM);

 private:
  void GridKey(int key, bool shift, bool control);
  void GridMenu();
  UINT chosenFromMenu();
  /// Tells the parent, once until GridModified is set back.
  void MarkGridModified();

  bool isEditing() const { return SSGetEditMode(m_hWnd) != FALSE; }
  void takeClipboardKeys();
  /// Whole rows and columns become the cells that there are.
  void NormalizeBlock(SS_CELL& first, SS_CELL& last) const;
  /// Copies or cuts the block; false without one.
  bool blockToClipboard(BOOL (*operation)(HWND));
  /// False when nothing is selected in the cell editor or the clipboard can't be had.
  bool CopyEditSelection();
  void fillBlock(const SS_CELL& first, SS_CELL last, const ClipTable& table);
};

}  // namespace kovra
