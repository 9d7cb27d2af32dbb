#include "module/align/select_texts.h"

#include <map>
#include <string>

#include "module/align/text_anchor.h"
#include "module/drawing/group_list.h"
#include "module/drawing/open_text.h"
#include "module/drawing/selection_set.h"
#include "module/drawing/symbol_tables.h"
#include "module/drawing/text_styles.h"
#include "module/frame/companions/ui_tools_lib.h"
#include "module/frame/narrow_text.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kSelectPrompt = 7723;
constexpr UINT kBaseTextPrompt = 7718;
constexpr int kTopToBottom = 6;

/// Which layers are locked, each looked up once.
class LockedLayers {
 public:
  bool contains(const ACHAR* name) {
    const auto [entry, isNew] = known_.try_emplace(name, false);
    if (isNew) entry->second = isLocked(name);
    return entry->second;
  }

 private:
  bool isLocked(const ACHAR* name) const {
    CRecord<AcDbLayerTableRecord> layer;
    return table_.openRecord(layer, name, AcDb::kForRead) && layer->isLocked();
  }

  LayerTable table_{acdbHostApplicationServices()->workingDatabase()};
  std::map<std::wstring, bool, std::less<>> known_;
};

void keepUnlocked(AcDbObjectIdArray& ids) {
  LockedLayers locked;
  AcDbObjectIdArray kept;
  for (const AcDbObjectId& id : ids) {
    const OpenText text(id, AcDb::kForRead);
    if (!text) continue;
    ACHAR* layer = text->layer();
    if (!locked.contains(layer)) kept.append(id);
    acutDelString(layer);
  }
  ids = kept;
}

void collect(const SelectionSet& selection, AcDbObjectIdArray& ids) {
  AcGePoint3dArray points;
  selection.forEachId([&](const AcDbObjectId& id) {
    const OpenText text(id, AcDb::kForRead);
    ids.append(id);
    points.append(text ? TextAnchor(*text) : AcGePoint3d());
  });
  SortObjectsByPoints(kTopToBottom, ids, points);
}

bool ask(const resbuf* filter, AcDbObjectIdArray& ids) {
  const std::string prompt = NarrowText(ResourceText(kSelectPrompt).GetString());
  return SelectObjectsSorted(prompt.c_str(), ids, filter, kTopToBottom) == RTNORM;
}

bool takeImplied(const resbuf* filter, AcDbObjectIdArray& ids) {
  SelectionSet selection;
  if (!selection.takeImplied(filter)) return false;
  collect(selection, ids);
  return true;
}

bool isTextOf(const AcDbObjectId& id, const AcDbObjectIdArray& ids) {
  const OpenText text(id, AcDb::kForRead);
  return text && ids.contains(id);
}

bool canBeOpened(const AcDbObjectId& id) {
  AcDbObject* object = nullptr;
  if (acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk) return false;
  object->close();
  return true;
}

}  // namespace

bool SelectAlignTexts(AcDbObjectIdArray& ids) {
  const GroupList filter(acutBuildList(RTDXF0, L"TEXT", RTNONE));
  ids.removeAll();
  for (bool first = true; ids.isEmpty(); first = false) {
    if (!(first && takeImplied(filter.get(), ids)) && !ask(filter.get(), ids)) return false;
    keepUnlocked(ids);
  }
  return true;
}

void CollectTextStyles(TextList& names) {
  GTxtStyL(names);
}

bool PickBaseText(const AcDbObjectIdArray& ids, AcDbObjectId& baseId) {
  const CString prompt = ResourceText(kBaseTextPrompt);
  while (true) {
    ads_name entity = {};
    ads_point point = {};
    const int result = acedEntSel(prompt.GetString(), entity, point);
    if (result == RTCAN) return false;
    if (result != RTNORM || acdbGetObjectId(baseId, entity) != Acad::eOk) continue;
    if (!canBeOpened(baseId)) return false;
    if (isTextOf(baseId, ids)) return true;
  }
}

}  // namespace kovra
