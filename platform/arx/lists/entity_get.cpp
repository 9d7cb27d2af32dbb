// Names of objects, and entities as lists.
#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/arx/lists/list_groups.h"
#include "platform/dxf/record_store.h"

namespace dxf = kovra::dxf;

// The first word of an entity's name holds the database's serial number and the object's index; the
// second is 0, which tells it from a selection set's.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
  id.setNull();
  if (name[0] == 0 || name[1] != 0) return Acad::eInvalidAdsName;
  const auto bits = static_cast<std::uint64_t>(name[0]);
  const AcDbObjectId named(static_cast<std::uint32_t>(bits >> 32),
                           static_cast<std::uint32_t>(bits));
  if (!named.isValid()) return Acad::eInvalidAdsName;
  id = named;
  return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id) {
  ads_name_clear(name);
  if (id.isNull()) return Acad::eNullObjectId;
  if (!id.isValid()) return Acad::eInvalidAdsName;
  name[0] = static_cast<Adesk::IntPtr>((std::uint64_t{id.serial()} << 32) | id.index());
  return Acad::eOk;
}

resbuf* acdbEntGet(const ads_name name) {
  AcDbObjectId id;
  if (name == nullptr || acdbGetObjectId(id, name) != Acad::eOk || id.isErased()) return nullptr;
  const AcDbDatabase& database = *id.database();
  if (id.index() >= database.store().count()) return nullptr;
  const kovra::arx::ScratchDraft scratch(database.objects());
  dxf::RecordDraft& draft = *scratch;
  database.objects().loadCurrent(id.index(), draft);
  kovra::arx::ListBuilder list;
  list.appendName(kDxfEntityName, id);
  list.appendGroup(database, draft, 0);
  // Drawings without owners show theirs all the same.
  if (draft.find(330) == dxf::kNoGroup && !id.ownerId().isNull())
    list.appendName(330, id.ownerId());
  for (std::size_t i = 1; i < draft.size(); ++i) {
    const dxf::GroupPart part = draft.part(i);
    if (part == dxf::GroupPart::kData || part == dxf::GroupPart::kAppGroup)
      list.appendGroup(database, draft, i);
  }
  return list.take();
}
