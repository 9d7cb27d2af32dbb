#include "module/text7/picks.h"

#include <algorithm>
#include <iterator>

#include "module/countup/spacing_pick.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/entity_pick.h"
#include "module/drawing/group_list.h"
#include "module/drawing/layers.h"
#include "module/drawing/text_groups.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"
#include "module/textcmd/text_row_ids.h"

namespace kovra {

using namespace text7;
using namespace textrows;

namespace {

constexpr UINT kTextPrompt = 2755;
constexpr int kTextPromptLength = 256;
constexpr UINT kLayerLocked = 2822;
constexpr UINT kTextTooLong = 3902;

constexpr int kValueGroup = 1;
constexpr int kTagGroup = 2;

// Longest text of the multi-line field that a picked value is inserted into.
constexpr int kLongestText = 511;

/// A property that can be picked.
struct PickRow {
  int button;
  int target;
  int group;
  const ACHAR* missing;  ///< what counts when the entity doesn't have the group
};

constexpr PickRow PickTable[] = {
    {kPickValue, kValue, kValueGroup, L""},
    {kPickLayer, kLayer, kLayerGroup, L"0"},
    {kPickStyle, kStyle, kStyleGroup, L"STANDARD"},
    {kPickHeight, kHeight, kHeightGroup, L"2.0"},
    {kPickWidthFactor, kWidthFactor, kWidthFactorGroup, L"1"},
    {kPickRotation, kRotation, kRotationGroup, L"0"},
    {kPickJustification, kJustification, kHorizontalGroup, L""},
};

bool isPickButton(int id) {
  const auto isRow = [id](const PickRow& row) { return row.button == id; };
  return id == kPickAll || std::any_of(std::begin(PickTable), std::end(PickTable), isRow);
}

/// The row of the button; that of all properties stands for every row but the value's.
bool countsFor(const PickRow& row, int button) {
  return button == kPickAll ? row.button != kPickValue : row.button == button;
}

/// The list of the text that the user picks; null for nothing.
GroupList pickText() {
  ads_name entity = {};
  const CString prompt = ResourceText(kTextPrompt, kTextPromptLength);
  const PickAnswer answer = PickNestedEntity(prompt.GetString(), entity);
  return GroupList(answer == PickAnswer::picked ? acdbEntGet(entity) : nullptr);
}

CString PickedValue(CText7Dlg& dialog, const PickRow& row, resbuf* list) {
  const resbuf* found = FindGroup(list, row.group);
  if (found == nullptr) return row.missing;
  switch (row.group) {
    case kHeightGroup:
      return dialog.NumberText(found->resval.rreal / DrawingScale);
    case kWidthFactorGroup:
      return dialog.NumberText(found->resval.rreal);
    case kRotationGroup:
      return dialog.NumberText(SignedDegrees(found->resval.rreal));
    default:
      return found->resval.rstring;
  }
}

/// Puts the value in the place of the selection, or at the caret.
void InsertAtCaret(CText7Dlg& dialog, const CString& value) {
  CWnd* field = dialog.GetDlgItem(kLines);
  if (field == nullptr) return;
  DWORD from = 0;
  DWORD to = 0;
  field->SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  const CString former = ItemText(dialog, kLines);
  const CString text =
      former.Left(static_cast<int>(from)) + value + former.Mid(static_cast<int>(to));
  if (text.GetLength() > kLongestText) {
    AfxMessageBox(ResourceText(kTextTooLong).GetString());
    return;
  }
  field->SetWindowText(text);
  field->SetFocus();
  const auto caret = static_cast<LPARAM>(from) + value.GetLength();
  field->SendMessage(EM_SETSEL, static_cast<WPARAM>(caret), caret);
  field->SendMessage(EM_SCROLLCARET);
}

/// Into the field that the user sees.
void addToValue(CText7Dlg& dialog, const CString& value) {
  if (dialog.MultiLine) {
    InsertAtCaret(dialog, value);
  } else {
    dialog.SetDlgItemText(kValue, ItemText(dialog, kValue) + value);
  }
}

void ApplyPicked(CText7Dlg& dialog, const PickRow& row, const CString& value) {
  if (row.target == kValue) {
    addToValue(dialog, value);
  } else if (row.target == kLayer && IsLayerLocked(value.GetString())) {
    AfxMessageBox(PrintfResourceText(kLayerLocked, value.GetString()));
  } else {
    SelectOrType(dialog, row.target, value.GetString());
  }
}

void applyText(CText7Dlg& dialog, int button, resbuf* list, TextKind kind) {
  for (const PickRow& row : PickTable) {
    if (!countsFor(row, button)) continue;
    if (row.target == kJustification) {
      SelectIndex(dialog, kJustification, ShownAttachIndex(list, kind));
    } else {
      ApplyPicked(dialog, row, PickedValue(dialog, row, list));
    }
  }
}

/// Whatever the button, an attribute definition gives its tag.
void applyTag(CText7Dlg& dialog, resbuf* list) {
  const resbuf* tag = FindGroup(list, kTagGroup);
  if (tag != nullptr) addToValue(dialog, tag->resval.rstring);
}

}  // namespace

void PickProperty(int buttonId) {
  if (!isPickButton(buttonId)) return;
  CText7Dlg* dialog = OpenText7Dlg();
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  dialog->ShowWindow(SW_HIDE);
  const GroupList list = pickText();
  dialog = OpenText7Dlg();
  if (dialog == nullptr) return;
  dialog->ShowWindow(SW_SHOW);
  const TextKind kind = TextKindOf(list.get());
  if (kind == TextKind::definition) {
    applyTag(*dialog, list.get());
  } else if (kind != TextKind::other) {
    applyText(*dialog, buttonId, list.get(), kind);
  }
  dialog->UpdateOkState();
}

void PickSpacing(int buttonId) {
  CText7Dlg& dialog = *OpenText7Dlg();
  dialog.CollectFields();
  const auto spacing = static_cast<Spacing>(buttonId - kPickBoth);
  PickDistances(dialog, spacing,
                {kRowHeight, kColWidth, dialog.RowHeight, dialog.ColWidth, DrawingScale});
  if (CText7Dlg* open = OpenText7Dlg()) open->ActivateToolTip();
}

}  // namespace kovra
