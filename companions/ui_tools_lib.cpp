#include "module/frame/companions/ui_tools_lib.h"

#include <string>

#include "companions/project.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
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

}  // namespace

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
  const auto saved = database->save(kovra::win::toUtf8(path), options);
  if (saved.ok()) return;
  kovra::win::Interaction& interaction = kovra::win::interaction();
  interaction.freshLine();
  interaction.print(saved.error().message + "\n");
  interaction.noteFailure(saved.error().message);
}
