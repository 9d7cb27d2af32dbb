#include "module/propedit/prop_values.h"

#include "module/drawing/group_list.h"
#include "module/drawing/number_text.h"
#include "module/drawing/property_combos.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

void readName(resbuf* list, int group, CString& value) {
  const resbuf* found = FindGroup(list, group);
  if (found != nullptr && found->resval.rstring != nullptr) value = found->resval.rstring;
}

void readNumber(resbuf* list, int group, CString& value) {
  const resbuf* found = FindGroup(list, group);
  if (found == nullptr) return;
  const double number = found->resval.rreal;
  value = FormatDistance(group == kRotationGroup ? SignedDegrees(number) : number);
}

/// Keeps of `common` what agrees with the values of one entity more.
void compare(const TextValues& values, TextValues& common, TextPropertySet& same) {
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    const CString& value = values[property];
    if (!same[property] || value.IsEmpty()) continue;
    if (common[property].IsEmpty()) common[property] = value;
    same[property] = common[property].CompareNoCase(value) == 0;
  }
}

}  // namespace

AttachNames LoadAttachNames() {
  AttachNames names;
  UINT id = kTextJustifications;
  for (CString& name : names) name = ResourceText(id++);
  return names;
}

void ReadPropValues(resbuf* list, TextKind kind, const AttachNames& names, TextValues& values) {
  readName(list, kLayerGroup, values[kLayerProperty]);
  readName(list, kStyleGroup, values[kStyleProperty]);
  readNumber(list, kHeightGroup, values[kHeightProperty]);
  readNumber(list, kWidthFactorGroup, values[kWidthFactorProperty]);
  readNumber(list, kRotationGroup, values[kRotationProperty]);
  const TextModes modes = TextModesOf(list, kind);
  const int index = NearestAttachIndex(modes.horizontal, modes.vertical);
  if (index >= 0) values[kAlignmentProperty] = names[static_cast<std::size_t>(index)];
}

TextValues CommonPropValues(const GrowingList<AcDbObjectId>& ids) {
  const AttachNames names = LoadAttachNames();
  const TextValues start = {L"0", L"STANDARD", L"", L"1", L"0", names[0]};
  TextValues common;
  TextPropertySet same;
  same.fill(true);
  for (const AcDbObjectId& id : ids) {
    ads_name entity = {};
    if (acdbGetAdsName(entity, id) != Acad::eOk) continue;
    const GroupList list(acdbEntGet(entity));
    if (FindGroup(list.get(), kTypeGroup) == nullptr) break;
    TextValues values = start;
    ReadPropValues(list.get(), TextKindOf(list.get()), names, values);
    compare(values, common, same);
  }
  for (std::size_t property = 0; property < kTextProperties; ++property) {
    if (!same[property]) common[property].Empty();
  }
  return common;
}

}  // namespace kovra
