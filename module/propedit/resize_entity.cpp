#include "module/propedit/resize_entity.h"

#include "module/drawing/auto_var.h"
#include "module/drawing/coordinates.h"
#include "module/drawing/entity_pick.h"
#include "module/drawing/group_list.h"
#include "module/drawing/highlight.h"
#include "module/drawing/layer_snapshot.h"
#include "module/drawing/open_text.h"
#include "module/drawing/selection_set.h"
#include "module/frame/companions/entity_attr_lib.h"
#include "module/frame/reporting.h"
#include "module/propedit/resize_height.h"

namespace kovra {
namespace {

constexpr UINT kTextPrompt = 2755;
constexpr UINT kLayerLocked = 3749;

/// Where a point of the list lies in the world; `missing` when the list doesn't have it.
AcGePoint3d worldPoint(const ads_name name, resbuf* list, int group, const AcGePoint3d& missing) {
  const resbuf* found = FindGroup(list, group);
  if (found == nullptr) return missing;
  ads_point point = {};
  EntityToWorld(name, found->resval.rpoint, point);
  return {point[X], point[Y], point[Z]};
}

/// Whether an open entity is on a layer that is locked. False, too, when nobody can tell.
bool isOnLockedLayer(const AcDbEntity& entity) {
  ACHAR* layer = entity.layer();
  if (layer == nullptr) return false;
  LayerSnapshot layers;
  const bool locked = layers.Capture(entity.database()) && layers.IsLocked(layer);
  acutDelString(layer);
  return locked;
}

void adjust(AcDbText& text) {
  text.adjustAlignment(text.database());
  NotifyEntityEdited(&text, text.database());
}

/// picked for a text or an attribute that can be changed, missed for everything else.
PickAnswer checkPicked(const ads_name name, ResizeEntity& entity) {
  if (!ReadResizeEntity(name, entity)) return PickAnswer::missed;
  const OpenText text(entity.id(), AcDb::kForRead);
  const bool expected =
      text && (entity.EntityKind == TextKind::text || AcDbAttribute::cast(&*text) != nullptr);
  if (!expected) return PickAnswer::missed;
  if (!isOnLockedLayer(*text)) return PickAnswer::picked;
  ProjectMessage(kLayerLocked);
  return PickAnswer::missed;
}

PickAnswer pickOnce(ResizeEntity& entity) {
  CAutoVar snap;
  snap.Set(L"SNAPMODE", 0);
  const CString prompt = ResourceText(kTextPrompt);
  if (CWnd* frame = acedGetAcadFrame()) frame->SetFocus();
  ads_name name = {};
  const PickAnswer answer = PickNestedEntity(prompt.GetString(), name);
  return answer == PickAnswer::picked ? checkPicked(name, entity) : answer;
}

}  // namespace

AcDbObjectId ResizeEntity::id() const {
  AcDbObjectId id;
  return acdbGetObjectId(id, name) == Acad::eOk ? id : AcDbObjectId();
}

bool ReadResizeEntity(const ads_name name, ResizeEntity& entity) {
  entity = {};
  const GroupList list(acdbEntGet(name));
  const TextKind kind = TextKindOf(list.get());
  if (kind != TextKind::text && kind != TextKind::attribute) return false;
  const TextModes modes = TextModesOf(list.get(), kind);
  const resbuf* height = FindGroup(list.get(), kHeightGroup);
  entity.EntityKind = kind;
  entity.LeftAligned = modes.horizontal == 0 && modes.vertical == 0;
  entity.OldPosition = worldPoint(name, list.get(), kPositionGroup, AcGePoint3d());
  // A text whose drawing gives it no alignment point hangs on its position.
  entity.OldAlignmentPoint = worldPoint(name, list.get(), kAlignmentPointGroup, entity.OldPosition);
  if (height != nullptr) entity.OldHeight = height->resval.rreal;
  ads_name_set(name, entity.name);
  return true;
}

bool SelectResizeEntity(ResizeEntity& entity) {
  PickAnswer pick = PickAnswer::missed;
  while (pick == PickAnswer::missed) pick = pickOnce(entity);
  return pick == PickAnswer::picked;
}

bool TakePreselectedText(ads_name name) {
  const GroupList filter(acutBuildList(RTDXF0, L"TEXT", RTNONE));
  SelectionSet selection;
  if (!selection.takeImplied(filter.get()) || selection.length() != 1) return false;
  AcDbObjectId id;
  if (!selection.entityAt(0, name) || acdbGetObjectId(id, name) != Acad::eOk) return false;
  const OpenText text(id, AcDb::kForRead);
  return text && !isOnLockedLayer(*text);
}

void HighlightResizeEntity(const ResizeEntity& entity, bool on) {
  if (entity.isSelected()) HighlightEntity(entity.name, on);
}

void RestoreResizeEntity(const ResizeEntity& entity) {
  const OpenText text(entity.id(), AcDb::kForWrite);
  if (!text) return;
  text->setHeight(entity.OldHeight);
  text->setPosition(entity.OldPosition);
  if (!entity.LeftAligned) text->setAlignmentPoint(entity.OldAlignmentPoint);
  adjust(*text);
}

HeightChange SetResizeHeight(const ResizeEntity& entity, const CString& height) {
  const OpenText text(entity.id(), AcDb::kForWrite);
  if (!text) return HeightChange::refused;
  CString present;
  present.Format(L"%.15g", text->height());
  if (present == height) return HeightChange::done;
  if (!IsHeight(height.GetString())) return HeightChange::invalid;
  if (text->setHeight(_wtof(height.GetString())) != Acad::eOk) return HeightChange::refused;
  adjust(*text);
  return HeightChange::done;
}

}  // namespace kovra
