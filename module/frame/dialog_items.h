#pragma once

#include <initializer_list>

#include "module/frame/seam.h"

/// Short words for what dialogs do with their controls, by control id. A control that the template
/// doesn't have is passed over; it counts as disabled, unchecked and empty.
namespace kovra {

void EnableItem(CWnd& dialog, int id, bool enable);
void EnableItems(CWnd& dialog, std::initializer_list<int> ids, bool enable);
bool IsItemEnabled(const CWnd& dialog, int id);
/// Whether the dialog shows the control as soon as it is on the screen itself.
bool IsItemShown(const CWnd& dialog, int id);

bool IsItemChecked(const CWnd& dialog, int id);
void CheckItem(CWnd& dialog, int id, bool check);

CString ItemText(const CWnd& dialog, int id);
/// Without the white space at its end.
CString TrimmedItemText(const CWnd& dialog, int id);
/// The text as a signed whole number; 0 for anything else.
int ItemNumber(const CWnd& dialog, int id);
/// The text as a real number; 0 for anything else.
double ItemReal(const CWnd& dialog, int id);

/// Index of the selected item of a combo box; -1 without a selection.
int SelectedIndex(const CWnd& dialog, int comboId);
void SelectIndex(CWnd& dialog, int comboId, int index);
/// Appends an item to a combo box.
void AddComboItem(CWnd& dialog, int comboId, const ACHAR* text);
/// The same, with the item's data.
void AddComboItem(CWnd& dialog, int comboId, const ACHAR* text, int data);
/// 0 for an index that the combo box doesn't have.
int ComboItemData(const CWnd& dialog, int comboId, int index);
int ComboItemCount(const CWnd& dialog, int comboId);
/// Empty for an index that the combo box doesn't have.
CString ComboItemText(const CWnd& dialog, int comboId, int index);
/// What a combo box stands for: the text of its selected item, and without a selection what its
/// field holds. While a combo box reports a selection its field still shows the text before.
CString ComboText(const CWnd& dialog, int comboId);

/// Index of the first item that equals the text without regard to case; -1 if there is none.
int FindComboItem(const CWnd& dialog, int comboId, const ACHAR* text);
/// Index of the first item whose number is at most `tolerance` away; -1 if there is none.
int FindNumberItem(const CWnd& dialog, int comboId, double number, double tolerance);
/// Selects the first item that equals the text without regard to case. False, with the selection as
/// it was, when there is none.
bool SelectComboItem(CWnd& dialog, int comboId, const ACHAR* text);
/// Selects the first item that begins with the text, without regard to case. False, with the
/// selection as it was, when there is none.
bool SelectComboBeginning(CWnd& dialog, int comboId, const ACHAR* text);
/// Selects the first item that equals the text, and without one writes the text into the field of
/// the combo box.
void SelectOrType(CWnd& dialog, int comboId, const ACHAR* text);

}  // namespace kovra
