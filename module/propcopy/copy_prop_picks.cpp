// What the property copy dialog takes from texts and attributes in the drawing.
#include "module/drawing/angles.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/entity_pick.h"
#include "module/drawing/group_list.h"
#include "module/drawing/number_text.h"
#include "module/drawing/text_groups.h"
#include "module/frame/dialog_items.h"
#include "module/frame/editor_turn.h"
#include "module/frame/reporting.h"
#include "module/propcopy/copy_prop_dlg.h"
#include "module/propcopy/copy_prop_ids.h"

namespace kovra {

using namespace copyprop;

namespace {

constexpr UINT kTagPrompt = 2777;
constexpr UINT kFirstValuePrompt = 2778;
constexpr UINT kWrongKind = 2784;
constexpr UINT kTagIsListed = 2787;

constexpr int kTagGroup = 2;

/// Where a picked entity has a property.
struct ValueGroup {
  int group;
  const ACHAR* missing;  ///< what counts when the entity doesn't have the group
};

constexpr ValueGroup kValueGroups[] = {
    {kLayerGroup, L"0"}, {kHeightGroup, L"2.0"}, {kWidthFactorGroup, L"1"}, {kRotationGroup, L"0"}};

/// The list of the entity that the user picks; null once the pick is over.
GroupList pickEntity(UINT prompt) {
  ads_name entity = {};
  const PickAnswer answer = PickNestedEntity(ResourceText(prompt).GetString(), entity);
  return GroupList(answer == PickAnswer::picked ? acdbEntGet(entity) : nullptr);
}

/// The value of a property in a list; not for the alignment.
CString valueOf(resbuf* list, int property) {
  const auto& [group, missing] = kValueGroups[property];
  const resbuf* found = FindGroup(list, group);
  if (found == nullptr) return missing;
  if (property == kCopyLayer) return found->resval.rstring;
  const double number = found->resval.rreal;
  return FormatDistance(property == kCopyRotation ? DegreesOf(number) : number);
}

}  // namespace

void CCopyPropDlg::OnPickTag() {
  const EditorTurn turn(*this);
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  while (const GroupList list = pickEntity(kTagPrompt)) {
    const resbuf* tag = FindGroup(list.get(), kTagGroup);
    if (TextKindOf(list.get()) != TextKind::attribute || tag == nullptr) {
      ProjectMessage(kWrongKind);
    } else if (addTag(tag->resval.rstring)) {
      break;
    } else {
      ProjectMessage(kTagIsListed);
    }
  }
}

/// False when the field has the tag already, in any case of letters. The tags before it go to upper
/// case.
bool CCopyPropDlg::addTag(const CString& tag) {
  const CString former = ItemText(*this, kTags);
  CString listed = L"," + former + L",";
  CString wanted = L"," + tag + L",";
  if (listed.MakeUpper().Find(wanted.MakeUpper()) >= 0) return false;
  SetDlgItemText(kTags, former.IsEmpty() ? tag : listed.Mid(1) + tag);
  return true;
}

void CCopyPropDlg::OnPickValue(UINT id) {
  const int index = static_cast<int>(id) - kFirstPick;
  if (index > fields_.PropertyCount) return;
  const EditorTurn turn(*this);
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  while (const GroupList list = pickEntity(kFirstValuePrompt + static_cast<UINT>(index))) {
    const TextKind kind = TextKindOf(list.get());
    if (kind != TextKind::text && kind != TextKind::attribute) {
      ProjectMessage(kWrongKind);
      continue;
    }
    const bool all = index == fields_.PropertyCount;
    for (int property = 0; property < fields_.PropertyCount; ++property) {
      if (all || property == index) showPicked(property, list.get());
    }
    break;
  }
  UpdateControls();
}

void CCopyPropDlg::showPicked(int property, resbuf* list) {
  if (property == kCopyAlignment) {
    SelectIndex(*this, kAlignment, ShownAttachIndex(list, TextKindOf(list)));
  } else {
    SelectOrType(*this, ComboOf(property), valueOf(list, property).GetString());
  }
}

}  // namespace kovra
