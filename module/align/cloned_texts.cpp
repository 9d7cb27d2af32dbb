#include "module/align/cloned_texts.h"

#include "module/drawing/current_database.h"
#include "module/drawing/open_text.h"

namespace kovra {
namespace {

/// Space of a text; null for anything else.
AcDbObjectId spaceOf(const AcDbObjectId& id) {
  const OpenText text(id, AcDb::kForRead);
  return text ? text->ownerId() : AcDbObjectId::kNull;
}

/// Appends the copies of a mapping, in its order.
void collectClones(const AcDbIdMapping& mapping, AcDbObjectIdArray& clones) {
  for (AcDbIdMappingIter pairs(mapping); !pairs.done(); pairs.next()) {
    AcDbIdPair pair;
    if (pairs.getMap(pair) && pair.isCloned()) clones.append(pair.value());
  }
}

void eraseOpened(const AcDbObjectId& id) {
  AcDbObject* object = nullptr;
  if (acdbOpenObject(object, id, AcDb::kForWrite) != Acad::eOk) return;
  object->erase(true);
  object->close();
}

void eraseClone(const AcDbObjectId& id) {
  if (id.isNull() || id.isErased()) return;
  ads_name name = {};
  const bool isNamed = acdbGetAdsName(name, id) == Acad::eOk;
  if (!isNamed || acdbEntDel(name) == RTERROR) eraseOpened(id);
}

}  // namespace

void CloneTexts(const AcDbObjectIdArray& ids, AcDbObjectIdArray& clones) {
  AcDbDatabase* const database = CurrentDatabase();
  const AcDbObjectId space = ids.isEmpty() ? AcDbObjectId::kNull : spaceOf(ids.first());
  AcDbIdMapping mapping;
  if (database != nullptr && !space.isNull() &&
      database->deepCloneObjects(ids, space, mapping, false) == Acad::eOk) {
    collectClones(mapping, clones);
  }
}

ClonedTexts::~ClonedTexts() {
  for (const AcDbObjectId& id : ids_) eraseClone(id);
}

}  // namespace kovra
