#include "platform/win/desktop/dialog_listing.h"

#include "platform/win/controls/edit_control.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

bool marksAccessKeys(const Window& window, std::string_view kind) {
  if (kind == "label") return (window.style & SS_NOPREFIX) == 0;
  return kind == "button" || kind == "check" || kind == "radio" || kind == "group";
}

/// "&Layer" -> "Layer", "A && B" -> "A & B".
std::wstring withoutMarks(std::wstring_view text) {
  std::wstring plain;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && i + 1 < text.size()) ++i;
    plain += text[i];
  }
  return plain;
}

TableListing listTable(const TableState& table) {
  TableListing listing;
  listing.size = table.size();
  listing.active = table.activeCell();
  listing.block = table.selectedBlock();
  listing.cells = table.filledCells();
  if (const auto* field = stateOf<EditState>(table.openEditor())) {
    listing.editing = true;
    listing.editorText = field->edit.text();
    listing.from = field->edit.from();
    listing.to = field->edit.to();
  }
  return listing;
}

}  // namespace

ControlListing listControl(HWND control) {
  ControlListing listing;
  const Window* window = findWindow(control);
  if (window == nullptr) return listing;
  listing.window = control;
  listing.id = window->id;
  listing.enabled = IsWindowEnabled(control) != FALSE;
  listing.visible = IsWindowVisible(control) != FALSE;
  listing.kind = "window";
  if (const WindowState* state = window->state.get()) {
    listing.kind = state->kind(*window);
    listing.check = state->checkState(*window);
    listing.items = state->itemTexts();
    listing.checks = state->itemChecks();
    listing.selected = state->selectedItem();
  }
  if (const auto* table = stateOf<TableState>(control)) listing.table = listTable(*table);
  listing.text = windowText(control);
  if (listing.kind == "tabs" && listing.selected >= 0)
    listing.text = listing.items[static_cast<std::size_t>(listing.selected)];
  listing.place = screenPlace(control);
  window = findWindow(control);
  const bool marks = window != nullptr && marksAccessKeys(*window, listing.kind);
  listing.shown = marks ? withoutMarks(listing.text) : listing.text;
  if (listing.shown.empty() && window != nullptr) listing.shown = window->tip;
  return listing;
}

DialogListing listDialog(HWND dialog) {
  DialogListing listing;
  listing.window = dialog;
  listing.title = windowText(dialog);
  listing.templateId = templateOf(dialog);
  listing.place = screenPlace(dialog);
  listing.minimized = IsIconic(dialog) != FALSE;
  const HWND focused = focusedControl();
  if (isInside(dialog, focused) && focused != dialog) listing.focusId = GetDlgCtrlID(focused);
  for (const HWND control : dialogControls(dialog))
    listing.controls.push_back(listControl(control));
  return listing;
}

}  // namespace kovra::win
