#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a list view in report form keeps: rows of texts under columns, with check boxes when the
/// extended style asks for them. Rows have one height; there is no sideways scrolling.
class ListState : public WindowState {
 public:
  struct Column {
    std::wstring heading;
    int width = 0;  ///< pixels
  };
  struct Row {
    std::vector<std::wstring> texts;  ///< by column; what is missing is empty
    LPARAM data = 0;
    UINT state = 0;  ///< LVIS_ bits and the number of the state image
  };

  std::vector<Column> columns;
  std::vector<Row> rows;
  DWORD extendedStyle = 0;
  int top = 0;  ///< the first row in sight

  bool hasRow(int row) const { return row >= 0 && static_cast<std::size_t>(row) < rows.size(); }
  bool hasCheckBoxes() const { return (extendedStyle & LVS_EX_CHECKBOXES) != 0; }
  bool isChecked(int row) const;
  /// The first row with all of these state bits behind `after`, -1 for none.
  int findState(UINT bits, int after = -1) const;
  const std::wstring& text(int row, int column) const;

  const char* kind(const Window& /*window*/) const override { return "list"; }
  /// A row's texts with tabs between the columns.
  std::vector<std::wstring> itemTexts() const override;
  int selectedItem() const override { return findState(LVIS_SELECTED); }
  std::vector<int> itemChecks() const override;
  bool pickItem(HWND list, int row) override;
  std::optional<POINT> bringCheckBox(HWND list, int row) override;
};

/// Where things stand in a list view's client area, in pixels.
struct ListLayout {
  static constexpr int kCheckBox = 13;  ///< width and height of a check box

  int header = 0;  ///< height of the row of headings, 0 without one
  int rowHeight = 0;
  int page = 0;   ///< rows that are in sight as a whole, at least 1
  int width = 0;  ///< of all columns

  static ListLayout of(HWND list, const ListState& state);
  /// The whole row; above or below the client area when it is scrolled out of sight.
  RECT row(const ListState& state, int row) const;
  RECT checkBox(const ListState& state, int row) const;
  /// The room of a cell's text.
  RECT cell(const ListState& state, int row, int column) const;
};

}  // namespace kovra::win
