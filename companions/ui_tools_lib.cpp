#include "module/frame/companions/ui_tools_lib.h"

#include <algorithm>
#include <string>
#include <vector>

#include "companions/project.h"
#include "companions/shared_databases.h"
#include "companions/sorted_points.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/editor/editor.h"
#include "platform/arx/entities/mtext.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"

namespace {

using kovra::companions::currentProject;
using kovra::companions::Project;

bool isOnExcludedLayer(const ads_name entity, const Project& project) {
  AcDbObjectId id;
  AcDbEntity* opened = nullptr;
  if (acdbGetObjectId(id, entity) != Acad::eOk || acdbOpenObject(opened, id) != Acad::eOk)
    return false;
  const ACHAR* layer = opened->layerName();
  const bool excluded = layer && project.excludesLayer(kovra::win::toUtf8(layer));
  opened->close();
  return excluded;
}

void sayNotSaved(const kovra::Error& error) {
  kovra::win::Interaction& interaction = kovra::win::interaction();
  interaction.freshLine();
  interaction.print(error.message + "\n");
  interaction.noteFailure(error.message);
}

/// Where an entity stands to the eye: a text at its anchor, other entities at their first point.
AcGePoint3d placeOf(AcDbObjectId id) {
  AcDbEntity* opened = nullptr;
  AcGePoint3d place;
  if (acdbOpenObject(opened, id) != Acad::eOk) return place;
  if (const AcDbText* text = AcDbText::cast(opened)) {
    place = text->isDefaultAlignment() ? text->position() : text->alignmentPoint();
  } else if (const AcDbMText* paragraph = AcDbMText::cast(opened)) {
    place = paragraph->location();
  }
  opened->close();
  return place;
}

AcDbObjectIdArray idsOf(const ads_name selection) {
  AcDbObjectIdArray ids;
  Adesk::Int32 length = 0;
  if (acedSSLength(selection, &length) != RTNORM) return ids;
  ids.setPhysicalLength(length);
  for (Adesk::Int32 i = 0; i < length; ++i) {
    ads_name entity;
    AcDbObjectId id;
    if (acedSSName(selection, i, entity) == RTNORM && acdbGetObjectId(id, entity) == Acad::eOk)
      ids.append(id);
  }
  return ids;
}

}  // namespace

int SelectObjectsSorted(const char* prompt, AcDbObjectIdArray& ids, const resbuf* filter,
                        int sortCode) {
  ids.removeAll();
  const std::wstring text = kovra::win::fromUtf8(prompt ? prompt : "");
  const ACHAR* prompts[] = {prompt ? text.c_str() : nullptr, nullptr};
  ads_name selection;
  const int status = acedSSGet(L":$:N", prompts, nullptr, filter, selection);
  if (status != RTNORM) return status;
  ids = idsOf(selection);
  acedSSFree(selection);
  if (kovra::companions::sortsPoints(sortCode)) {
    AcGePoint3dArray points;
    points.setPhysicalLength(ids.length());
    for (const AcDbObjectId& id : ids) points.append(placeOf(id));
    SortObjectsByPoints(sortCode, ids, points);
  }
  return ids.isEmpty() ? RTERROR : RTNORM;
}

void SortObjectsByPoints(int sortCode, AcDbObjectIdArray& ids, AcGePoint3dArray& points) {
  const AcDbObjectIdArray formerIds = ids;
  const AcGePoint3dArray formerPoints = points;
  const int count = std::min(ids.length(), points.length());
  const std::vector<int> order = kovra::companions::sortedPlaces(sortCode, points, count);
  for (int i = 0; i < count; ++i) {
    ids.setAt(i, formerIds.at(order[static_cast<std::size_t>(i)]));
    points.setAt(i, formerPoints.at(order[static_cast<std::size_t>(i)]));
  }
}

bool IsLayerExcluded(const char* layerName) {
  const auto project = currentProject();
  return project && layerName && project->excludesLayer(layerName);
}

int RemoveExcludedObjects(const ads_name selection) {
  const auto project = currentProject();
  Adesk::Int32 length = 0;
  if (!project || acedSSLength(selection, &length) != RTNORM) return 0;
  int removed = 0;
  // From the end, because a removal moves the members behind it.
  for (Adesk::Int32 i = length; i-- > 0;) {
    ads_name entity;
    if (acedSSName(selection, i, entity) == RTNORM && isOnExcludedLayer(entity, *project) &&
        acedSSDel(entity, selection) == RTNORM)
      ++removed;
  }
  return removed;
}

void SaveDatabase(AcDbDatabase* database, const wchar_t* path) {
  if (!database || !path) return;
  kovra::dxf::SaveOptions options;
  options.backup = kovra::win::runSettings().keepBackup;
  // A database that others go on with must know whether it was saved.
  if (!kovra::companions::isShared(*database)) options.behind = sayNotSaved;
  const auto saved = database->save(kovra::win::toUtf8(path), options);
  if (!saved.ok()) sayNotSaved(saved.error());
}
