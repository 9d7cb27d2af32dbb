#pragma once

#include <initializer_list>

#include "module/frame/seam.h"

/// Short words for what dialogs do with their controls, by control id. A control that the template
/// doesn't have is passed over; it counts as disabled, unchecked and empty.
namespace kovra {

void EnableItem(CWnd& dialog, int id, bool enable);
void EnableItems(CWnd& dialog, std::initializer_list<int> ids, bool enable);
bool IsItemEnabled(const CWnd& dialog, int id);

bool IsItemChecked(const CWnd& dialog, int id);
void CheckItem(CWnd& dialog, int id, bool check);

CString ItemText(const CWnd& dialog, int id);
/// The text as a signed whole number; 0 for anything else.
int ItemNumber(const CWnd& dialog, int id);
/// The text as a real number; 0 for anything else.
double ItemReal(const CWnd& dialog, int id);

/// Index of the selected item of a combo box; -1 without a selection.
int SelectedIndex(CWnd& dialog, int comboId);
void SelectIndex(CWnd& dialog, int comboId, int index);
/// Appends an item with its data to a combo box.
void AddComboItem(CWnd& dialog, int comboId, const ACHAR* text, int data);

}  // namespace kovra
