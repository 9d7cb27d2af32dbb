#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/picks/selection_prompt.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/arx/entities/record_geometry.h"

namespace kovra::arx {
namespace {

/// How far a MOVE goes, in world coordinates; nothing when cancelled.
std::optional<AcGeVector3d> askDisplacement(AcApDocument& document) {
  const Reply base = askPoint(L"Specify base point or [Displacement] <Displacement>: ",
                              {0, KeywordList(L"Displacement")});
  const AcGeMatrix3d toWorld = ucsToWcs(document);
  if (base.status == RTNONE || base.status == RTKWORD) {
    const Reply vector = askPoint(L"Specify displacement <0,0,0>: ", {}, AcGePoint3d());
    if (!vector) return std::nullopt;
    return vector.point.asVector().transformBy(toWorld);
  }
  if (!base) return std::nullopt;
  const Reply target =
      askPoint(L"Specify second point or <use first point as displacement>: ", {}, base.point);
  if (target.status == RTNONE) return base.point.asVector().transformBy(toWorld);
  if (!target) return std::nullopt;
  return (target.point - base.point).transformBy(toWorld);
}

}  // namespace

void moveCommand(AcApDocument& document) {
  SelectionSet set;
  if (!editableSelection(document, set) || set.members().empty()) return;
  const std::optional<AcGeVector3d> vector = askDisplacement(document);
  if (!vector) return;
  int left = 0;
  for (const AcDbObjectId& id : set.members())
    if (!translateEntity(id, *vector)) ++left;
  if (left > 0) refuseAnswer({}, std::to_wstring(left) + L" could not be moved.");
}

void eraseCommand(AcApDocument& document) {
  SelectionSet set;
  if (!editableSelection(document, set)) return;
  for (const AcDbObjectId& id : set.members()) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk) continue;
    entity->erase();
    entity->close();
  }
}

}  // namespace kovra::arx
