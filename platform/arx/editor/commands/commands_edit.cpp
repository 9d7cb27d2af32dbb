#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/editor/commands/builtin_commands.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/picks/selection_prompt.h"
#include "platform/arx/editor/prompts/prompts.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

/// How far a MOVE goes, in world coordinates; nothing when cancelled.
std::optional<Displacement> askDisplacement(AcApDocument& document) {
  // Commands move texts by the hundred thousand, one at a time.
  static const PromptControl control = {0, KeywordList(L"Displacement")};
  const Reply base = askPoint(L"Specify base point or [Displacement] <Displacement>: ", control);
  const AcGeMatrix3d toWorld = ucsToWcs(document);
  if (base.status == RTNONE || base.status == RTKWORD) {
    const Reply vector = askPoint(L"Specify displacement <0,0,0>: ", {}, AcGePoint3d());
    if (!vector) return std::nullopt;
    return displacementBy(vector.point.asVector().transformBy(toWorld));
  }
  if (!base) return std::nullopt;
  const Reply target =
      askPoint(L"Specify second point or <use first point as displacement>: ", {}, base.point);
  if (target.status == RTNONE) return displacementBy(base.point.asVector().transformBy(toWorld));
  if (!target) return std::nullopt;
  return displacementOf(AcGePoint3d(base.point).transformBy(toWorld),
                        AcGePoint3d(target.point).transformBy(toWorld));
}

/// The types of entities in the order in which they come, each with its number if they differ:
/// "3DSOLID (2), REGION (1)".
std::wstring kindsOf(const AcDbDatabase& database, std::span<const AcDbObjectId> ids) {
  std::vector<std::pair<std::string_view, int>> kinds;
  for (const AcDbObjectId& id : ids) {
    const std::string_view name = database.store().typeName(id.index());
    auto kind = std::find_if(kinds.begin(), kinds.end(),
                             [&](const auto& known) { return known.first == name; });
    if (kind == kinds.end()) kind = kinds.insert(kind, {name, 0});
    ++kind->second;
  }
  std::wstring text;
  for (const auto& [name, count] : kinds) {
    if (!text.empty()) text += L", ";
    text += database.store().codec().decode(name);
    if (kinds.size() > 1) text += L" (" + std::to_wstring(count) + L")";
  }
  return text;
}

}  // namespace

void moveCommand(AcApDocument& document) {
  SelectionSet set;
  if (!editableSelection(document, set) || set.members().empty()) return;
  const std::optional<Displacement> displacement = askDisplacement(document);
  if (!displacement) return;
  // So far that no sum of coordinates leaves the range of numbers.
  constexpr double kFarthest = 1e99;
  if (!(displacement->world.length() <= kFarthest))
    return refuseAnswer({}, L"The displacement is too large.");
  const std::vector<AcDbObjectId> left = translateEntities(set.members(), *displacement);
  if (left.empty()) return;
  const std::wstring message =
      std::to_wstring(left.size()) + L" not moved: " + kindsOf(*document.database(), left);
  if (left.size() == set.members().size())
    refuseAnswer({}, message);
  else
    showMessage(message);
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
