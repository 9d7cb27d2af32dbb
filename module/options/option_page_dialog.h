#pragma once

#include "module/grid/kovra_spread_sheet.h"
#include "module/options/option_tables.h"

namespace kovra {

class OptionBase1;

/// The page's window: a grid of one column for each table of the project's parameter file, tabs to
/// change between them, buttons to move and delete rows.
class COptionPage1 : public CDialog {
 public:
  COptionPage1(UINT templateId, int tableCount);

  KovraSpreadSheet Grids[kOptionTables];  ///< in the order of the tables
  OptionBase1* OwnerPage = nullptr;
  int ActiveTable = 0;  ///< the one on show
  int TableCount;       ///< those beyond have no grid

  /// The next change of any table is told to the frame again.
  void ForgetChanges();

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnInitDialog() override;

  DECLARE_MESSAGE_MAP()
  void OnTabChange(NMHDR* notification, LRESULT* result);
  void OnRowUp();
  void OnRowDown();
  void OnDeleteRow();
  LRESULT OnGridModified(WPARAM, LPARAM);
  void OnSize(UINT type, int width, int height);

 private:
  void prepareGrid(int index);
  void showSelectedTab();
  /// The active row and the one so many rows below change places.
  void swapRows(int offset);
  void setModified();

  CTabCtrl tabs_;
};

}  // namespace kovra
